// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "curarrow.h"
#include "input_events.h"
#include "interfacebutton.h"
#include "invariants.h"
#include "legendbutton.h"
#include "window_actions.h"
#include "windowtest.h"

#include <QAction>
#include <QGraphicsScene>
#include <QtTest>

using QtCharts::QAbstractSeries;
using QtCharts::QLineSeries;

/// The cursors: position, level, lines and markers. tst_trace_points tests the column and the level
/// on a trace.
class TestCursors : public WindowTest
{
    Q_OBJECT

private:
    /// Column and level of cursor A after it was set to \a column.
    QPoint cursorAt(int column)
    {
        window().cursorSetup_slot(column);
        return { probe().cursor_A_pos(), probe().cursor_A_pos_Y() };
    }

private slots:
    void cursorSnapsToSamplesAndTheDialKeepsTheColumn()
    {
        openOn({ countingTrace().minstep(5.0F) });
        QCOMPARE(cursorAt(10).x(), 8);
        QCOMPARE(probe().cursor_dial()->trueValue, 10);
        QCOMPARE(cursorAt(70000).x(), 64000);
        QCOMPARE(probe().cursor_dial()->trueValue, 64000);
        QCOMPARE(cursorAt(-5).x(), 0);
        QCOMPARE(probe().cursor_dial()->trueValue, 0);
        input::click(probe().selected_rfg()[4]); // empty
        QCOMPARE(cursorAt(10), QPoint(8, 129));
        QCOMPARE(probe().curA_button()->text(), QStringLiteral("Cursor A\n x = 1.00 m\n y = "));
    }

    // The trace has two counts per sample and a delay of three samples, and is shifted by 4 samples
    // to the right and 10 levels up.
    void cursorShowsItsColumnAndLevel()
    {
        openOn({ countingTrace().minstep(2.5F).delay(3).shiftX(4).shiftY(10) });
        QCOMPARE(cursorAt(30), QPoint(30, 18));
        const auto points = [](const QLineSeries *line) { return qtcompat::pointsOf(*line); };
        QCOMPARE(points(probe().cursor_A()), (QVector<QPointF>{ { 30, -128 }, { 30, 128 } }));
        QCOMPARE(points(probe().cursor_A_add()), (QVector<QPointF>{ { 0, 18 }, { 64000, 18 } }));
        QCOMPARE(probe().curA_button()->text(), QStringLiteral("Cursor A\n x = 3.75 m\n y = 18"));
        QCOMPARE(brokenInvariants(window()), QStringList());
        QCOMPARE(cursorAt(12), QPoint(12, 129)); // before the first sample
        QCOMPARE(brokenInvariants(window()), QStringList());
    }

    void cursorBHasItsOwnStateAndLines()
    {
        openOn({ countingTrace() });
        QCOMPARE(cursorAt(20), QPoint(20, 20));
        input::click(probe().curB_button());
        QCOMPARE(cursorAt(50), QPoint(20, 20));
        QCOMPARE(probe().cursor_B_pos(), 50);
        QCOMPARE(probe().cursor_B_pos_Y(), 50);
        // Lines, readouts, and the caption of the dial.
        QCOMPARE(brokenInvariants(window()), QStringList());
    }

    // The master has two counts per sample and a delay of 3 samples, the other trace four counts.
    void differenceHasNoLevelAndLimitsTheCursor()
    {
        openOn({ countingTrace().minstep(2.5F).delay(3), countingTrace().minstep(5.0F) });
        input::click(probe().difference_button());
        input::click(probe().selected_rfg()[1]);
        QCOMPARE(cursorAt(10), QPoint(7, 129));
        QCOMPARE(probe().cursor_A_add()->at(0).y(), 129.0);
        QCOMPARE(probe().cursor_dial()->trueValue, 10);
        QCOMPARE(cursorAt(2), QPoint(0, 129));
        // The master itself is drawn as it is.
        input::click(probe().selected_rfg()[0]);
        QCOMPARE(cursorAt(20), QPoint(20, 7));
        // Without a master each trace is drawn as it is.
        input::click(probe().selected_rfg()[1]);
        probe().rfg_master_ID() = -1;
        QCOMPARE(cursorAt(40), QPoint(40, 10));
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

    void otherCursorIsUpdatedFirst()
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
        const QList<QAbstractSeries *> raised{ p.cursor_A_add(), p.cursor_A(), p.cursor_B_add(),
                                               p.cursor_B() };
        QCOMPARE(p.Plot_Chart()->series().mid(13), raised);
        QCOMPARE(int(p.Cur_flag()), int(MainWindow::CURSOR_B));
        QCOMPARE(p.cursor_dial()->trueValue, 60);
        QCOMPARE(brokenInvariants(window()), QStringList());
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

    // ---- On the chart ----

    void activeCursorIsYellowAndOnTop()
    {
        openOn({ countingTrace() });
        const MainWindowProbe &p = probe();
        const auto verify = [](bool active, const QLineSeries *line, const QLineSeries *level,
                               const CurArrow *marker) {
            const QColor ink = active ? Qt::yellow : Qt::gray;
            QCOMPARE(line->pen().color(), ink);
            QCOMPARE(line->pen().width(), 2);
            QCOMPARE(line->pen().style(), Qt::SolidLine);
            QCOMPARE(level->pen().color(), ink);
            QCOMPARE(level->pen().width(), 1);
            QCOMPARE(level->pen().style(), Qt::DashLine);
            QCOMPARE(marker->color, ink);
            QCOMPARE(marker->br_style, active ? Qt::SolidPattern : Qt::NoBrush);
        };
        window().cursorSetup_slot(30);
        for (const bool isA : { false, true }) {
            window().cursorSelect_slot(isA ? 1 : 2);
            if (!isA)
                window().cursorSetup_slot(60);
            verify(isA, p.cursor_A(), p.cursor_A_add(), p.cur_arrowA());
            verify(!isA, p.cursor_B(), p.cursor_B_add(), p.cur_arrowB());
            const auto series = p.Plot_Chart()->series();
            QCOMPARE(series[16], isA ? p.cursor_A() : p.cursor_B());
            QCOMPARE(series[15], isA ? p.cursor_A_add() : p.cursor_B_add());
            const auto items = stacked(*p.Plot_Scene());
            const auto placeOfA = items.indexOf(p.cur_arrowA()->group);
            const auto placeOfB = items.indexOf(p.cur_arrowB()->group);
            QVERIFY(placeOfA >= 0 && placeOfB >= 0);
            QCOMPARE(placeOfA > placeOfB, isA);
            QCOMPARE(p.cursor_dial()->trueValue, isA ? 30 : 60);
        }
    }

    void cursorOutsideTheViewHasNoMarker()
    {
        openOn({ countingTrace() });
        const CurArrow *marker = probe().cur_arrowA();
        window().cursorSetup_slot(250);
        QVERIFY(window().isCursor_visible(1));
        QVERIFY(marker->cur_lbl.isVisible());
        QCOMPARE(brokenInvariants(window()), QStringList());
        window().cursorSetup_slot(251);
        QVERIFY(!window().isCursor_visible(1));
        QVERIFY(!marker->cur_lbl.isVisible());
        QCOMPARE(brokenInvariants(window()), QStringList());
        for (const int left : { 1, 251 }) {
            window().setPlotRange(left, left + 250);
            QVERIFY(!window().isCursor_visible(2));
            QCOMPARE(brokenInvariants(window()), QStringList());
        }
    }

    void markersFollowCursorAndRange()
    {
        openOn({ countingTrace() });
        const CurArrow *a = probe().cur_arrowA();
        window().cursorSetup_slot(125);
        const double expected = 125 * plot().width() / 250 + int(plot().left() + 1.0);
        QVERIFY(qAbs(a->cur_arrow1.x() - expected) < 0.01);
        window().cursorSetup_slot(250);
        window().setPlotRange(100, 600);
        QCOMPARE(probe().scrollfactorX(), 100);
        QCOMPARE(a->XRes, 500);
        QCOMPARE(probe().cur_arrowB()->XRes, 500);
        QVERIFY(qAbs(double{ a->pos } - a->pos0 - a->field.width() * 150.0 / 500.0) < 0.01);
    }
};

QTEST_MAIN(TestCursors)
#include "tst_cursors.moc"
