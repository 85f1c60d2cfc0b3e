// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracebuilder.h"
#include "virtualscreen.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

namespace {

// Places in the window at its first size of 800 x 500.
constexpr QPoint filesButton(76, 90);
constexpr QPoint secondTrace(76, 187);
constexpr QRect plot(203, 99, 425, 252);
constexpr QPoint velocityButton(300, 412);
constexpr QPoint widerButton(690, 272);
constexpr QPoint settingsButton(723, 91);
constexpr QRect filesCaption(20, 80, 112, 20);
constexpr QRect velocityCaption(262, 398, 76, 30);
constexpr QRect scaleCaption(262, 450, 76, 30);
constexpr QRect distanceReadout(160, 28, 100, 16);
constexpr QRect secondTraceFrame(9, 166, 136, 40);

const QString viewer = QStringLiteral("^Velkor$");

bool isYellow(QRgb colour)
{
    return qRed(colour) > 200 && qGreen(colour) > 200 && qBlue(colour) < 120;
}

/// Columns of \a area that are yellow from top to bottom: the active cursor's line.
QVector<int> yellowColumns(const QImage &screen, const QRect &area)
{
    QVector<int> columns;
    for (int x = area.left(); x <= area.right(); ++x) {
        int yellow = 0;
        for (int y = area.top(); y <= area.bottom(); ++y)
            yellow += isYellow(screen.pixel(x, y)) ? 1 : 0;
        if (yellow > area.height() * 9 / 10)
            columns << x;
    }
    return columns;
}

int count(const QImage &screen, const QRect &area, QRgb colour)
{
    int pixels = 0;
    for (int x = area.left(); x <= area.right(); ++x)
        for (int y = area.top(); y <= area.bottom(); ++y)
            pixels += screen.pixel(x, y) == colour ? 1 : 0;
    return pixels;
}

} // namespace

/// The real program on an X server of its own with real mouse and key events: one session of a
/// user, and the next start, which restores it.
class TestEndToEnd : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    VirtualScreen m_screen;
    QProcess m_viewer;
    QRect m_window;

    QString program() const
    {
        return m_folder.filePath(QStringLiteral("velkor"));
    }
    QString settingsFile() const
    {
        return m_folder.filePath(QStringLiteral("settings_current.ini"));
    }
    QString trace(int number) const
    {
        return m_folder.filePath(QStringLiteral("trace %1.tdr").arg(number));
    }
    QPoint inWindow(QPoint at) const
    {
        return m_window.topLeft() + at;
    }
    QRect inWindow(const QRect &area) const
    {
        return area.translated(m_window.topLeft());
    }

    void start()
    {
        m_viewer.setProcessEnvironment(m_screen.environment());
        m_viewer.setProcessChannelMode(QProcess::ForwardedChannels);
        m_viewer.start(program(), QStringList());
        QVERIFY(m_viewer.waitForStarted());
        m_window = m_screen.waitForWindow(viewer);
        QCOMPARE(m_window.size(), QSize(800, 500));
        // The pointer rests where no button lights up under it.
        m_screen.moveTo(inWindow(QPoint(400, 496)));
    }

    void closeAsAUserDoes()
    {
        m_screen.closeWindow(viewer);
        QVERIFY(m_viewer.waitForFinished(10000));
        QCOMPARE(m_viewer.exitStatus(), QProcess::NormalExit);
        QCOMPARE(m_viewer.exitCode(), 0);
    }

    QImage part(const QRect &area) const
    {
        return m_screen.picture().copy(inWindow(area));
    }

    bool waitForChange(const QRect &area, const QImage &before) const
    {
        return m_screen.waitUntil(
            [&](const QImage &screen) { return screen.copy(inWindow(area)) != before; });
    }

private slots:
    void initTestCase()
    {
        QVERIFY(QFile::copy(QStringLiteral(VELKOR_PROGRAM), program()));
        // A crest in the first trace, a dip in the second.
        const auto bump = [](int from, int height) {
            return [=](int i) { return i >= from && i < from + 40 ? height : 0; };
        };
        TraceBuilder().minstep(5.0F).samples(bump(100, 90)).write(trace(1));
        TraceBuilder().minstep(5.0F).samples(bump(150, -90)).write(trace(2));
    }

    void cleanupTestCase()
    {
        if (m_viewer.state() != QProcess::NotRunning) {
            m_screen.picture().save(QStringLiteral("failed.png"));
            m_viewer.kill();
            m_viewer.waitForFinished();
        }
    }

    void aSessionIsRestoredAtTheNextStart()
    {
        using Step = void (TestEndToEnd::*)();
        for (const Step step : { &TestEndToEnd::start, &TestEndToEnd::openTwoFiles,
                                 &TestEndToEnd::selectTheSecond, &TestEndToEnd::dragTheCursor,
                                 &TestEndToEnd::typeAShorteningFactor, &TestEndToEnd::stepByKeys,
                                 &TestEndToEnd::zoomOut, &TestEndToEnd::switchToRussian }) {
            (this->*step)();
            if (QTest::currentTestFailed())
                return;
        }
        const QImage russianFiles = part(filesCaption);
        closeAsAUserDoes();
        checkSettings();
        if (QTest::currentTestFailed())
            return;

        start();
        QVERIFY(m_screen.waitUntil([this](const QImage &screen) {
            return count(screen, inWindow(plot), qRgb(0, 255, 0)) > 100
                && count(screen, inWindow(secondTraceFrame), qRgb(0, 255, 255)) > 100;
        }));
        QCOMPARE(part(filesCaption), russianFiles);
        closeAsAUserDoes();
    }

private:
    void openTwoFiles()
    {
        QCOMPARE(count(m_screen.picture(), inWindow(plot), qRgb(0, 255, 0)), 0);
        m_screen.click(inWindow(filesButton));
        QVERIFY(!m_screen.waitForWindow(QStringLiteral("Select RFG files to open")).isEmpty());
        m_screen.type(QStringLiteral("\"%1\" \"%2\"").arg(trace(1), trace(2)));
        m_screen.key(QStringLiteral("Return"));
        QVERIFY(m_screen.waitUntilGone(QStringLiteral("Select RFG files to open")));
        // Both are drawn, in their slots' colours.
        QVERIFY(m_screen.waitUntil([this](const QImage &screen) {
            return count(screen, inWindow(plot), qRgb(0, 255, 0)) > 100
                && count(screen, inWindow(plot), qRgb(0, 255, 255)) > 50;
        }));
    }

    void selectTheSecond()
    {
        const int thin = count(m_screen.picture(), inWindow(plot), qRgb(0, 255, 255));
        m_screen.click(inWindow(secondTrace));
        // The selected trace is drawn thicker and on top.
        QVERIFY(m_screen.waitUntil([&](const QImage &screen) {
            return count(screen, inWindow(plot), qRgb(0, 255, 255)) > thin * 3 / 2;
        }));
    }

    void dragTheCursor()
    {
        const QImage before = part(distanceReadout);
        const QPoint target(plot.left() + 200, plot.center().y());
        m_screen.drag(inWindow(QPoint(plot.left() + 40, target.y())), inWindow(target));
        // The line ends under the pointer, at most one sample (two pixels) to the left of it.
        QVERIFY(m_screen.waitUntil([&](const QImage &screen) {
            const QVector<int> columns = yellowColumns(screen, inWindow(plot));
            return !columns.isEmpty() && std::abs(columns.first() - inWindow(target).x()) <= 3;
        }));
        QVERIFY(waitForChange(distanceReadout, before));
    }

    void typeAShorteningFactor()
    {
        const QImage factor = part(velocityCaption);
        const QImage distance = part(distanceReadout);
        m_screen.click(inWindow(velocityButton), 3);
        QVERIFY(!m_screen.waitForWindow(QStringLiteral("^KU$")).isEmpty());
        m_screen.key(QStringLiteral("ctrl+a"));
        m_screen.type(QStringLiteral("2.000"));
        m_screen.key(QStringLiteral("Return"));
        QVERIFY(m_screen.waitUntilGone(QStringLiteral("^KU$")));
        QVERIFY(waitForChange(velocityCaption, factor));
        QVERIFY(waitForChange(distanceReadout, distance));
    }

    /// Where the program is built with the keys: to the left by ten samples, and back.
    void stepByKeys()
    {
        const QVector<int> before = yellowColumns(m_screen.picture(), inWindow(plot));
        m_screen.key(QStringLiteral("shift+comma"));
#ifdef VELKOR_EXTRAS
        QVERIFY(m_screen.waitUntil([&](const QImage &screen) {
            const QVector<int> columns = yellowColumns(screen, inWindow(plot));
            return !columns.isEmpty() && std::abs(before.first() - columns.first() - 10 * 2) <= 3;
        }));
#endif
        m_screen.key(QStringLiteral("shift+period"));
        QVERIFY(m_screen.waitUntil(
            [&](const QImage &screen) { return yellowColumns(screen, inWindow(plot)) == before; }));
    }

    void zoomOut()
    {
        const QImage scale = part(scaleCaption);
        const QVector<int> before = yellowColumns(m_screen.picture(), inWindow(plot));
        m_screen.click(inWindow(widerButton));
        QVERIFY(waitForChange(scaleCaption, scale));
        // Twice the cable in the same width: the cursor is at half its former distance.
        const int left = inWindow(plot).left() - 2;
        QVERIFY(m_screen.waitUntil([&](const QImage &screen) {
            const QVector<int> columns = yellowColumns(screen, inWindow(plot));
            return !columns.isEmpty()
                && std::abs(2 * (columns.first() - left) - (before.first() - left)) <= 4;
        }));
    }

    void switchToRussian()
    {
        const QImage english = part(filesCaption);
        m_screen.click(inWindow(settingsButton));
        const QRect dialog = m_screen.waitForWindow(QStringLiteral("^Settings$"));
        QVERIFY(!dialog.isEmpty());
        // "OK" has the focus; back-tabs over the check boxes and buttons would depend on the style,
        // so the language box is clicked.
        m_screen.click(dialog.topLeft() + QPoint(dialog.width() / 3, dialog.height() / 6));
        m_screen.key(QStringLiteral("Down"));
        m_screen.key(QStringLiteral("Return"));
        QTest::qWait(300);
        m_screen.key(QStringLiteral("Return"));
        QVERIFY(m_screen.waitUntilGone(QStringLiteral("^Settings$")));
        QVERIFY(waitForChange(filesCaption, english));
    }

    void checkSettings()
    {
        const QSettings saved(settingsFile(), QSettings::IniFormat);
        QCOMPARE(saved.value(QStringLiteral("language")).toString(), QStringLiteral("ru_RU"));
        QCOMPARE(saved.value(QStringLiteral("PrevFiles/StateIndex")).toInt(), 3);
        QCOMPARE(saved.value(QStringLiteral("PrevFiles/MasterId")).toInt(), 0);
        QCOMPARE(saved.value(QStringLiteral("PrevFiles/file1")).toString(), trace(1));
        QCOMPARE(saved.value(QStringLiteral("PrevFiles/file2")).toString(), trace(2));
        QCOMPARE(saved.value(QStringLiteral("WorkFolders/lastFolder")).toString(),
                 QFileInfo(trace(2)).path());
        QCOMPARE(saved.value(QStringLiteral("WindowState/geometry")).toByteArray().size(), 66);
    }
};

QTEST_GUILESS_MAIN(TestEndToEnd)
#include "tst_endtoend.moc"
