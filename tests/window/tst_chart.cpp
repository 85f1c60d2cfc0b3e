// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "inputevents.h"
#include "legendbutton.h"
#include "windowtest.h"

#include <QAction>
#include <QButtonGroup>
#include <QGraphicsScene>
#include <QPushButton>
#include <QSignalSpy>
#include <QtCharts/QLegend>
#include <QtTest>

QT_CHARTS_USE_NAMESPACE

namespace {

/// Two counts a sample, from sample 3, shifted 10 counts right and 7 steps down.
TraceBuilder shifted()
{
    return TraceBuilder().minstep(2.5F).delay(3).shiftX(5).shiftY(-7).samples(
        [](int i) { return i % 100 - 50; });
}

const QColor axisGray(50, 50, 50);

} // namespace

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
        for (int slot = 0; slot < 6; ++slot) {
            QCOMPARE(series[1 + 2 * slot], probe().rfg_series()[slot]);
            QCOMPARE(series[2 + 2 * slot], probe().rfg_series_sp()[slot]);
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

    void eachSlotHasItsColour()
    {
        openOn({});
        const QColor colours[] = { QColor(0, 255, 0), QColor(0, 255, 255), QColor(255, 0, 255),
                                   QColor(255, 0, 0), QColor(255, 255, 0), QColor(0, 0, 255) };
        for (int slot = 0; slot < 6; ++slot) {
            for (const QPen &pen :
                 { probe().rfg_series()[slot]->pen(), probe().rfg_series_sp()[slot]->pen() }) {
                QCOMPARE(pen.color(), colours[slot]);
                QCOMPARE(pen.widthF(), 2.0);
            }
            QVERIFY(!probe().rfg_series_sp()[slot]->isVisible());
        }
    }

    void theChartHasABaseLineAndNeitherLegendNorBackground()
    {
        openOn({});
        const QLineSeries *line = probe().axisX();
        QCOMPARE(qtcompat::pointsOf(*line), (QVector<QPointF>{ { 0.0, 0.0 }, { 64000.0, 0.0 } }));
        QCOMPARE(line->pen().color(), axisGray);
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
            QCOMPARE(axis->linePen().color(), axisGray);
            QCOMPARE(axis->linePen().width(), 2);
            QCOMPARE(axis->gridLineColor(), axisGray);
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

    void aTraceIsDrawnFromItsStepDelayAndShifts()
    {
        openOn({ shifted() });
        const QLineSeries *steps = probe().rfg_series()[0];
        QCOMPARE(steps->count(), 499);
        QCOMPARE(steps->at(0), QPointF(16.0, -57.0)); // 10 + 3 * 2 and -7 - 50
        QCOMPARE(steps->at(1), QPointF(18.0, -57.0));
        QCOMPARE(steps->at(498), QPointF(514.0, -8.0));
        input::click(probe().smooth_button());
        const QSplineSeries *spline = probe().rfg_series_sp()[0];
        QCOMPARE(spline->count(), 250);
        for (int i = 0; i < 250; ++i)
            QCOMPARE(spline->at(i), QPointF(16.0 + 2.0 * i, i % 100 - 57.0));
    }

    void samplesAreSignedBytes()
    {
        openOn({ TraceBuilder().sample(0, -128).sample(1, 127).sample(2, -1).shiftY(-300) });
        const QLineSeries *series = probe().rfg_series()[0];
        QCOMPARE(series->at(0).y(), -428.0);
        QCOMPARE(series->at(2).y(), -173.0);
        QCOMPARE(series->at(4).y(), -301.0);
    }

    void theHiddenFormKeepsItsOldPoints()
    {
        openOn({ TraceBuilder().samples(4) });
        QCOMPARE(probe().rfg_series_sp()[0]->count(), 0);
        window().setSmoothFlag(true);
        window().V_Offset_change(10);
        QCOMPARE(probe().rfg_series_sp()[0]->at(0).y(), 14.0);
        QCOMPARE(probe().rfg_series()[0]->at(0).y(), 4.0);
        window().setSmoothFlag(false);
        QCOMPARE(probe().rfg_series()[0]->at(0).y(), 14.0);
        window().V_Offset_change(20);
        QCOMPARE(probe().rfg_series_sp()[0]->at(0).y(), 14.0);
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
            for (int slot = 1; slot < 6; ++slot) {
                QVERIFY(!probe().rfg_series()[slot]->isVisible());
                QVERIFY(!probe().rfg_series_sp()[slot]->isVisible());
            }
            // The cleared slot keeps its points.
            QCOMPARE(probe().rfg_series()[2]->count(), 499);
            QCOMPARE(probe().rfg_series_sp()[2]->count(), 0);
        }
    }

    void differenceModeColoursTheBackground()
    {
        openOn({ TraceBuilder() });
        const QBrush normal(QColor(11, 12, 13));
        QCOMPARE(probe().Plot_Scene()->backgroundBrush(), normal);
        input::click(probe().difference_button());
        QCOMPARE(probe().diff_flag(), MainWindow::DIFF);
        QCOMPARE(probe().Plot_Scene()->backgroundBrush(), QBrush(QColor(40, 40, 60)));
        input::click(probe().difference_button());
        QCOMPARE(probe().diff_flag(), MainWindow::NORMAL);
        QCOMPARE(probe().Plot_Scene()->backgroundBrush(), normal);
    }

    void aRaisedSeriesKeepsEverythingButItsPlace()
    {
        openOn({ shifted(), TraceBuilder() });
        QLineSeries *series = probe().rfg_series()[1];
        series->hide();
        const QPen pen = series->pen();
        const QRectF plot = probe().Plot_Chart()->plotArea();
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
        QCOMPARE(probe().Plot_Chart()->plotArea(), plot);
        QCOMPARE(probe().cust_axisX()->max(), right);
        QCOMPARE(series->attachedAxes().size(), 2);
    }

    void distancesAndLevelsAreShownAsText()
    {
        openOn({});
        QCOMPARE(window().count_to_distance(-8), QStringLiteral("-1.00 m"));
        QCOMPARE(window().count_to_level(129), QString());
        QCOMPARE(window().count_to_level(-128), QStringLiteral("-128"));
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
