// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "inputevents.h"
#include "legendbutton.h"
#include "windowtest.h"

#include <QAction>
#include <QGraphicsScene>
#include <QPushButton>
#include <QSignalSpy>
#include <QtCharts/QLegend>
#include <QtTest>

QT_CHARTS_USE_NAMESPACE

class TestChart : public WindowTest
{
    Q_OBJECT

private slots:
    void seventeenSeriesAreInTheirOrderOnBothAxes()
    {
        openOn({});
        const auto series = probe().Plot_Chart()->series();
        QCOMPARE(series.size(), 17);
        QCOMPARE(series[0], probe().axisX()); // the one by which pixels become counts
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

    void theChartHasABaseLineAndNeitherLegendNorBackground()
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
    }

    void theAxesHaveTheirPensFontsAndRanges()
    {
        openOn({});
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
        QCOMPARE(x->min(), 0.0);
        QCOMPARE(x->max(), 250.0);
        QCOMPARE(x->tickCount(), 2);
        QCOMPARE(x->labelsFont().pixelSize(), 1);
        QVERIFY(!x->labelsVisible());
        QCOMPARE(y->min(), -128.0);
        QCOMPARE(y->max(), 128.0);
        QCOMPARE(y->tickCount(), 9);
        QCOMPARE(y->labelsFont().pixelSize(), 10);
        QVERIFY(y->labelsVisible());
    }

    void theHiddenFormKeepsItsOldPoints()
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

    void theBuffersHaveTheSizeOfWhatWasDrawn()
    {
        openOn({});
        QCOMPARE(probe().points().size(), 500);
        QCOMPARE(probe().points_sp().size(), 250);
        // Every second sample of the master has the column of one of the other.
        openOn({ TraceBuilder(), TraceBuilder().minstep(2.5F) });
        for (const bool smooth : { false, true }) {
            window().setSmoothFlag(smooth);
            window().load_rfg(0);
            QCOMPARE(probe().points().size(), 499);
            QCOMPARE(probe().points_sp().size(), 250);
            window().setDiff_flag(true);
            window().load_rfg(1);
            QCOMPARE(probe().points().size(), 249);
            QCOMPARE(probe().points_sp().size(), 125);
            window().setDiff_flag(false);
        }
    }

    void smoothingShowsTheOtherFormOfVisibleTraces()
    {
        openOn({ TraceBuilder(), TraceBuilder(), TraceBuilder() });
        probe().selected_rfg()[1]->visible_action->trigger();
        probe().selected_rfg()[2]->clear_action->trigger();
        for (const bool smooth : { true, false }) {
            input::click(probe().smooth_button());
            QCOMPARE(probe().smooth_rfg_flag(), smooth);
            QCOMPARE(probe().rfg_series()[0]->isVisible(), !smooth);
            QCOMPARE(probe().rfg_series_sp()[0]->isVisible(), smooth);
            for (const bool isShown : { false, true }) {
                probe().selected_rfg()[0]->visible_action->trigger();
                QCOMPARE(probe().rfg_series()[0]->isVisible(), isShown && !smooth);
                QCOMPARE(probe().rfg_series_sp()[0]->isVisible(), isShown && smooth);
            }
            for (int slot = 1; slot < 6; ++slot) {
                QVERIFY(!probe().rfg_series()[slot]->isVisible());
                QVERIFY(!probe().rfg_series_sp()[slot]->isVisible());
            }
            // The cleared slot keeps its points.
            QCOMPARE(probe().rfg_series()[2]->count(), 499);
            QCOMPARE(probe().rfg_series_sp()[2]->count(), 0);
        }
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

    void aRaisedSeriesKeepsEverythingButItsPlace()
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

    void theUpdateSignalIsNeverEmitted()
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
};

QTEST_MAIN(TestChart)
#include "tst_chart.moc"
