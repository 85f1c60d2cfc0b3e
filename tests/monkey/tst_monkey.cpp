// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "child_run.h"
#include "cont_dial.h"
#include "curarrow.h"
#include "each.h"
#include "event.h"
#include "interfacebutton.h"
#include "invariants.h"
#include "legendbutton.h"
#include "runs.h"
#include "shrink.h"
#include "test_files.h"
#include "watchdog.h"
#include "windowtest.h"

#include <QDir>
#include <QLabel>

#include <unistd.h>

using std::chrono::milliseconds;

/// The parts of the monkey, and the scripts that found a bug.
class TestMonkey : public WindowTest
{
    Q_OBJECT

private slots:
    void sameSeedGivesTheSameScript()
    {
        const Script script = randomScript(1, 2);
        QCOMPARE(textOf(script, "seed 1"),
                 QByteArray("# seed 1\nmove 557 704 695 655 85147106\n"
                            "slot-action 69 678 847 745 199814394\n"));
        QCOMPARE(randomScript(1, 500).mid(0, 2), script);
        QVERIFY(randomScript(2, 2) != script);
    }

    void writtenScriptIsReadBack()
    {
        const Script script = randomScript(5, 100);
        QCOMPARE(parsedScript(textOf(script, "a comment")), script);
    }

    void scriptShrinksToTheEventsThatMatter()
    {
        // Fails when a "files" precedes a "drop" with an odd first number.
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
        QCOMPARE(small[1].kind, Event::Drop);
        QVERIFY(calls <= 1000);
        calls = 0;
        QVERIFY(fails(shrunk(script, fails, 10)));
        QVERIFY(calls <= 11);
    }

    void eachBrokenInvariantIsReported();

    void codeThatTakesTooLongAborts()
    {
        struct Row
        {
            const char *name;
            milliseconds work;
            milliseconds wait;
            void (*stall)();
        };
        each<Row>({ { "worked", milliseconds(100), milliseconds(60000),
                      [] {
                          for (volatile unsigned work = 0;;)
                              work = work + 1;
                      } },
                    { "waited", milliseconds(60000), milliseconds(300),
                      [] {
                          for (;;)
                              pause();
                      } } },
                  [](const Row &row) {
                      const Ending ending = runInChild([&row](int &progress) {
                          progress = 17;
                          const Watchdog watchdog(row.work, row.wait);
                          row.stall();
                          return 0;
                      });
                      const QByteArray line = "stall: " + QByteArray(row.name) + " too long\n";
                      QVERIFY2(ending.output.contains(line), ending.output.constData());
                      QVERIFY(ending.status != 0);
                      QCOMPARE(ending.progress, 17);
                  });
    }

    void savedScriptsPlayThrough()
    {
        const QDir folder(QStringLiteral(VELKOR_TEST_DATA "/monkey"));
        const auto names = folder.entryList({ QStringLiteral("*.monkey") }, QDir::Files);
        QVERIFY(!names.isEmpty());
        for (const QString &name : names) {
            const Script script = parsedScript(contentOf(folder.filePath(name)));
            int played = 0;
            const QStringList broken = brokenBy(script, played);
            QVERIFY2(broken.isEmpty(), qPrintable(name + broken.join(QLatin1Char('\n'))));
            QCOMPARE(played, static_cast<int>(script.size()));
        }
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
            { "no slot but the master is marked",
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
