// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "session.h"

#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

namespace {

constexpr int scripts = 3 * 2 * 3; ///< sizes, languages, modes
constexpr int patienceMs = 600000;

/// Whether a control lights up once a menu has gone is a matter of time, and two runs of one and
/// the same program can differ in it. What the extras change is there in every run.
constexpr int attempts = 3;

struct Run
{
    QList<QByteArray> lines;
    QByteArray errors;
    bool good = false;
};

/// What the replay at \a program prints.
Run replay(const char *program, const QStringList &arguments = {})
{
    QProcess process;
    process.start(QString::fromUtf8(program), arguments);
    Run run;
    run.good = process.waitForFinished(patienceMs) && process.exitStatus() == QProcess::NormalExit
        && process.exitCode() == 0;
    run.lines = process.readAllStandardOutput().split('\n');
    run.errors = process.readAllStandardError().right(2000);
    return run;
}

QByteArray contentOf(const QTemporaryDir &folder, const char *name)
{
    QFile file(folder.filePath(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("nothing");
}

/// In what the two programs differ after the event of line \a number.
QString difference(int number)
{
    const QTemporaryDir with;
    const QTemporaryDir without;
    replay(VELKOR_REPLAY_WITH, { QString::number(number), with.path() });
    replay(VELKOR_REPLAY_WITHOUT, { QString::number(number), without.path() });
    const auto one = contentOf(with, "state.txt").split('\n');
    const auto other = contentOf(without, "state.txt").split('\n');
    for (int line = 0; line < qMax(one.size(), other.size()); ++line)
        if (one.value(line) != other.value(line))
            return QString::fromUtf8("with: " + one.value(line)
                                     + "\n  without: " + other.value(line));
    const QString kept
        = QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("%1"));
    const QImage pictures[] = { QImage(with.filePath(QStringLiteral("picture.png"))),
                                QImage(without.filePath(QStringLiteral("picture.png"))) };
    pictures[0].save(kept.arg(QLatin1String("with.png")));
    pictures[1].save(kept.arg(QLatin1String("without.png")));
    return QStringLiteral("the states are alike; see ") + kept.arg(QLatin1String("with*.png"));
}

/// True when \a lines tell of every script, at every size in every language and mode, and of a
/// window that changes.
bool tellsOfEverything(const QList<QByteArray> &lines)
{
    QSet<QByteArray> pictures;
    QSet<QByteArray> kinds;
    QByteArray language;
    int closed = 0;
    for (const QByteArray &line : lines) {
        const QList<QByteArray> parts = line.split('|');
        pictures.insert(parts.value(2));
        if (line.startsWith("closed") && parts.value(1).contains("MasterId"))
            ++closed;
        if (line.startsWith("opened"))
            language = parts.value(0);
        if (line.startsWith("mode"))
            kinds.insert(language + parts.value(0) + parts.value(2).trimmed().split(' ').value(0));
    }
    // A picture that never changes would be alike as well.
    return kinds.size() == scripts && closed == scripts && pictures.size() > lines.size() / 2;
}

} // namespace

/// The window with the extras is the window without them, until somebody uses one. Both of the
/// program's builds are made, and the same scripts are played at both.
class TestExtrasOnlyAdd : public QObject
{
    Q_OBJECT

private slots:
    void onlyOneOfThemHasTheExtras();
    void bothBuildsLookAlikeAfterEveryEvent();
};

void TestExtrasOnlyAdd::onlyOneOfThemHasTheExtras()
{
    const QStringList tell{ QStringLiteral("tell") };
    QCOMPARE(replay(VELKOR_REPLAY_WITH, tell).lines.value(0), QByteArray("attached, linked"));
    QCOMPARE(replay(VELKOR_REPLAY_WITHOUT, tell).lines.value(0), QByteArray("alone, not linked"));
}

void TestExtrasOnlyAdd::bothBuildsLookAlikeAfterEveryEvent()
{
    QString found;
    Run without;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const Run with = replay(VELKOR_REPLAY_WITH);
        QVERIFY2(with.good, with.errors.constData());
        without = replay(VELKOR_REPLAY_WITHOUT);
        QVERIFY2(without.good, without.errors.constData());
        QCOMPARE(with.lines.size(), without.lines.size());
        const auto differing
            = std::mismatch(without.lines.cbegin(), without.lines.cend(), with.lines.cbegin());
        found.clear();
        if (differing.first == without.lines.cend())
            break;
        const auto number = static_cast<int>(differing.first - without.lines.cbegin());
        found = QString::fromUtf8(*differing.first) + QLatin1Char('\n') + difference(number);
        qInfo("%s", qPrintable(found));
    }
    QVERIFY2(found.isEmpty(), qPrintable(found));
    QVERIFY(tellsOfEverything(without.lines));
}

QTEST_GUILESS_MAIN(TestExtrasOnlyAdd)
#include "tst_extras_only_add.moc"
