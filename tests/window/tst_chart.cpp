// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "legendbutton.h"
#include "windowactions.h"

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

class TestChart : public QObject
{
    Q_OBJECT

private slots:
    // ---- The chart as it is built ----

    void seventeenSeriesStandInTheirOrder()
    {
        WindowFixture fixture;
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        const auto series = probe.Plot_Chart()->series();
        QCOMPARE(series.size(), 17);
        // The first is the one by which pixels become counts.
        QCOMPARE(series[0], probe.axisX());
        for (int slot = 0; slot < 6; ++slot) {
            QCOMPARE(series[1 + 2 * slot], probe.rfg_series()[slot]);
            QCOMPARE(series[2 + 2 * slot], probe.rfg_series_sp()[slot]);
        }
        for (const QLineSeries *cursor :
             { probe.cursor_A(), probe.cursor_A_add(), probe.cursor_B(), probe.cursor_B_add() }) {
            QVERIFY(series.lastIndexOf(const_cast<QLineSeries *>(cursor)) >= 13);
            QCOMPARE(cursor->count(), 2);
        }
    }

    void everySeriesHangsOnBothAxes()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder(), TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        const auto series = probe.Plot_Chart()->series();
        for (QAbstractSeries *one : series) {
            QVERIFY(one->attachedAxes().contains(probe.cust_axisX()));
            QVERIFY(one->attachedAxes().contains(probe.cust_axisY()));
        }
        QCOMPARE(probe.Plot_Chart()->axes().size(), 2);
    }

    void eachSlotHasItsColour()
    {
        WindowFixture fixture;
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        const QColor colours[] = { QColor(0, 255, 0), QColor(0, 255, 255), QColor(255, 0, 255),
                                   QColor(255, 0, 0), QColor(255, 255, 0), QColor(0, 0, 255) };
        for (int slot = 0; slot < 6; ++slot) {
            for (const QXYSeries *series :
                 { static_cast<const QXYSeries *>(probe.rfg_series()[slot]),
                   static_cast<const QXYSeries *>(probe.rfg_series_sp()[slot]) }) {
                QCOMPARE(series->pen().color(), colours[slot]);
                QCOMPARE(series->pen().color().alpha(), 255);
                QCOMPARE(series->pen().widthF(), 2.0);
            }
            QVERIFY(!probe.rfg_series_sp()[slot]->isVisible());
        }
    }

    void theBaseLineCrossesTheWholeAxis()
    {
        WindowFixture fixture;
        fixture.open();
        const QLineSeries *line = fixture.probe().axisX();
        const QVector<QPointF> ends{ { 0.0, 0.0 }, { 64000.0, 0.0 } };
        QCOMPARE(qtcompat::pointsOf(*line), ends);
        QCOMPARE(line->pen().color(), axisGray);
        QCOMPARE(line->pen().width(), 3);
    }

    void theChartShowsTheScenesBackgroundAndNoLegend()
    {
        WindowFixture fixture;
        fixture.open();
        const QChart *chart = fixture.probe().Plot_Chart();
        QCOMPARE(chart->margins(), QMargins(20, 20, 20, 20));
        QVERIFY(!chart->isPlotAreaBackgroundVisible());
        QVERIFY(!chart->isBackgroundVisible());
        QVERIFY(!chart->legend()->isVisible());
        QCOMPARE(chart->scene(), fixture.probe().Plot_Scene());
    }

    void theAxesHaveTheirPensFontsAndRanges()
    {
        WindowFixture fixture;
        fixture.open();
        QValueAxis *x = fixture.probe().cust_axisX();
        QValueAxis *y = fixture.probe().cust_axisY();
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

    // ---- Points ----

    void aSampleIsATreadAsWideAsItsStep()
    {
        WindowFixture fixture;
        openWith(fixture, { shifted() });
        const QLineSeries *series = fixture.probe().rfg_series()[0];
        QCOMPARE(series->count(), 499);
        // 10 + 3 * 2 and -7 - 50.
        QCOMPARE(series->at(0), QPointF(16.0, -57.0));
        QCOMPARE(series->at(1), QPointF(18.0, -57.0));
        QCOMPARE(series->at(2), QPointF(18.0, -56.0));
        QCOMPARE(series->at(3), QPointF(20.0, -56.0));
        QCOMPARE(series->at(198), QPointF(214.0, 42.0));
        QCOMPARE(series->at(200), QPointF(216.0, -57.0));
        // The last sample, 249, has no right end.
        QCOMPARE(series->at(497), QPointF(514.0, -9.0));
        QCOMPARE(series->at(498), QPointF(514.0, -8.0));
    }

    void aSplineGoesThroughEverySampleUnfiltered()
    {
        WindowFixture fixture;
        openWith(fixture, { shifted() });
        const MainWindowProbe &probe = fixture.probe();
        QTest::mouseClick(probe.smooth_button(), Qt::LeftButton);
        const QSplineSeries *series = probe.rfg_series_sp()[0];
        QCOMPARE(series->count(), 250);
        for (int i = 0; i < 250; ++i)
            QCOMPARE(series->at(i), QPointF(16.0 + 2.0 * i, i % 100 - 57.0));
    }

    void aTraceOfZerosIsAFlatLineOnTheBase()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder() });
        const auto points = qtcompat::pointsOf(*fixture.probe().rfg_series()[0]);
        QCOMPARE(points.size(), 499);
        for (int i = 0; i < points.size(); ++i)
            QCOMPARE(points[i], QPointF((i + 1) / 2, 0.0));
    }

    void samplesAreSignedBytes()
    {
        WindowFixture fixture;
        openWith(fixture,
                 { TraceBuilder().sample(0, -128).sample(1, 127).sample(2, -1).shiftY(-300) });
        const QLineSeries *series = fixture.probe().rfg_series()[0];
        QCOMPARE(series->at(0).y(), -428.0);
        QCOMPARE(series->at(2).y(), -173.0);
        QCOMPARE(series->at(4).y(), -301.0);
    }

    void theHiddenSeriesKeepsItsOldData()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder().samples(4) });
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.rfg_series_sp()[0]->count(), 0);
        window.setSmoothFlag(true);
        window.V_Offset_change(10);
        QCOMPARE(probe.rfg_series_sp()[0]->at(0).y(), 14.0);
        QCOMPARE(probe.rfg_series()[0]->at(0).y(), 4.0);
        window.setSmoothFlag(false);
        QCOMPARE(probe.rfg_series()[0]->at(0).y(), 14.0);
        window.V_Offset_change(20);
        QCOMPARE(probe.rfg_series_sp()[0]->at(0).y(), 14.0);
    }

    void theBuffersStartAtTheirLargest()
    {
        WindowFixture fixture;
        fixture.open();
        QCOMPARE(fixture.probe().points().size(), 500);
        QCOMPARE(fixture.probe().points_sp().size(), 250);
    }

    void bothBuffersHaveTheSizeOfWhatWasDrawn()
    {
        WindowFixture fixture;
        // Every second sample of the master meets one of the other.
        MainWindow &window = openWith(fixture, { TraceBuilder(), TraceBuilder().minstep(2.5F) });
        const MainWindowProbe &probe = fixture.probe();
        for (const bool smooth : { false, true }) {
            window.setSmoothFlag(smooth);
            window.load_rfg(0);
            QCOMPARE(probe.points().size(), 499);
            QCOMPARE(probe.points_sp().size(), 250);
            window.setDiff_flag(true);
            window.load_rfg(1);
            QCOMPARE(probe.points().size(), 249);
            QCOMPARE(probe.points_sp().size(), 125);
            window.setDiff_flag(false);
        }
    }

    // ---- Modes ----

    void smoothingShowsTheOtherFormOfWhatIsVisible()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder(), TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        probe.selected_rfg()[1]->visible_action->trigger();
        for (const bool smooth : { true, false }) {
            QTest::mouseClick(probe.smooth_button(), Qt::LeftButton);
            QCOMPARE(probe.smooth_rfg_flag(), smooth);
            QCOMPARE(probe.rfg_series()[0]->isVisible(), !smooth);
            QCOMPARE(probe.rfg_series_sp()[0]->isVisible(), smooth);
            for (int slot = 1; slot < 6; ++slot) {
                QVERIFY(!probe.rfg_series()[slot]->isVisible());
                QVERIFY(!probe.rfg_series_sp()[slot]->isVisible());
            }
        }
    }

    void emptySlotsAreNotTouchedBySmoothing()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder(), TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        probe.selected_rfg()[1]->clear_action->trigger();
        QTest::mouseClick(probe.smooth_button(), Qt::LeftButton);
        QCOMPARE(probe.rfg_series_sp()[1]->count(), 0);
        QCOMPARE(probe.rfg_series()[1]->count(), 499);
    }

    void differenceModeColoursTheBackground()
    {
        WindowFixture fixture;
        openWith(fixture, { TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        QCOMPARE(probe.Plot_Scene()->backgroundBrush(), QBrush(QColor(11, 12, 13)));
        QTest::mouseClick(probe.difference_button(), Qt::LeftButton);
        QCOMPARE(probe.diff_flag(), MainWindow::DIFF);
        QCOMPARE(probe.Plot_Scene()->backgroundBrush(), QBrush(QColor(40, 40, 60)));
        QTest::mouseClick(probe.difference_button(), Qt::LeftButton);
        QCOMPARE(probe.diff_flag(), MainWindow::NORMAL);
        QCOMPARE(probe.Plot_Scene()->backgroundBrush(), QBrush(QColor(11, 12, 13)));
    }

    void aRaisedSeriesKeepsEverythingButItsPlace()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { shifted(), TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        QLineSeries *series = probe.rfg_series()[1];
        series->hide();
        const QPen pen = series->pen();
        const QRectF plot = probe.Plot_Chart()->plotArea();
        const double right = probe.cust_axisX()->max();
        window.seriesUp(series);
        WindowFixture::settle();
        const auto order = probe.Plot_Chart()->series();
        QCOMPARE(order.size(), 17);
        QCOMPARE(order.last(), series);
        QCOMPARE(order.first(), probe.axisX());
        QCOMPARE(series->pen(), pen);
        QVERIFY(!series->isVisible());
        QCOMPARE(series->count(), 499);
        QCOMPARE(probe.Plot_Chart()->plotArea(), plot);
        QCOMPARE(probe.cust_axisX()->max(), right);
        QCOMPARE(series->attachedAxes().size(), 2);
    }

    // ---- Texts ----

    void countsAreShownAsMetresOfTwoDecimals()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        QCOMPARE(window.count_to_distance(0), QStringLiteral("0.00 m"));
        QCOMPARE(window.count_to_distance(8), QStringLiteral("1.00 m"));
        QCOMPARE(window.count_to_distance(-8), QStringLiteral("-1.00 m"));
        QCOMPARE(window.count_to_distance(64000), QStringLiteral("8000.00 m"));
    }

    void aLevelOf129IsNothing()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        QCOMPARE(window.count_to_level(129), QString());
        QCOMPARE(window.count_to_level(-128), QStringLiteral("-128"));
        QCOMPARE(window.count_to_level(128), QStringLiteral("128"));
        QCOMPARE(window.count_to_level(130), QStringLiteral("130"));
    }

    void theUpdateSignalIsNeverEmitted()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder(), TraceBuilder() });
        const QSignalSpy spy(&window, &MainWindow::rfg_update);
        window.add_Selected_RFG(fixture.path(QStringLiteral("t1.tdr")), 4);
        window.setSmoothFlag(true);
        window.setDiff_flag(true);
        window.setMasterID(1);
        window.rfgSelect_slot(1);
        window.V_Offset_change(4);
        window.reset_slot();
        QVERIFY(spy.isEmpty());
    }
};

QTEST_MAIN(TestChart)
#include "tst_chart.moc"
