// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "inputevents.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "windowtest.h"

#include <QLabel>
#include <QtTest>

using QtCharts::QLineSeries;

class TestCursors : public WindowTest
{
    Q_OBJECT

private:
    /// Difference mode with slot 2 selected: the master every two counts and 3 samples late, the
    /// other every four.
    void openDifference()
    {
        openOn({ countingTrace().minstep(2.5F).delay(3), countingTrace().minstep(5.0F) });
        input::click(probe().difference_button());
        input::click(probe().selected_rfg()[1]);
    }

    /// Column and level of cursor A after it was set to \a column.
    QPoint cursorAt(int column)
    {
        window().cursorSetup_slot(column);
        return { probe().cursor_A_pos(), probe().cursor_A_pos_Y() };
    }

    static void verifyLines(const QLineSeries *line, const QLineSeries *level, int column,
                            int height)
    {
        QCOMPARE(qtcompat::pointsOf(*line),
                 (QVector<QPointF>{ QPointF(column, -128), QPointF(column, 128) }));
        QCOMPARE(qtcompat::pointsOf(*level),
                 (QVector<QPointF>{ QPointF(0, height), QPointF(64000, height) }));
    }

private slots:
    void aCursorSnapsToSamplesAndTheDialKeepsTheColumn()
    {
        openOn({ countingTrace().minstep(5.0F) });
        QCOMPARE(cursorAt(10).x(), 8);
        QCOMPARE(probe().cursor_dial()->trueValue, 10);
        QCOMPARE(cursorAt(70000).x(), 64000);
        QCOMPARE(probe().cursor_dial()->trueValue, 64000);
        QCOMPARE(cursorAt(-5).x(), 0);
        QCOMPARE(probe().cursor_dial()->trueValue, 0);
        openOn({ countingTrace().minstep(1.0F) }); // step 0 counts as one
        QCOMPARE(cursorAt(13).x(), 13);
    }

    // Two counts to a sample, three samples late, shifted by 4 samples to the right and 10 up.
    void aCursorShowsItsColumnAndLevel()
    {
        openOn({ countingTrace().minstep(2.5F).delay(3).shiftX(4).shiftY(10) });
        QCOMPARE(cursorAt(30), QPoint(30, 18));
        verifyLines(probe().cursor_A(), probe().cursor_A_add(), 30, 18);
        QCOMPARE(probe().curA_button()->text(), QStringLiteral("Cursor A\n x = 3.75 m\n y = 18"));
        QCOMPARE(cursorAt(12), QPoint(12, 129)); // before the first sample
        verifyLines(probe().cursor_A(), probe().cursor_A_add(), 12, 129);
        QCOMPARE(probe().curA_button()->text(), QStringLiteral("Cursor A\n x = 1.50 m\n y = "));
        QCOMPARE(cursorAt(14 + 2 * 249).y(), 10 + 121);
        QCOMPARE(cursorAt(14 + 2 * 250).y(), 129);
    }

    void lessThanOneStepLeftOfTheFirstSampleReadsIt()
    {
        openOn({ countingTrace().minstep(5.0F).samples(33) });
        probe().rfg_DATA()[0].scroll = 7;
        QCOMPARE(cursorAt(4).y(), 33);
        QCOMPARE(cursorAt(0).y(), 129);
    }

    void cursorBHasItsOwnStateAndLines()
    {
        openOn({ countingTrace() });
        window().cursorSetup_slot(20);
        input::click(probe().curB_button());
        window().cursorSetup_slot(50);
        QCOMPARE(probe().cursor_A_pos(), 20);
        QCOMPARE(probe().cursor_A_pos_Y(), 20);
        QCOMPARE(probe().cursor_B_pos(), 50);
        QCOMPARE(probe().cursor_B_pos_Y(), 50);
        verifyLines(probe().cursor_A(), probe().cursor_A_add(), 20, 20);
        verifyLines(probe().cursor_B(), probe().cursor_B_add(), 50, 50);
        QCOMPARE(probe().curB_button()->text(), QStringLiteral("Cursor B\n x = 6.25 m\n y = 50"));
        QCOMPARE(probe().curA_button()->text(), QStringLiteral("Cursor A\n x = 2.50 m\n y = 20"));
        QCOMPARE(probe().delta_lbl()->text(), QStringLiteral("Δ = 3.75 m"));
        QCOMPARE(probe().cursor_dial()->titleText, QStringLiteral("Cursor B\n6.25 m"));
    }

    void anEmptySlotHasNoLevel()
    {
        openOn({ countingTrace().minstep(5.0F) });
        input::click(probe().selected_rfg()[4]);
        QCOMPARE(cursorAt(10), QPoint(8, 129));
        QCOMPARE(probe().curA_button()->text(), QStringLiteral("Cursor A\n x = 1.00 m\n y = "));
    }

    void aDifferenceHasNoLevelAndLimitsTheCursor()
    {
        openDifference();
        QCOMPARE(cursorAt(10), QPoint(7, 129));
        QCOMPARE(probe().cursor_A_add()->at(0).y(), 129.0);
        QCOMPARE(probe().cursor_dial()->trueValue, 10);
        QCOMPARE(cursorAt(15), QPoint(11, 129));
        QCOMPARE(cursorAt(2), QPoint(0, 129));
        // The master itself is drawn as it is.
        input::click(probe().selected_rfg()[0]);
        QCOMPARE(cursorAt(20), QPoint(20, 7));
    }

    void aMasterFarAwayIsNotReadOutOfItsSamples()
    {
        openOn({ countingTrace().delay(0xFFFFFFFF).shiftX(0x80000000),
                 countingTrace().shiftX(0x7FFFFFFF) });
        input::click(probe().difference_button());
        input::click(probe().selected_rfg()[1]);
        QCOMPARE(cursorAt(64000), QPoint(0, 129));
    }

    void differenceModeWithoutAMasterReadsTheTraceItself()
    {
        openOn({ countingTrace(), countingTrace() });
        input::click(probe().difference_button());
        input::click(probe().selected_rfg()[1]);
        probe().rfg_master_ID() = -1;
        QCOMPARE(cursorAt(40).y(), 40);
    }

    void withoutAnActiveCursorNothingMoves()
    {
        openOn({ countingTrace() });
        window().cursorSetup_slot(30);
        probe().cursor_dial()->ring_color = Qt::red;
        window().cursorSelect_slot(7); // not a cursor
        QCOMPARE(int(probe().Cur_flag()), int(MainWindow::DELTA));
        QCOMPARE(int(probe().Cur_flag_true()), int(MainWindow::DELTA));
        QCOMPARE(probe().cursor_dial()->titleText, QStringLiteral("Δ"));
        QCOMPARE(probe().cursor_dial()->ring_color, QColor(Qt::black));
        QCOMPARE(probe().cursor_A()->pen().color(), QColor(Qt::gray));
        QCOMPARE(probe().cursor_B()->pen().color(), QColor(Qt::gray));
        emit probe().cursor_dial()->trueValueChanged(99);
        window().cursors_update();
        QCOMPARE(probe().cursor_A_pos(), 30);
        QCOMPARE(probe().cursor_B_pos(), 0);
        QCOMPARE(probe().cursor_dial()->titleText, QStringLiteral("Δ"));
    }

    void theOtherCursorIsUpdatedFirst()
    {
        openOn({ countingTrace() });
        window().cursorSetup_slot(30);
        window().cursorSelect_slot(2);
        window().cursorSetup_slot(60);
        probe().rfg_DATA()[0].offset = 5;
        window().cursors_update();
        const MainWindowProbe &p = probe();
        QCOMPARE(p.cursor_A_pos_Y(), 35);
        QCOMPARE(p.cursor_B_pos_Y(), 65);
        const QList<QtCharts::QAbstractSeries *> raised{ p.cursor_A_add(), p.cursor_A(),
                                                         p.cursor_B_add(), p.cursor_B() };
        QCOMPARE(p.Plot_Chart()->series().mid(13), raised);
        QCOMPARE(int(p.Cur_flag()), int(MainWindow::CURSOR_B));
        QCOMPARE(p.cursor_dial()->trueValue, 60);
        QCOMPARE(p.cursor_dial()->titleText, QStringLiteral("Cursor B\n7.50 m"));
        QCOMPARE(p.curA_button()->text(), QStringLiteral("Cursor A\n x = 3.75 m\n y = 35"));
    }

    void theDialTurnsTheCursorRoundAndRound()
    {
        openOn({ countingTrace() });
        input::turn(probe().cursor_dial(), 360);
        QCOMPARE(probe().cursor_A_pos(), 100);
        input::turn(probe().cursor_dial(), 720);
        QCOMPARE(probe().cursor_A_pos(), 300);
        input::turn(probe().cursor_dial(), -360);
        QCOMPARE(probe().cursor_A_pos(), 200);
        input::turn(probe().cursor_dial(), -1080);
        QCOMPARE(probe().cursor_A_pos(), 0);
        QCOMPARE(probe().cursor_B_pos(), 0);
    }

    void slowTurnsAddUpToASample()
    {
        openOn({ countingTrace().minstep(80.0F) });
        input::turn(probe().cursor_dial(), 120);
        QCOMPARE(probe().cursor_A_pos(), 0);
        const int kept = probe().cursor_dial()->trueValue;
        QVERIFY(kept > 25 && kept < 40);
        input::turn(probe().cursor_dial(), 120);
        QCOMPARE(probe().cursor_A_pos(), 64);
    }
};

QTEST_MAIN(TestCursors)
#include "tst_cursors.moc"
