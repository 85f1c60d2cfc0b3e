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
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QTest::mouseClick(probe().selected_rfg()[1], Qt::LeftButton);
    }
    void verifyLines(const QLineSeries *line, const QLineSeries *level, int column, int height)
    {
        QCOMPARE(qtcompat::pointsOf(*line),
                 (QVector<QPointF>{ QPointF(column, -128), QPointF(column, 128) }));
        QCOMPARE(qtcompat::pointsOf(*level),
                 (QVector<QPointF>{ QPointF(0, height), QPointF(64000, height) }));
    }

private slots:
    void columnsAreClampedThenSnapped_data()
    {
        QTest::addColumn<float>("minstep");
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("dial");
        QTest::newRow("below the axis") << 1.25F << -5 << 0 << 0;
        QTest::newRow("beyond the axis") << 1.25F << 64001 << 64000 << 64000;
        QTest::newRow("beyond it, snapped down") << 3.75F << 70000 << 63999 << 64000;
        QTest::newRow("the dial keeps the unsnapped column") << 5.0F << 10 << 8 << 10;
        QTest::newRow("on a sample") << 5.0F << 12 << 12 << 12;
        QTest::newRow("step 0 counts as one") << 1.0F << 13 << 13 << 13;
    }

    void columnsAreClampedThenSnapped()
    {
        QFETCH(const float, minstep);
        QFETCH(const int, column);
        QFETCH(const int, position);
        QFETCH(const int, dial);
        openOn({ countingTrace().minstep(minstep) });
        window().cursorSetup_slot(column);
        QCOMPARE(probe().cursor_A_pos(), position);
        QCOMPARE(probe().cursor_dial()->trueValue, dial);
    }

    void theLevelIsOffsetPlusSample_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("level");
        // Two counts to a sample, three samples late, shifted by 4 samples to the right and 10 up.
        QTest::newRow("before the first sample") << 12 << 129;
        QTest::newRow("first sample") << 14 << 10;
        QTest::newRow("some sample") << 30 << 18;
        QTest::newRow("last sample") << 14 + 2 * 249 << 10 + 121;
        QTest::newRow("past the last sample") << 14 + 2 * 250 << 129;
    }

    void theLevelIsOffsetPlusSample()
    {
        QFETCH(const int, column);
        QFETCH(const int, level);
        openOn({ countingTrace().minstep(2.5F).delay(3).shiftX(4).shiftY(10) });
        window().cursorSetup_slot(column);
        QCOMPARE(probe().cursor_A_pos(), column);
        QCOMPARE(probe().cursor_A_pos_Y(), level);
        verifyLines(probe().cursor_A(), probe().cursor_A_add(), column, level);
        const QString text = level == 129 ? QString() : QString::number(level);
        QVERIFY(probe().curA_button()->text().endsWith(QStringLiteral("\n y = ") + text));
    }

    void lessThanOneStepLeftOfTheFirstSampleStillReadsIt()
    {
        openOn({ countingTrace().minstep(5.0F).samples(33) });
        probe().rfg_DATA()[0].scroll = 7;
        window().cursorSetup_slot(4);
        QCOMPARE(probe().cursor_A_pos_Y(), 33);
        window().cursorSetup_slot(0);
        QCOMPARE(probe().cursor_A_pos_Y(), 129);
    }

    void cursorBHasItsOwnStateAndLines()
    {
        openOn({ countingTrace() });
        window().cursorSetup_slot(20);
        QTest::mouseClick(probe().curB_button(), Qt::LeftButton);
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
        QTest::mouseClick(probe().selected_rfg()[4], Qt::LeftButton);
        window().cursorSetup_slot(10);
        QCOMPARE(probe().cursor_A_pos(), 8);
        QCOMPARE(probe().cursor_A_pos_Y(), 129);
        QCOMPARE(probe().curA_button()->text(), QStringLiteral("Cursor A\n x = 1.00 m\n y = "));
    }

    void underADifferenceThereIsNeverALevel()
    {
        openDifference();
        for (const int column : { 0, 10, 64, 400 }) {
            window().cursorSetup_slot(column);
            QCOMPARE(probe().cursor_A_pos_Y(), 129);
            QCOMPARE(probe().cursor_A_add()->at(0).y(), 129.0);
        }
    }

    void underADifferenceTheMastersDelayHoldsTheCursorBack()
    {
        openDifference();
        window().cursorSetup_slot(10);
        QCOMPARE(probe().cursor_A_pos(), 7);
        QCOMPARE(probe().cursor_dial()->trueValue, 10);
        window().cursorSetup_slot(15);
        QCOMPARE(probe().cursor_A_pos(), 11);
        window().cursorSetup_slot(2);
        QCOMPARE(probe().cursor_A_pos(), 0);
    }

    void theMasterKeepsItsLevelInDifferenceMode()
    {
        openDifference();
        QTest::mouseClick(probe().selected_rfg()[0], Qt::LeftButton);
        window().cursorSetup_slot(20);
        QCOMPARE(probe().cursor_A_pos(), 20);
        QCOMPARE(probe().cursor_A_pos_Y(), 7);
    }

    void aMasterFarAwayIsNeverReadOutOfItsSamples()
    {
        openOn({ countingTrace().delay(0xFFFFFFFF).shiftX(0x80000000),
                 countingTrace().shiftX(0x7FFFFFFF) });
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QTest::mouseClick(probe().selected_rfg()[1], Qt::LeftButton);
        window().cursorSetup_slot(64000);
        QCOMPARE(probe().cursor_A_pos(), 0);
        QCOMPARE(probe().cursor_A_pos_Y(), 129);
    }

    void differenceModeWithoutAMasterReadsTheTraceItself()
    {
        openOn({ countingTrace(), countingTrace() });
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QTest::mouseClick(probe().selected_rfg()[1], Qt::LeftButton);
        probe().rfg_master_ID() = -1;
        window().cursorSetup_slot(40);
        QCOMPARE(probe().cursor_A_pos_Y(), 40);
    }

    void withoutAnActiveCursorNothingMoves()
    {
        openOn({ countingTrace() });
        window().cursorSetup_slot(30);
        probe().cursor_dial()->ring_color = Qt::red;
        window().cursorSelect_slot(0);
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

    void aCursorThatDoesNotExistMeansNone()
    {
        openOn({ countingTrace() });
        window().cursorSelect_slot(7);
        QCOMPARE(int(probe().Cur_flag()), int(MainWindow::DELTA));
        QCOMPARE(int(probe().Cur_flag_true()), int(MainWindow::DELTA));
    }

    void theOtherCursorIsRecomputedFirst()
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
        const auto series = p.Plot_Chart()->series();
        QCOMPARE(series[13], p.cursor_A_add());
        QCOMPARE(series[14], p.cursor_A());
        QCOMPARE(series[15], p.cursor_B_add());
        QCOMPARE(series[16], p.cursor_B());
        QCOMPARE(int(p.Cur_flag()), int(MainWindow::CURSOR_B));
        QCOMPARE(p.cursor_dial()->trueValue, 60);
        QCOMPARE(p.cursor_dial()->titleText, QStringLiteral("Cursor B\n7.50 m"));
        QCOMPARE(p.curA_button()->text(), QStringLiteral("Cursor A\n x = 3.75 m\n y = 35"));
    }

    void aHandTurnsTheCursorRoundAndRound()
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
