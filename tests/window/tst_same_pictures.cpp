// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "session.h"
#include "windowfixture.h"
#include "windowstate.h"

#include <QDir>
#include <QtTest>

#include <cstdlib>
#include <functional>

namespace {

constexpr int rounds = 8; ///< of all kinds of actions: 232 actions
constexpr quint32 fixedSeed = 1;
// Where only a part of the view is painted anew, the toolkit leaves a pixel or two of an
// antialiased end beside that part as they were. Which part that is, each form may choose for
// itself.
constexpr int residue = 16;
constexpr int letterRounding = 64; ///< of 255, by which the edges of an outlined letter may differ

/// How far two pictures of the same size are apart.
struct Distance
{
    int pixels = 0; ///< that differ
    int most = 0; ///< largest difference of a colour, of 255
    QRect where;
};

/// What there was to see after one action.
struct Frame
{
    QString action;
    QStringList state;
    QRegion letters; ///< whose edges are rounded differently from time to time
    QImage screen;
    QImage fresh;
};

int difference(QRgb a, QRgb b)
{
    return std::max({ std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                      std::abs(qBlue(a) - qBlue(b)) });
}

Distance distance(const QImage &one, const QImage &other, const QRegion &letters)
{
    Distance result;
    for (int y = 0; y < one.height(); ++y) {
        const auto *a = reinterpret_cast<const QRgb *>(one.constScanLine(y));
        const auto *b = reinterpret_cast<const QRgb *>(other.constScanLine(y));
        for (int x = 0; x < one.width(); ++x) {
            if (a[x] == b[x])
                continue;
            const int found = difference(a[x], b[x]);
            if (found <= letterRounding && letters.contains(QPoint(x, y)))
                continue;
            ++result.pixels;
            result.where |= QRect(x, y, 1, 1);
            result.most = std::max(result.most, found);
        }
    }
    return result;
}

/// Replays the session of \a seed on a new window and hands every frame to \a look, until that one
/// says that it has seen enough.
void replay(quint32 seed, const std::function<bool(int, const Frame &)> &look)
{
    WindowFixture fixture;
    const QStringList traces = sessionTraces(fixture);
    MainWindow &window = fixture.open();
    Session session(window, traces, seed);
    for (int number = 0; number < rounds * Session::round(); ++number) {
        Frame frame;
        frame.action = session.act();
        // A repaint may ask for a layout, and that for a repaint.
        for (int i = 0; i < 3; ++i)
            WindowFixture::settle();
        frame.state = stateOf(window);
        frame.letters = lettersOf(window);
        frame.screen = screenOf(window);
        frame.fresh = freshPictureOf(window);
        if (!look(number, frame))
            return;
    }
}

/// Saves what differs beside the test program and says where.
QString keep(int number, const char *what, const QImage &one, const QImage &other)
{
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString path
        = folder.filePath(QStringLiteral("%1-%2").arg(number).arg(QLatin1String(what)));
    one.save(path + QStringLiteral("-1.png"));
    other.save(path + QStringLiteral("-2.png"));
    return path;
}

QString comparePictures(int number, const char *what, const QImage &one, const QImage &other,
                        const QRegion &letters, int allowed)
{
    if (one.size() != other.size())
        return QStringLiteral("%1: sizes differ").arg(QLatin1String(what));
    const Distance found = distance(one, other, letters);
    if (found.pixels <= allowed)
        return {};
    const QRect &at = found.where;
    return QStringLiteral("%1: %2 pixels differ by up to %3 in %4,%5 %6x%7; see %8-*.png")
        .arg(QLatin1String(what))
        .arg(found.pixels)
        .arg(found.most)
        .arg(at.x())
        .arg(at.y())
        .arg(at.width())
        .arg(at.height())
        .arg(keep(number, what, one, other));
}

QString compareStates(const QStringList &one, const QStringList &other)
{
    for (int line = 0; line < std::max(one.size(), other.size()); ++line)
        if (one.value(line) != other.value(line))
            return QStringLiteral("state: %1\n  against %2")
                .arg(one.value(line), other.value(line));
    return {};
}

/// Everything in which \a one and \a other, the frames after action \a number, differ.
QString compareFrames(int number, const Frame &one, const Frame &other)
{
    if (one.action != other.action)
        return QStringLiteral("action %1: '%2' became '%3'")
            .arg(number)
            .arg(one.action, other.action);
    QStringList findings{
        compareStates(one.state, other.state),
        comparePictures(number, "screen", one.screen, other.screen, one.letters, residue),
        comparePictures(number, "fresh", one.fresh, other.fresh, one.letters, 0)
    };
    findings.removeAll(QString());
    if (findings.isEmpty())
        return {};
    return QStringLiteral("action %1, '%2'\n  ").arg(number).arg(one.action)
        + findings.join(QStringLiteral("\n  "));
}

} // namespace

/// What stands on the screen is never stale.
class TestSamePictures : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void whatIsOnTheScreenIsNeverStale();
    void aDifferenceWouldBeFound();
};

void TestSamePictures::initTestCase()
{
    // A session answers file dialogs; a desktop's own could not be reached.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void TestSamePictures::whatIsOnTheScreenIsNeverStale()
{
    QStringList findings;
    replay(fixedSeed, [&findings](int number, const Frame &frame) {
        const QString finding
            = comparePictures(number, "stale", frame.screen, frame.fresh, frame.letters, residue);
        if (!finding.isEmpty())
            findings.append(frame.action + QLatin1Char(' ') + finding);
        return findings.size() < 5;
    });
    QVERIFY2(findings.isEmpty(), qPrintable(findings.join(QLatin1Char('\n'))));
}

void TestSamePictures::aDifferenceWouldBeFound()
{
    Frame one;
    replay(fixedSeed, [&one](int, const Frame &frame) {
        one = frame;
        return false;
    });
    QCOMPARE(compareFrames(0, one, one), QString());

    Frame pixel = one;
    pixel.fresh.setPixel(10, 20, one.fresh.pixel(10, 20) ^ 1U);
    QVERIFY(compareFrames(0, one, pixel).contains(QLatin1String("1 pixels differ by up to 1")));
    Frame stale = one;
    for (int x = 0; x <= residue; ++x)
        stale.screen.setPixel(x, 20, one.screen.pixel(x, 20) ^ 1U);
    QVERIFY(compareFrames(0, one, stale).contains(QLatin1String("screen: 17 pixels")));
    Frame series = one;
    std::swap(series.state[0], series.state[1]);
    QVERIFY(compareFrames(0, one, series).contains(QLatin1String("axisX")));
}

QTEST_MAIN(TestSamePictures)
#include "tst_same_pictures.moc"
