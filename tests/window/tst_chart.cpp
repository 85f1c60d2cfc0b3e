// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "input_events.h"
#include "legendbutton.h"
#include "window_actions.h"
#include "windowtest.h"

#include <QAction>
#include <QGraphicsScene>
#include <QPushButton>
#include <QSignalSpy>
#include <QtCharts/QLegend>
#include <QtTest>

QT_CHARTS_USE_NAMESPACE

namespace {

struct Pair
{
    const QGraphicsLineItem *line;
    const QGraphicsSimpleTextItem *label;
};

QVector<Pair> allPairs(const MainWindowProbe &probe)
{
    QVector<Pair> pairs;
    for (int i = 0; i < 20; ++i)
        pairs.append({ &probe.axis_lines()[i], &probe.axis_lbl()[i] });
    for (int i = 0; i < 2; ++i)
        pairs.append({ &probe.axis_0_lines()[i], &probe.axis_0_lbl()[i] });
    return pairs;
}

/// Texts of the interior lines that are shown; they must be the first ones, each with its label.
QStringList interior(const MainWindowProbe &probe)
{
    QStringList texts;
    bool isBehindTheLast = false;
    for (int i = 0; i < 20; ++i) {
        const bool isShown = probe.axis_lines()[i].isVisible();
        if (isShown != probe.axis_lbl()[i].isVisible() || (isShown && isBehindTheLast))
            return { QStringLiteral("line %1").arg(i) };
        isBehindTheLast = !isShown;
        if (isShown)
            texts.append(probe.axis_lbl()[i].text());
    }
    return texts;
}

bool edgeShown(const MainWindowProbe &probe, int edge)
{
    return probe.axis_0_lines()[edge].isVisible() && probe.axis_0_lbl()[edge].isVisible();
}

} // namespace

/// The chart, its series and its grid. tst_trace_points tests the points of a trace, tst_axis_grid
/// the lines of a grid.
class TestChart : public WindowTest
{
    Q_OBJECT

private slots:
    void seventeenSeriesAreInTheirOrderOnBothAxes()
    {
        openOn({});
        const auto series = probe().Plot_Chart()->series();
        QCOMPARE(series.size(), 17);
        QCOMPARE(series[0], probe().axisX()); // the series that maps pixels to counts
        const QColor colours[] = { QColor(0, 255, 0), QColor(0, 255, 255), QColor(255, 0, 255),
                                   QColor(255, 0, 0), QColor(255, 255, 0), QColor(0, 0, 255) };
        for (int slot = 0; slot < 6; ++slot) {
            QCOMPARE(series[1 + 2 * slot], probe().rfg_series()[slot]);
            QCOMPARE(series[2 + 2 * slot], probe().rfg_series_sp()[slot]);
            for (const QPen &pen :
                 { probe().rfg_series()[slot]->pen(), probe().rfg_series_sp()[slot]->pen() }) {
                QCOMPARE(pen.color(), colours[slot]);
                QCOMPARE(pen.widthF(), 2.0);
            }
            QVERIFY(!probe().rfg_series_sp()[slot]->isVisible());
        }
        for (const QLineSeries *cursor : { probe().cursor_A(), probe().cursor_A_add(),
                                           probe().cursor_B(), probe().cursor_B_add() }) {
            QVERIFY(series.lastIndexOf(const_cast<QLineSeries *>(cursor)) >= 13);
            QCOMPARE(cursor->count(), 2);
        }
        for (QAbstractSeries *one : series) {
            QVERIFY(one->attachedAxes().contains(probe().cust_axisX()));
            QVERIFY(one->attachedAxes().contains(probe().cust_axisY()));
        }
        QCOMPARE(probe().Plot_Chart()->axes().size(), 2);
    }

    void chartHasBaseLineAndAxesAndNoLegend()
    {
        openOn({});
        const QLineSeries *line = probe().axisX();
        QCOMPARE(qtcompat::pointsOf(*line), (QVector<QPointF>{ { 0.0, 0.0 }, { 64000.0, 0.0 } }));
        QCOMPARE(line->pen().color(), QColor(50, 50, 50));
        QCOMPARE(line->pen().width(), 3);
        const QChart *chart = probe().Plot_Chart();
        QCOMPARE(chart->margins(), QMargins(20, 20, 20, 20));
        QVERIFY(!chart->isPlotAreaBackgroundVisible());
        QVERIFY(!chart->isBackgroundVisible());
        QVERIFY(!chart->legend()->isVisible());
        QVERIFY(!chart->legend()->isAttachedToChart());
        QCOMPARE(chart->scene(), probe().Plot_Scene());
        QValueAxis *x = probe().cust_axisX();
        QValueAxis *y = probe().cust_axisY();
        for (QValueAxis *axis : { x, y }) {
            QCOMPARE(axis->linePen().color(), QColor(50, 50, 50));
            QCOMPARE(axis->linePen().width(), 2);
            QCOMPARE(axis->gridLineColor(), QColor(50, 50, 50));
            QCOMPARE(axis->labelFormat(), QStringLiteral("%i"));
            QCOMPARE(axis->titleBrush().color(), QColor(Qt::gray));
            QCOMPARE(axis->labelsColor(), QColor(Qt::gray));
        }
        QCOMPARE(x->tickCount(), 2);
        QCOMPARE(x->labelsFont().pixelSize(), 1);
        QVERIFY(!x->labelsVisible());
        QCOMPARE(y->tickCount(), 9);
        QCOMPARE(y->labelsFont().pixelSize(), 10);
        QVERIFY(y->labelsVisible());
    }

    void hiddenFormKeepsItsOldPoints()
    {
        openOn({ levelTrace(4) });
        const auto levelOf = [](const QXYSeries *series) { return series->at(0).y(); };
        const QLineSeries *steps = probe().rfg_series()[0];
        const QSplineSeries *spline = probe().rfg_series_sp()[0];
        QCOMPARE(spline->count(), 0);
        window().setSmoothFlag(true);
        window().V_Offset_change(10);
        QCOMPARE(levelOf(spline), 14.0);
        QCOMPARE(levelOf(steps), 4.0);
        window().setSmoothFlag(false);
        QCOMPARE(levelOf(steps), 14.0);
        window().V_Offset_change(20);
        QCOMPARE(levelOf(spline), 14.0);
    }

    void visibilityAndSmoothingSelectTheShownSeries()
    {
        openOn({ TraceBuilder(), TraceBuilder(), TraceBuilder() });
        probe().selected_rfg()[1]->visible_action->trigger();
        probe().selected_rfg()[2]->clear_action->trigger();
        for (const bool smooth : { true, false }) {
            input::click(probe().smooth_button());
            QCOMPARE(probe().smooth_rfg_flag(), smooth);
            QCOMPARE(slotsText(), QStringLiteral("Vh...., selected 0, master 0"));
            probe().selected_rfg()[0]->visible_action->trigger();
            QCOMPARE(slotsText(), QStringLiteral("Hh...., selected 0, master 0"));
            probe().selected_rfg()[0]->visible_action->trigger();
            QCOMPARE(slotsText(), QStringLiteral("Vh...., selected 0, master 0"));
            // The cleared slot keeps its points.
            QCOMPARE(probe().rfg_series()[2]->count(), 499);
            QCOMPARE(probe().rfg_series_sp()[2]->count(), 0);
        }
        probe().selected_rfg()[1]->visible_action->trigger();
        QCOMPARE(slotsText(), QStringLiteral("Vv...., selected 0, master 0"));
    }

    void differenceModeColoursTheBackgroundUntilTheNextSheet()
    {
        openOn({ TraceBuilder() });
        const auto background = [this] { return probe().Plot_Scene()->backgroundBrush(); };
        const QBrush normal(QColor(11, 12, 13));
        const QBrush difference(QColor(40, 40, 60));
        QCOMPARE(background(), normal);
        input::click(probe().difference_button());
        QCOMPARE(probe().diff_flag(), MainWindow::DIFF);
        QCOMPARE(background(), difference);
        input::click(probe().difference_button());
        QCOMPARE(probe().diff_flag(), MainWindow::NORMAL);
        QCOMPARE(background(), normal);
        input::click(probe().difference_button());
        window().set_CSS();
        QCOMPARE(background(), normal);
        QCOMPARE(probe().diff_flag(), MainWindow::DIFF);
    }

    void raisedSeriesChangesOnlyItsZOrder()
    {
        openOn({ TraceBuilder(), TraceBuilder() });
        QLineSeries *series = probe().rfg_series()[1];
        series->hide();
        const QPen pen = series->pen();
        const QRectF area = plot();
        const double right = probe().cust_axisX()->max();
        window().seriesUp(series);
        WindowFixture::settle();
        const auto order = probe().Plot_Chart()->series();
        QCOMPARE(order.size(), 17);
        QCOMPARE(order.last(), series);
        QCOMPARE(order.first(), probe().axisX());
        QCOMPARE(series->pen(), pen);
        QVERIFY(!series->isVisible());
        QCOMPARE(series->count(), 499);
        QCOMPARE(plot(), area);
        QCOMPARE(probe().cust_axisX()->max(), right);
        QCOMPARE(series->attachedAxes().size(), 2);
    }

    void updateSignalIsNeverEmitted()
    {
        openOn({ TraceBuilder(), TraceBuilder() });
        const QSignalSpy spy(&window(), &MainWindow::rfg_update);
        window().add_Selected_RFG(fixture->path(QStringLiteral("t1.tdr")), 4);
        window().setSmoothFlag(true);
        window().setDiff_flag(true);
        window().setMasterID(1);
        window().rfgSelect_slot(1);
        window().V_Offset_change(4);
        window().reset_slot();
        QVERIFY(spy.isEmpty());
    }

    // ---- Grid ----

    void gridAndTitleAreInTheSceneUnderTheTraces()
    {
        fixture->open();
        const auto stack = stacked(*probe().Plot_Scene());
        const auto chart = stack.indexOf(probe().Plot_Chart());
        QVERIFY(chart >= 0);
        const auto pairs = allPairs(probe());
        for (const Pair &pair : pairs) {
            QCOMPARE(pair.label->scene(), probe().Plot_Scene());
            const auto at = stack.indexOf(const_cast<QGraphicsLineItem *>(pair.line));
            QVERIFY(at >= 0 && at < chart);
            QCOMPARE(pair.label->brush(), probe().cust_axisX()->labelsBrush());
            QCOMPARE(pair.line->pen(), probe().cust_axisX()->gridLinePen());
        }
        for (const QGraphicsSimpleTextItem *text :
             { &probe().chart_title(), &probe().cursor_step_lbl() }) {
            QCOMPARE(text->scene(), probe().Plot_Scene());
            QCOMPARE(text->brush(), QBrush(Qt::gray));
        }
        QVERIFY(probe().chart_title().font().bold());
    }

    void gridFollowsTheShorteningFactor()
    {
        fixture->open();
        QCOMPARE(interior(probe()).size(), 12);
        QCOMPARE(interior(probe()).last(), QStringLiteral("30.0"));
        QVERIFY(edgeShown(probe(), 0));
        QCOMPARE(probe().axis_0_lbl()[0].text(), QStringLiteral("0.0"));
        QVERIFY(!probe().axis_0_lbl()[1].isVisible());
        QVERIFY(!probe().axis_0_lines()[1].isVisible());
        // The view is 15.614 m wide: 1.25 m per step, 12 whole intervals.
        window().KU_change(3.0);
        QCOMPARE(interior(probe()).size(), 12);
        QCOMPARE(interior(probe()).mid(0, 2),
                 (QStringList{ QStringLiteral("1.3"), QStringLiteral("2.5") }));
    }

    void linesAreAtTheirDistancesAndLabelsHalfALetterLeftOfThem()
    {
        fixture->open();
        window().scale_change(4);
        QCOMPARE(interior(probe()).size(), 10);
        // Steps of 50 m in a view of 500 m.
        const auto width = [this] { return double{ probe().trueWidth() }; };
        const auto left = [this] {
            return double{ probe().plotLeft() } - 0.5 * probe().axis_lbl()[0].font().pixelSize();
        };
        for (int i = 0; i < 10; ++i) {
            const double place = (i + 1) * width() / 10;
            QVERIFY(qAbs(probe().axis_lines()[i].x() - place) < 0.001);
            QVERIFY(qAbs(probe().axis_lbl()[i].x() - left() - place) < 0.001);
        }
        QCOMPARE(probe().axis_0_lines()[0].x(), 0.0);
        QCOMPARE(probe().axis_0_lbl()[0].x(), left());
        // The right edge is not on a line of the grid.
        window().setPlotRange(0, 238);
        QVERIFY(edgeShown(probe(), 1));
        QCOMPARE(probe().axis_0_lbl()[1].text(), QStringLiteral("29.8"));
        QCOMPARE(probe().axis_0_lines()[1].x(), width());
        QCOMPARE(probe().axis_0_lbl()[1].x(), width() + left());
    }

    void layoutCentresLabelsInTheBandUnderThePlot()
    {
        fixture->open();
        QCOMPARE(probe().axis_lbl()[0].font().pixelSize(), 10);
        window().axisSetup(QRectF(74.5, 50.0, 400.0, 200.0), QRectF(0.0, 0.0, 500.0, 300.0));
        QCOMPARE(probe().plotLeft(), 74.5F);
        const auto pairs = allPairs(probe());
        for (const Pair &pair : pairs) {
            QCOMPARE(pair.line->line(), QLineF(74.5, 250.0, 74.5, 50.0));
            // 250 + (300 - 250) / 2 - 10 / 2.
            QCOMPARE(pair.label->y(), 270.0);
        }
        QCOMPARE(interior(probe()).size(), 12);
    }

    void noLabelIsClippedAtTheRightEdgeOfTheView()
    {
        fixture->open();
        bool wasMoved = false;
        const auto verifyLabels = [&] {
            const auto pairs = allPairs(probe());
            for (const Pair &pair : pairs) {
                if (!pair.label->isVisible())
                    continue;
                const double right = pair.label->sceneBoundingRect().right();
                QVERIFY(right < viewport()->width() + 0.001);
                // A label is moved by its transform alone, and no farther than to the edge.
                const bool isMoved = !pair.label->transform().isIdentity();
                QVERIFY(!isMoved || right > viewport()->width() - 0.001);
                wasMoved = wasMoved || isMoved;
            }
        };
        for (const QSize size : { QSize(2560, 1440), QSize(1280, 800), QSize(800, 500) }) {
            window().resize(size);
            WindowFixture::settle();
            for (int scale = 0; scale <= 8; ++scale) {
                window().scale_change(scale);
                verifyLabels();
            }
            window().setPlotRange(0, 238);
            verifyLabels();
        }
        QVERIFY(wasMoved);
    }
};

QTEST_MAIN(TestChart)
#include "tst_chart.moc"
