// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "curarrow.h"
#include "each.h"
#include "event.h"
#include "interfacebutton.h"
#include "invariants.h"
#include "legendbutton.h"
#include "shrink.h"
#include "watchdog.h"
#include "windowtest.h"
#include "worker.h"

#include <QDir>
#include <QLabel>

#include <sys/wait.h>
#include <unistd.h>

namespace {

/// What a child process printed that begins event 17 and then calls \a stall, and how it ended.
struct Ending
{
    QByteArray output;
    int status = 0;
};

Ending endingOf(std::chrono::milliseconds work, std::chrono::milliseconds wait, void (*stall)())
{
    int ends[2];
    if (pipe(ends) != 0)
        qFatal("no pipe");
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDERR_FILENO);
        close(ends[0]);
        close(ends[1]);
        Event event;
        event.kind = Event::TurnDial;
        Watchdog watchdog(work, wait);
        watchdog.begin(event, 17);
        stall();
        _exit(0);
    }
    close(ends[1]);
    Ending ending;
    char buffer[4096];
    for (ssize_t size = 0; (size = read(ends[0], buffer, sizeof buffer)) > 0;)
        ending.output.append(buffer, static_cast<int>(size));
    close(ends[0]);
    waitpid(child, &ending.status, 0);
    return ending;
}

} // namespace

/// The monkey's own parts, and the scripts that once found a bug.
class TestMonkey : public WindowTest
{
    Q_OBJECT

private slots:
    void theSameSeedGivesTheSameScript()
    {
        const Script script = randomScript(1, 3);
        QCOMPARE(lineOf(script[0]), QByteArray("entry 139 124 368 263 550290313"));
        QCOMPARE(lineOf(script[1]), QByteArray("wheel-anywhere 341 759 432 248 629559425"));
        QCOMPARE(lineOf(script[2]), QByteArray("turn-dial 943 13 340 302 796884249"));
        QCOMPARE(randomScript(1, 500).mid(0, 3), script);
        QVERIFY(randomScript(2, 3) != script);
    }

    void everyKindOfEventOccurs()
    {
        QVector<int> seen(Event::KindCount);
        const Script script = randomScript(3, 20000);
        for (const Event &event : script)
            ++seen[event.kind];
        QVERIFY(!seen.contains(0));
    }

    void aWrittenScriptIsReadBack()
    {
        const Script script = randomScript(5, 100);
        QString error;
        QCOMPARE(parsedScript(textOf(script, "two\nlines"), &error), script);
        QVERIFY(error.isEmpty());
    }

    void aLineThatIsNoEventIsReported()
    {
        struct Row
        {
            const char *name;
            QByteArray line;
        };
        each<Row>({ { "unknown kind", "jump 1 2 3 4 5" },
                    { "too few numbers", "press 1 2 3 4" },
                    { "no number", "press 1 2 x 4 5" },
                    { "number too large", "press 1 2 1000 4 5" },
                    { "number below 0", "press -1 2 3 4 5" } },
                  [](const Row &row) {
                      QString error;
                      QVERIFY(parsedScript("settle 0 0 0 0 0\n" + row.line, &error).isEmpty());
                      QVERIFY(error.startsWith(QLatin1String("line 2 ")));
                  });
    }

    void aScriptShrinksToTheEventsThatMatter()
    {
        // Fails when a "files" comes some time before a "drop" with an odd first number.
        int calls = 0;
        const auto fails = [&calls](const Script &script) {
            ++calls;
            bool chosen = false;
            for (const Event &event : script) {
                if (chosen && event.kind == Event::Drop && event[0] % 2 == 1)
                    return true;
                chosen = chosen || event.kind == Event::Files;
            }
            return false;
        };
        const Script script = randomScript(9, 5000);
        QVERIFY(fails(script));
        calls = 0;
        const Script small = shrunk(script, fails, 1000);
        QCOMPARE(small.size(), 2);
        QCOMPARE(small[0].kind, Event::Files);
        QCOMPARE(small[0].numbers, (std::array<int, 4>{ 0, 0, 0, 0 }));
        QCOMPARE(small[1].kind, Event::Drop);
        QVERIFY(calls <= 1000);
        calls = 0;
        QVERIFY(fails(shrunk(script, fails, 10)));
        QVERIFY(calls <= 11);
    }

    void anIntactWindowBreaksNoInvariant()
    {
        QCOMPARE(brokenInvariants(openOn({})), QStringList());
        const auto wave = [](int i) { return i % 100 - 50; };
        openOn({ TraceBuilder().samples(wave), TraceBuilder().minstep(5.0F).delay(9) }, 1);
        QCOMPARE(brokenInvariants(window()), QStringList());
    }

    void eachBrokenInvariantIsReported();

    void anEventThatTakesTooLongAbortsWithItsLine()
    {
        struct Row
        {
            const char *name;
            int workMs;
            int waitMs;
            void (*stall)();
        };
        each<Row>(
            { { "worked", 100, 60000,
                [] {
                    for (volatile unsigned work = 0;;)
                        work = work + 1;
                } },
              { "waited", 60000, 300,
                [] {
                    for (;;)
                        pause();
                } } },
            [](const Row &row) {
                const Ending ending = endingOf(std::chrono::milliseconds(row.workMs),
                                               std::chrono::milliseconds(row.waitMs), row.stall);
                QVERIFY2(ending.output.contains("stall: " + QByteArray(row.name)
                                                + " too long on event 17: turn-dial 0 0 0 0 0"),
                         ending.output.constData());
                QVERIFY(ending.status != 0);
            });
    }

    void savedScriptsPlayThrough()
    {
        struct Row
        {
            QByteArray name;
        };
        std::vector<Row> rows;
        const QDir folder(QStringLiteral(VELKOR_MONKEY_SCRIPTS));
        const auto names = folder.entryList({ QStringLiteral("*.monkey") }, QDir::Files);
        for (const QString &name : names)
            rows.push_back({ name.toUtf8() });
        QVERIFY(!rows.empty());
        each(rows, [&folder](const Row &row) {
            QFile file(folder.filePath(QString::fromUtf8(row.name)));
            QVERIFY(file.open(QIODevice::ReadOnly));
            QString error;
            const Script script = parsedScript(file.readAll(), &error);
            QVERIFY2(!script.isEmpty(), qPrintable(error));
            int last = -1;
            QCOMPARE(brokenBy(script, [&last](int number) { last = number; }), QStringList());
            QCOMPARE(last, lengthOf(script) - 1);
        });
    }
};

void TestMonkey::eachBrokenInvariantIsReported()
{
    using Probe = MainWindowProbe;
    struct Row
    {
        const char *name; ///< the condition that the damage breaks
        void (*damage)(const Probe &p);
    };
    each<Row>(
        {
            { "a cursor is on the axis", [](const Probe &p) { p.cursor_B_pos() = 64001; } },
            { "the shortening factor is 1 to 10",
              [](const Probe &p) { p.master_params().KU = 0.5F; } },
            { "metres per count follow the factor", [](const Probe &p) { p.dist_coef() = 0.1; } },
            { "the range is as wide as its scale", [](const Probe &p) { p.master_scale() = 5; } },
            { "right is offered unless at the right end",
              [](const Probe &p) { p.scroll_right_button()->setEnabled(false); } },
            { "the scroll is the range's left end", [](const Probe &p) { p.scrollfactorX() = 1; } },
            { "left is offered unless at the left end",
              [](const Probe &p) { p.scroll_left_button()->setEnabled(true); } },
            { "one trace button is checked", [](const Probe &p) { p.rfg_ID() = 4; } },
            { "one cursor button is checked",
              [](const Probe &p) {
                  p.Cur_flag() = MainWindow::CURSOR_B;
                  p.Cur_flag_true() = MainWindow::CURSOR_B;
              } },
            { "the smooth button shows the mode",
              [](const Probe &p) { p.smooth_rfg_flag() = true; } },
            { "an empty slot shows nothing",
              [](const Probe &p) { p.selected_rfg()[3]->setVis(true); } },
            { "the menu of a slot follows its bit",
              [](const Probe &p) { p.selected_rfg()[0]->menuEnable(false); } },
            { "a button says what its bit says", [](const Probe &p) { p.rfg_read_index() = 7; } },
            { "a trace is on the chart as its button says",
              [](const Probe &p) { p.rfg_series()[0]->setVisible(false); } },
            { "one slot at most is the master",
              [](const Probe &p) { p.selected_rfg()[0]->setMast(true); } },
            { "a master is marked", [](const Probe &p) { p.selected_rfg()[1]->setMast(false); } },
            { "the cursor dial is within its limits",
              [](const Probe &p) { p.cursor_dial()->trueValue = -1; } },
            { "the parameter dial is within its limits",
              [](const Probe &p) { p.param_dial()->trueValue = 64001; } },
            { "a cursor's line is on its column",
              [](const Probe &p) { p.cursor_A()->replace(1, 5.0, 0.0); } },
            { "a marker is visible if its cursor is in range",
              [](const Probe &p) { p.cur_arrowA()->vis_state(false); } },
            { "a level is the record's", [](const Probe &p) { p.rfg_DATA()[1].offset = 3; } },
            { "a readout says where its cursor is",
              [](const Probe &p) { p.curB_button()->setText(QStringLiteral("B")); } },
            { "the distance between the cursors", [](const Probe &p) { p.delta_lbl()->clear(); } },
            { "every widget is inside the window",
              [](const Probe &p) { p.smooth_button()->move(790, 200); } },
        },
        [this](const Row &row) {
            openOn({ TraceBuilder().samples(7), TraceBuilder().minstep(5.0F) }, 1);
            row.damage(probe());
            const QString found = brokenInvariants(window()).join(QLatin1Char('\n'));
            QVERIFY2(found.contains(QLatin1String(row.name)), qPrintable(found));
        });
}

QTEST_MAIN(TestMonkey)
#include "tst_monkey.moc"
