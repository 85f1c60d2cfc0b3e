// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "input_events.h"
#include "interfacebutton.h"
#include "window_actions.h"
#include "windowtest.h"

#include <QButtonGroup>
#include <QInputDialog>
#include <QPushButton>
#include <QtTest>

namespace {

TraceBuilder rising()
{
    return TraceBuilder().samples([](int i) { return i % 100; });
}

} // namespace

/// Difference mode. tst_trace_points and tst_trace_corpus test the points of a difference.
class TestDifference : public WindowTest
{
    Q_OBJECT

private:
    /// Opens \a traces with the first as master and switches to differences.
    MainWindow &openDifference(const QVector<TraceBuilder> &traces)
    {
        MainWindow &window = openOn(traces);
        input::click(probe().difference_button());
        return window;
    }
    const auto *series(int slot) const
    {
        return probe().rfg_series()[slot];
    }

private slots:
    void differenceIsDrawnAtColumnsCommonWithTheMaster()
    {
        // The master has 2 counts per sample. The other trace has 4, starts at count 2 * 4 + 4, and
        // is 2 levels higher.
        openDifference(
            { rising().minstep(2.5F), levelTrace(3).minstep(5.0F).delay(2).shiftX(1).shiftY(2) });
        QCOMPARE(series(0)->count(), 499);
        QCOMPARE(series(0)->at(2 * 99), QPointF(198.0, 99.0));
        QCOMPARE(series(1)->count(), 2 * 122 - 1);
        QCOMPARE(series(1)->at(0), QPointF(12.0, 6.0 - 5.0));
        // As wide as the wider of the two steps.
        QCOMPARE(series(1)->at(1), QPointF(16.0, 6.0 - 5.0));
        QCOMPARE(series(1)->at(2), QPointF(16.0, 8.0 - 5.0));
        input::click(probe().smooth_button());
        QCOMPARE(probe().rfg_series_sp()[0]->count(), 250);
        QCOMPARE(probe().rfg_series_sp()[1]->count(), 122);
        QCOMPARE(probe().rfg_series_sp()[1]->at(1), QPointF(16.0, 8.0 - 5.0));
    }

    void emptyWindowEntersTheModeWithoutAMaster()
    {
        MainWindow &window = fixture->open();
        input::click(probe().difference_button());
        QCOMPARE(probe().rfg_master_ID(), -1);
        window.load_rfg(0);
        QCOMPARE(series(0)->count(), 499);
        QCOMPARE(probe().cursor_step_lbl().text(), QStringLiteral("cursor step = 0.13 m"));
        window.cursorSetup_slot(3);
        input::wheel(probe().cursor_dial(), 120);
        QCOMPARE(probe().cursor_dial()->trueValue, 4);
    }

    void emptyMasterStillDeterminesDifferenceAndStep()
    {
        // Slot 6 keeps the mark of the master, and empty slots keep its step of 256 counts.
        QVector<TraceBuilder> traces = levelTraces(6);
        traces[5].minstep(320.0F);
        MainWindow &window = openOn(traces, 5);
        QVERIFY(chooseFiles(*fixture, { fixture->trace(QStringLiteral("fine.tdr"), rising()) }));
        QCOMPARE(probe().rfg_master_ID(), 5);
        QCOMPARE(probe().rfg_read_index(), 1);
        probe().rfg_buttons()->button(0)->click();
        input::click(probe().difference_button());

        QCOMPARE(series(0)->count(), 1);
        QCOMPARE(series(0)->at(0), QPointF(0.0, 6.0));
        QCOMPARE(probe().cursor_step_lbl().text(), QStringLiteral("cursor step = 32.00 m"));
        window.cursorSetup_slot(3);
        QCOMPARE(probe().cursor_A_pos_Y(), 129);
        input::wheel(probe().cursor_dial(), 120);
        QCOMPARE(probe().cursor_dial()->trueValue, 259);
        QCOMPARE(probe().cursor_A_pos(), 256);
        double dialogStep = 0.0;
        answerEntry(probe().curA_button(),
                    [&](QInputDialog &dialog) { dialogStep = dialog.doubleStep(); });
        QCOMPARE(qRound(dialogStep), 32);
    }

    void masterThatWasNeverLoadedIsARecordOfZeros()
    {
        MainWindow &window = openOn({ rising(), rising().minstep(5.0F) }, 4);
        QCOMPARE(probe().rfg_master_ID(), 4);
        window.setDiff_flag(true);
        QCOMPARE(series(0)->count(), 499);
        QCOMPARE(series(0)->at(20), QPointF(10.0, -10.0));
        QCOMPARE(series(1)->count(), 2 * 63 - 1);
        QCOMPARE(series(1)->at(20), QPointF(40.0, -10.0));
    }

    void removingTheMasterDrawsTheDifferencesFromTheNext()
    {
        MainWindow &window = openDifference({ levelTrace(1), levelTrace(20), levelTrace(50) });
        window.remove_Selected_RFG(0);
        QCOMPARE(series(1)->at(0).y(), 20.0);
        QCOMPARE(series(2)->at(0).y(), -30.0);
    }

    // ---- Which traces are drawn again ----

    void shiftOfTheMasterRedrawsEveryDifference()
    {
        MainWindow &window = openDifference({ rising(), rising(), rising() });
        window.V_Offset_change(7);
        for (int slot = 0; slot < 3; ++slot)
            QCOMPARE(series(slot)->at(0).y(), 7.0);
        window.H_Offset_change(100);
        QCOMPARE(series(1)->count(), 2 * 150 - 1);
        // In normal mode only the master is drawn.
        input::click(probe().difference_button());
        probe().rfg_series()[1]->clear();
        window.V_Offset_change(9);
        QCOMPARE(series(0)->at(0).y(), 9.0);
        QCOMPARE(series(1)->count(), 0);
    }

    void shiftOfAnotherTraceRedrawsOnlyThatTrace()
    {
        MainWindow &window = openDifference({ rising(), rising(), rising() });
        probe().rfg_buttons()->button(1)->click();
        probe().rfg_series()[0]->clear();
        probe().rfg_series()[2]->clear();
        window.V_Offset_change(7);
        QCOMPARE(series(1)->at(0).y(), -7.0);
        QCOMPARE(series(0)->count(), 0);
        QCOMPARE(series(2)->count(), 0);
    }

    void loadRedrawsOneTraceAndLoadIntoTheMasterRedrawsAll()
    {
        MainWindow &window = openDifference({ rising(), rising(), rising() });
        const QString other = fixture->trace(QStringLiteral("other.tdr"), levelTrace(40));
        window.add_Selected_RFG(other, 1);
        QCOMPARE(series(1)->at(0).y(), -40.0);
        QCOMPARE(series(2)->at(0).y(), 0.0);
        window.add_Selected_RFG(other, 0);
        QCOMPARE(series(0)->at(0).y(), 40.0);
        QCOMPARE(series(1)->at(0).y(), 0.0);
        QCOMPARE(series(2)->at(0).y(), 40.0);
    }
};

QTEST_MAIN(TestDifference)
#include "tst_difference.moc"
