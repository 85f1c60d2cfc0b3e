// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "curarrow.h"
#include "parambutton.h"
#include "windowactions.h"

#include <QButtonGroup>
#include <QPushButton>
#include <QtTest>

#include <limits>

namespace {

QPair<int, int> range(const WindowFixture &fixture)
{
    const auto *axis = fixture.probe().cust_axisX();
    return { static_cast<int>(axis->min()), static_cast<int>(axis->max()) };
}

using Ends = QPair<int, int>;

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

} // namespace

class TestRange : public QObject
{
    Q_OBJECT

private slots:
    // ---- Scroll ----

    void scrollingLeftAtTheStartChangesNothing()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        for (const int step : { -1, -250, smallest }) {
            window.plotScroll(step);
            QCOMPARE(range(fixture), Ends(0, 250));
            QVERIFY(!fixture.probe().scroll_left_button()->isEnabled());
            QVERIFY(fixture.probe().scroll_right_button()->isEnabled());
        }
    }

    void aStepPastTheEndIsRefusedWhole()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        window.plotScroll(63700);
        QCOMPARE(range(fixture), Ends(63700, 63950));
        window.plotScroll(51);
        QCOMPARE(range(fixture), Ends(63700, 63950));
        QVERIFY(probe.scroll_right_button()->isEnabled());
        window.plotScroll(50);
        QCOMPARE(range(fixture), Ends(63750, 64000));
        QVERIFY(!probe.scroll_right_button()->isEnabled());
        QVERIFY(probe.scroll_left_button()->isEnabled());
        window.plotScroll(largest);
        QCOMPARE(range(fixture), Ends(63750, 64000));
        window.plotScroll(-63751);
        QCOMPARE(range(fixture), Ends(63750, 64000));
        window.plotScroll(-63750);
        QCOMPARE(range(fixture), Ends(0, 250));
        QCOMPARE(probe.scrollfactorX(), 0);
        QVERIFY(!probe.scroll_left_button()->isEnabled());
    }

    void aViewLeftOfTheStartIsPutBackToIt()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        window.setPlotRange(-20, 230);
        QVERIFY(fixture.probe().scroll_left_button()->isEnabled());
        window.plotScroll(-1);
        QCOMPARE(range(fixture), Ends(0, 250));
    }

    void aScrollButtonMovesOneCountPerUnitOfZoom_data()
    {
        QTest::addColumn<int>("scale");
        QTest::addColumn<int>("step");
        QTest::newRow("0") << 0 << 1;
        QTest::newRow("3") << 3 << 8;
        QTest::newRow("7") << 7 << 128;
    }

    void aScrollButtonMovesOneCountPerUnitOfZoom()
    {
        QFETCH(int, scale);
        QFETCH(int, step);
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        window.scale_change(scale);
        QTest::mouseClick(probe.scroll_right_button(), Qt::LeftButton);
        QTest::mouseClick(probe.scroll_right_button(), Qt::LeftButton);
        QCOMPARE(probe.scrollfactorX(), 2 * step);
        QTest::mouseClick(probe.scroll_left_button(), Qt::LeftButton);
        QCOMPARE(probe.scrollfactorX(), step);
        QTest::mouseClick(probe.scroll_left_button(), Qt::LeftButton);
        QVERIFY(!probe.scroll_left_button()->isEnabled());
    }

    void aScrollButtonHeldDownKeepsScrolling()
    {
        WindowFixture fixture;
        fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QTest::mousePress(probe.scroll_right_button(), Qt::LeftButton);
        QCOMPARE(probe.scrollfactorX(), 1);
        QTRY_VERIFY_WITH_TIMEOUT(probe.scrollfactorX() > 5, 5000);
        QTest::mouseRelease(probe.scroll_right_button(), Qt::LeftButton);
        const int there = probe.scrollfactorX();
        QTest::qWait(50);
        QCOMPARE(probe.scrollfactorX(), there);
        // And back to the start, where the button goes out under the hand.
        QTest::mousePress(probe.scroll_left_button(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(probe.scrollfactorX(), 0, 10000);
        QVERIFY(!probe.scroll_left_button()->isEnabled());
        QTest::mouseRelease(probe.scroll_left_button(), Qt::LeftButton);
        QCOMPARE(range(fixture), Ends(0, 250));
    }

    // ---- Scale ----

    void theScaleIsClamped_data()
    {
        QTest::addColumn<int>("asked");
        QTest::addColumn<int>("scale");
        QTest::newRow("-3") << -3 << 0;
        QTest::newRow("12") << 12 << 8;
        QTest::newRow("5") << 5 << 5;
        QTest::newRow("smallest") << smallest << 0;
        QTest::newRow("largest") << largest << 8;
    }

    void theScaleIsClamped()
    {
        QFETCH(int, asked);
        QFETCH(int, scale);
        WindowFixture fixture;
        fixture.open().scale_change(asked);
        QCOMPARE(fixture.probe().master_scale(), scale);
        QCOMPARE(range(fixture), Ends(0, 250 << scale));
    }

    void nineScalesHaveNineCaptions()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        const char *const captions[] = { "31.25 m", "62.5 m", "125 m",  "250 m", "500 m",
                                         "1000 m",  "2000 m", "4000 m", "8000 m" };
        probe.scale_button()->click();
        for (int scale = 0; scale <= 8; ++scale) {
            window.scale_change(scale);
            const QString caption = QStringLiteral("Scale\n") + QLatin1String(captions[scale]);
            QCOMPARE(probe.scale_button()->text(), caption);
            QCOMPARE(probe.param_dial()->titleText, caption);
            QCOMPARE(probe.scale_dist(), 31.25F * static_cast<float>(1 << scale));
        }
    }

    void theScaleCaptionIgnoresTheVelocityFactor()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        window.KU_change(3.0);
        window.scale_change(1);
        QCOMPARE(fixture.probe().scale_button()->text(), QStringLiteral("Scale\n62.5 m"));
    }

    void everyZoomReturnsToTheStart()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        window.scale_change(2);
        window.plotScroll(5000);
        window.scale_change(2);
        QCOMPARE(range(fixture), Ends(0, 1000));
        QCOMPARE(fixture.probe().scrollfactorX(), 0);
    }

    void aJumpBetweenTheEndsLeavesBothZoomButtonsOut()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        QVERIFY(!probe.scale_down_button()->isEnabled());
        QVERIFY(probe.scale_up_button()->isEnabled());
        window.scale_change(4);
        QVERIFY(probe.scale_down_button()->isEnabled());
        window.scale_change(8);
        QVERIFY(!probe.scale_up_button()->isEnabled());
        QVERIFY(probe.scale_down_button()->isEnabled());
        window.scale_change(0);
        QVERIFY(!probe.scale_up_button()->isEnabled());
        QVERIFY(!probe.scale_down_button()->isEnabled());
        window.scale_change(1);
        QVERIFY(probe.scale_up_button()->isEnabled());
        QVERIFY(probe.scale_down_button()->isEnabled());
    }

    void aZoomButtonKeepsTheActiveCursorInView()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        window.cursorSetup_slot(10000);
        QTest::mouseClick(probe.scale_up_button(), Qt::LeftButton);
        QCOMPARE(probe.master_scale(), 1);
        QCOMPARE(range(fixture), Ends(9750, 10250));
        QTest::mouseClick(probe.scale_down_button(), Qt::LeftButton);
        QCOMPARE(probe.master_scale(), 0);
        QCOMPARE(range(fixture), Ends(9875, 10125));
    }

    // ---- Range ----

    void theMarkersFollowTheRange()
    {
        WindowFixture fixture;
        MainWindow &window = openWith(fixture, { TraceBuilder() });
        const MainWindowProbe &probe = fixture.probe();
        window.cursorSetup_slot(200);
        window.setPlotRange(100, 600);
        QCOMPARE(probe.scrollfactorX(), 100);
        QCOMPARE(probe.cur_arrowA()->XRes, 500);
        QCOMPARE(probe.cur_arrowB()->XRes, 500);
        const double fifth
            = probe.cur_arrowA()->pos0 + probe.cur_arrowA()->field.width() * 100.0 / 500.0;
        QVERIFY(qAbs(double{ probe.cur_arrowA()->pos } - fifth) < 0.01);
        // Cursor B stands at 0, out of sight; on an end of the range it would be seen.
        QVERIFY(probe.cur_arrowA()->cur_arrow1.isVisible());
        QVERIFY(!probe.cur_arrowB()->cur_arrow1.isVisible());
        window.setPlotRange(0, 200);
        QVERIFY(probe.cur_arrowA()->cur_arrow1.isVisible());
        QVERIFY(probe.cur_arrowB()->cur_arrow1.isVisible());
    }

    void anEndOfTheRangeTakesItsScrollButton()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        window.setPlotRange(0, 64000);
        QVERIFY(!probe.scroll_left_button()->isEnabled());
        QVERIFY(!probe.scroll_right_button()->isEnabled());
        window.setPlotRange(1, 63999);
        QVERIFY(probe.scroll_left_button()->isEnabled());
        QVERIFY(probe.scroll_right_button()->isEnabled());
    }

    void aPlotThatLostItsWidthGetsItBack()
    {
        WindowFixture fixture;
        MainWindow &window = fixture.open();
        const MainWindowProbe &probe = fixture.probe();
        const double width = double{ probe.trueWidth() };
        QtCharts::QChart *chart = probe.Plot_Chart();
        const QSizeF size = chart->size();
        window.plotCorrection();
        QCOMPARE(chart->size(), size);
        QCOMPARE(chart->pos(), QPointF(-10.25, -10.25));
        chart->resize(size.width() + 64.0, size.height());
        QVERIFY(qAbs(chart->plotArea().width() - width) > 60.0);
        window.plotCorrection();
        QCOMPARE(chart->plotArea().width(), width);
        QCOMPARE(chart->size().height(), size.height());
        QCOMPARE(chart->pos(), QPointF(74.0 - chart->plotArea().x() - 10.25, -10.25));
    }
};

QTEST_MAIN(TestRange)
#include "tst_range.moc"
