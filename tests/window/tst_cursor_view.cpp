// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "curarrow.h"
#include "windowactions.h"
#include "windowtest.h"

#include <QAction>
#include <QGraphicsScene>
#include <QPushButton>
#include <QtTest>

using QtCharts::QLineSeries;

class TestCursorView : public WindowTest
{
    Q_OBJECT

private slots:
    void theActiveCursorIsYellowAndOnTop_data()
    {
        QTest::addColumn<bool>("isA");
        QTest::newRow("A") << true;
        QTest::newRow("B") << false;
    }

    void theActiveCursorIsYellowAndOnTop()
    {
        QFETCH(const bool, isA);
        openOn({ countingTrace() });
        window().cursorSetup_slot(30);
        window().cursorSelect_slot(isA ? 2 : 1);
        window().cursorSetup_slot(60);
        window().cursorSelect_slot(isA ? 1 : 2);
        const MainWindowProbe &p = probe();
        const auto verify = [&](bool active, const QLineSeries *line, const QLineSeries *level,
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
        verify(isA, p.cursor_A(), p.cursor_A_add(), p.cur_arrowA());
        verify(!isA, p.cursor_B(), p.cursor_B_add(), p.cur_arrowB());
        const auto series = p.Plot_Chart()->series();
        QCOMPARE(series.size(), 17);
        QCOMPARE(series[16], isA ? p.cursor_A() : p.cursor_B());
        QCOMPARE(series[15], isA ? p.cursor_A_add() : p.cursor_B_add());
        const auto items = stacked(*p.Plot_Scene());
        const auto above = items.indexOf(isA ? p.cur_arrowA()->group : p.cur_arrowB()->group);
        const auto below = items.indexOf(isA ? p.cur_arrowB()->group : p.cur_arrowA()->group);
        QVERIFY(above > below && below >= 0);
        QCOMPARE(p.cursor_dial()->trueValue, isA ? p.cursor_A_pos() : p.cursor_B_pos());
        QCOMPARE((isA ? p.curA_action() : p.curB_action())->isChecked(), true);
        QVERIFY((isA ? p.curA_nav_button() : p.curB_nav_button())->isChecked());
    }

    void aCursorOutsideTheViewHasNoMarker()
    {
        openOn({ countingTrace() });
        const CurArrow *marker = probe().cur_arrowA();
        window().cursorSetup_slot(250);
        QVERIFY(window().isCursor_visible(1));
        QVERIFY(marker->cur_arrow1.isVisible() && marker->cur_lbl.isVisible());
        window().cursorSetup_slot(251);
        QVERIFY(!window().isCursor_visible(1));
        QVERIFY(!marker->cur_arrow1.isVisible() && !marker->cur_arrow2.isVisible()
                && !marker->cur_lbl.isVisible());
        window().setPlotRange(1, 251);
        QVERIFY(marker->cur_arrow1.isVisible());
        QVERIFY(!window().isCursor_visible(2));
        window().setPlotRange(251, 501);
        QVERIFY(marker->cur_arrow1.isVisible());
    }

    void theMarkerFollowsItsCursor()
    {
        openOn({ countingTrace() });
        const QRectF plot
            = probe().Plot_Chart()->mapToScene(probe().Plot_Chart()->plotArea()).boundingRect();
        window().cursorSetup_slot(125);
        const double expected = 125 * plot.width() / 250 + int(plot.left() + 1.0);
        QVERIFY(qAbs(probe().cur_arrowA()->cur_arrow1.x() - expected) < 0.01);
        QCOMPARE(probe().cur_arrowA()->cur_arrow1.y(), plot.top());
        QCOMPARE(probe().cur_arrowA()->cur_arrow2.y(), plot.bottom());
        QVERIFY(probe().cur_arrowA()->cur_lbl.x() > expected);
        window().cursorSetup_slot(250);
        QVERIFY(probe().cur_arrowA()->cur_lbl.x() < probe().cur_arrowA()->cur_arrow1.x());
    }

    void goingToACursorCentresTheView_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("min");
        QTest::newRow("left end") << 10 << 0;
        QTest::newRow("half a view from the left") << 125 << 0;
        QTest::newRow("just past it") << 126 << 1;
        QTest::newRow("middle") << 3000 << 2875;
        QTest::newRow("half a view from the right") << 63875 << 63750;
        QTest::newRow("right end") << 64000 << 63750;
    }

    void goingToACursorCentresTheView()
    {
        QFETCH(const int, column);
        QFETCH(const int, min);
        openOn({ countingTrace() });
        window().cursorSetup_slot(column);
        window().gotoCursor(1);
        QCOMPARE(probe().cust_axisX()->min(), double(min));
        QCOMPARE(probe().cust_axisX()->max(), double(min + 250));
        window().gotoCursor(0);
        QCOMPARE(probe().cust_axisX()->min(), 0.0);
    }

    void theStepLabelStandsInTheRightUpperCorner()
    {
        openOn({ countingTrace() });
        QCOMPARE(probe().cursor_step_lbl().text(), QStringLiteral("cursor step = 0.13 m"));
        for (const double factor : { 1.49896229, 1.0 }) {
            window().KU_change(factor);
            const QRectF box = probe().cursor_step_lbl().boundingRect();
            const QRectF plot
                = probe().Plot_Chart()->mapToScene(probe().Plot_Chart()->plotArea()).boundingRect();
            QCOMPARE(probe().cursor_step_lbl().pos(),
                     QPointF(plot.right() - int(box.width()) - int(box.height()) / 2, plot.top()));
        }
    }
};

QTEST_MAIN(TestCursorView)
#include "tst_cursor_view.moc"
