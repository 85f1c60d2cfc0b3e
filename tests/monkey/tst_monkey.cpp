// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "curarrow.h"
#include "event.h"
#include "interfacebutton.h"
#include "invariants.h"
#include "legendbutton.h"
#include "shrink.h"
#include "watchdog.h"
#include "windowactions.h"
#include "worker.h"

#include <QDir>
#include <QLabel>
#include <QProcess>
#include <QtTest>

#include <chrono>
#include <ctime>
#include <thread>

namespace {

using Damage = std::function<void(const MainWindowProbe &)>;

const char *const stallVariable = "VELKOR_MONKEY_STALL";

Event eventOf(Event::Kind kind)
{
    Event event;
    event.kind = kind;
    return event;
}

/// Works on one event for ever or, when \a how is not "works", begins to and then waits for ever.
[[noreturn]] void stall(const QByteArray &how)
{
    const Event event = eventOf(Event::TurnDial);
    const bool atWork = how == "works";
    Watchdog watchdog(std::chrono::milliseconds(atWork ? 100 : 60000),
                      std::chrono::milliseconds(atWork ? 60000 : 500));
    watchdog.begin(event, 17);
    const std::clock_t begun = std::clock();
    for (volatile unsigned work = 0; atWork || std::clock() - begun < CLOCKS_PER_SEC / 5;)
        work = work + 1;
    // Having done something it waits for what never comes.
    for (;;)
        std::this_thread::sleep_for(std::chrono::seconds(60));
}

} // namespace

Q_DECLARE_METATYPE(Damage)

/// The monkey itself: it plays the same each time, sees what is wrong, and makes scripts short.
/// And what it once found: the scripts that are kept, played again.
class TestMonkey : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

    void theSameSeedGivesTheSameScriptEverywhere()
    {
        const Script script = dealtScript(1, 3);
        QCOMPARE(lineOf(script[0]), QByteArray("entry 139 124 368 263 550290313"));
        QCOMPARE(lineOf(script[1]), QByteArray("wheel-anywhere 341 759 432 248 629559425"));
        QCOMPARE(lineOf(script[2]), QByteArray("turn-dial 943 13 340 302 796884249"));
        QCOMPARE(dealtScript(1, 500).mid(0, 3), script);
        QVERIFY(dealtScript(2, 3) != script);
    }

    void everyKindOfEventComesUp()
    {
        QVector<int> seen(Event::KindCount);
        const Script script = dealtScript(3, 20000);
        for (const Event &event : script)
            ++seen[event.kind];
        QVERIFY(!seen.contains(0));
    }

    void aScriptIsReadAsItWasWritten()
    {
        const Script script = dealtScript(5, 100);
        QString error;
        QCOMPARE(parsedScript(textOf(script, "two\nlines"), &error), script);
        QVERIFY(error.isEmpty());
    }

    void aLineThatIsNoEventIsToldOf_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("unknown kind") << QByteArray("jump 1 2 3 4 5");
        QTest::newRow("too few numbers") << QByteArray("press 1 2 3 4");
        QTest::newRow("no number") << QByteArray("press 1 2 x 4 5");
        QTest::newRow("number too large") << QByteArray("press 1 2 1000 4 5");
        QTest::newRow("number below 0") << QByteArray("press -1 2 3 4 5");
    }

    void aLineThatIsNoEventIsToldOf()
    {
        QFETCH(QByteArray, line);
        QString error;
        QVERIFY(parsedScript("settle 0 0 0 0 0\n" + line, &error).isEmpty());
        QVERIFY(error.startsWith(QLatin1String("line 2 ")));
    }

    void aScriptShrinksToTheEventsThatMatter()
    {
        // Fails when a "files" comes some time before a "drop" with an odd first number.
        int asked = 0;
        const auto fails = [&asked](const Script &script) {
            ++asked;
            bool chosen = false;
            for (const Event &event : script) {
                if (chosen && event.kind == Event::Drop && event.numbers[0] % 2 == 1)
                    return true;
                chosen = chosen || event.kind == Event::Files;
            }
            return false;
        };
        const Script script = dealtScript(9, 5000);
        QVERIFY(fails(script));
        asked = 0;
        const Script small = shrunk(script, fails, 1000);
        QCOMPARE(small.size(), 2);
        QCOMPARE(small[0].kind, Event::Files);
        QCOMPARE(small[0].numbers, (std::array<int, 4>{ 0, 0, 0, 0 }));
        QCOMPARE(small[1].kind, Event::Drop);
        QVERIFY(asked <= 1000);
        asked = 0;
        QVERIFY(fails(shrunk(script, fails, 10)));
        QVERIFY(asked <= 11);
    }

    void aSoundWindowBreaksNothing()
    {
        WindowFixture fixture;
        QCOMPARE(brokenInvariants(fixture.open()), QStringList());
        const auto wave = [](int i) { return i % 100 - 50; };
        openWith(fixture, { TraceBuilder().samples(wave), TraceBuilder().minstep(5.0F).delay(9) },
                 1);
        QCOMPARE(brokenInvariants(fixture.window()), QStringList());
    }

    void whatIsWrongIsSeen_data();
    void whatIsWrongIsSeen()
    {
        QFETCH(Damage, damage);
        QFETCH(QString, sentence);
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder().samples(7), TraceBuilder().minstep(5.0F) }, 1);
        damage(fixture.probe());
        const QString found = brokenInvariants(fixture.window()).join(QLatin1Char('\n'));
        QVERIFY2(found.contains(sentence), qPrintable(found));
    }

    void anEventThatTakesTooLongEndsTheProgramWithItsName_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("works") << QStringLiteral("works");
        QTest::newRow("works and waits") << QStringLiteral("waits");
    }

    void anEventThatTakesTooLongEndsTheProgramWithItsName()
    {
        QFETCH(QString, how);
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QLatin1String(stallVariable), how);
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QCoreApplication::applicationFilePath(), QStringList());
        QVERIFY(process.waitForFinished(60000));
        const QByteArray said = process.readAll();
        QVERIFY2(said.contains("stall: "
                               + (how == QLatin1String("works") ? QByteArray("worked")
                                                                : QByteArray("waited"))),
                 said.constData());
        QVERIFY2(said.contains(" on event 17: turn-dial 0 0 0 0 0"), said.constData());
        QVERIFY(process.exitStatus() == QProcess::CrashExit || process.exitCode() != 0);
    }

    void aKeptScriptPlaysThrough_data()
    {
        QTest::addColumn<QString>("path");
        const QDir folder(QStringLiteral(VELKOR_MONKEY_SCRIPTS));
        const auto scripts = folder.entryInfoList({ QStringLiteral("*.monkey") }, QDir::Files);
        QVERIFY(!scripts.isEmpty());
        for (const QFileInfo &script : scripts)
            QTest::newRow(qPrintable(script.baseName())) << script.filePath();
    }

    void aKeptScriptPlaysThrough()
    {
        QFETCH(QString, path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QString error;
        const Script script = parsedScript(file.readAll(), &error);
        QVERIFY2(!script.isEmpty(), qPrintable(error));
        int last = -1;
        QCOMPARE(playedThrough(script, [&last](int number) { last = number; }), QStringList());
        QCOMPARE(last, script.size() - 1);
    }
};

void TestMonkey::whatIsWrongIsSeen_data()
{
    QTest::addColumn<QString>("sentence");
    QTest::addColumn<Damage>("damage");
    const auto row = [](const char *sentence, const Damage &damage) {
        QTest::newRow(sentence) << QString::fromLatin1(sentence) << damage;
    };
    using Probe = MainWindowProbe;
    row("a cursor stands on the axis", [](const Probe &p) { p.cursor_B_pos() = 64001; });
    row("the velocity factor is 1 to 10", [](const Probe &p) { p.master_params().KU = 0.5F; });
    row("metres per count follow the factor", [](const Probe &p) { p.dist_coef() = 0.1; });
    row("the range is as wide as its scale", [](const Probe &p) { p.master_scale() = 5; });
    row("right is offered unless at the right end",
        [](const Probe &p) { p.scroll_right_button()->setEnabled(false); });
    row("the scroll is the range's left end", [](const Probe &p) { p.scrollfactorX() = 1; });
    row("left is offered unless at the left end",
        [](const Probe &p) { p.scroll_left_button()->setEnabled(true); });
    row("one trace button is checked", [](const Probe &p) { p.rfg_ID() = 4; });
    row("one cursor button is checked", [](const Probe &p) {
        p.Cur_flag() = MainWindow::CURSOR_B;
        p.Cur_flag_true() = MainWindow::CURSOR_B;
    });
    row("the smooth button shows the mode", [](const Probe &p) { p.smooth_rfg_flag() = true; });
    row("an empty slot shows nothing", [](const Probe &p) { p.selected_rfg()[3]->setVis(true); });
    row("the menu of a slot follows its bit",
        [](const Probe &p) { p.selected_rfg()[0]->menuEnable(false); });
    row("a button says what its bit says", [](const Probe &p) { p.rfg_read_index() = 7; });
    row("a trace is on the chart as its button says",
        [](const Probe &p) { p.rfg_series()[0]->setVisible(false); });
    row("one slot at most is the master",
        [](const Probe &p) { p.selected_rfg()[0]->setMast(true); });
    row("a master is marked", [](const Probe &p) { p.selected_rfg()[1]->setMast(false); });
    row("the cursor dial is within its limits",
        [](const Probe &p) { p.cursor_dial()->trueValue = -1; });
    row("the parameter dial is within its limits",
        [](const Probe &p) { p.param_dial()->trueValue = 64001; });
    row("a cursor's line stands on its column",
        [](const Probe &p) { p.cursor_A()->replace(1, 5.0, 0.0); });
    row("a marker shows where its cursor is in sight",
        [](const Probe &p) { p.cur_arrowA()->vis_state(false); });
    row("a level is the record's", [](const Probe &p) { p.rfg_DATA()[1].offset = 3; });
    row("a readout says where its cursor is",
        [](const Probe &p) { p.curB_button()->setText(QStringLiteral("B")); });
    row("the distance between the cursors", [](const Probe &p) { p.delta_lbl()->clear(); });
    row("every widget is inside the window",
        [](const Probe &p) { p.smooth_button()->move(790, 200); });
}

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsSet(stallVariable))
        stall(qgetenv(stallVariable));
    QApplication application(argc, argv);
    TestMonkey test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_monkey.moc"
