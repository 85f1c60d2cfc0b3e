// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "curarrow.h"
#include "inputevents.h"
#include "parambutton.h"
#include "windowtest.h"

#include <QPushButton>
#include <QtTest>

#include <limits>

class TestRange : public WindowTest
{
    Q_OBJECT

private:
    using Ends = QPair<int, int>;

    Ends range() const
    {
        const auto *axis = probe().cust_axisX();
        return { static_cast<int>(axis->min()), static_cast<int>(axis->max()) };
    }

private slots:
    void aScrollBeyondAnEndIsRefused()
    {
        openOn({});
        for (const int step : { -1, -250, std::numeric_limits<int>::min() }) {
            window().plotScroll(step);
            QCOMPARE(range(), Ends(0, 250));
            QVERIFY(!probe().scroll_left_button()->isEnabled());
            QVERIFY(probe().scroll_right_button()->isEnabled());
        }
        window().plotScroll(63700);
        window().plotScroll(51);
        QCOMPARE(range(), Ends(63700, 63950));
        QVERIFY(probe().scroll_right_button()->isEnabled());
        window().plotScroll(50);
        window().plotScroll(std::numeric_limits<int>::max());
        window().plotScroll(-63751);
        QCOMPARE(range(), Ends(63750, 64000));
        QVERIFY(!probe().scroll_right_button()->isEnabled());
        QVERIFY(probe().scroll_left_button()->isEnabled());
        window().plotScroll(-63750);
        QCOMPARE(range(), Ends(0, 250));
        QCOMPARE(probe().scrollfactorX(), 0);
        // A view left of the start is put back to it.
        window().setPlotRange(-20, 230);
        QVERIFY(probe().scroll_left_button()->isEnabled());
        window().plotScroll(-1);
        QCOMPARE(range(), Ends(0, 250));
    }

    void aScrollButtonMovesByTheScale()
    {
        for (const int scale : { 0, 3, 7 }) {
            openOn({});
            window().scale_change(scale);
            input::click(probe().scroll_right_button());
            input::click(probe().scroll_right_button());
            QCOMPARE(probe().scrollfactorX(), 2 << scale);
            input::click(probe().scroll_left_button());
            QCOMPARE(probe().scrollfactorX(), 1 << scale);
            input::click(probe().scroll_left_button());
            QVERIFY(!probe().scroll_left_button()->isEnabled());
        }
    }

    void aScrollButtonHeldDownRepeats()
    {
        openOn({});
        for (const QPushButton *arrow :
             { probe().scroll_left_button(), probe().scroll_right_button() }) {
            QVERIFY(arrow->autoRepeat());
            QCOMPARE(arrow->autoRepeatInterval(), 10);
        }
        QTest::mousePress(probe().scroll_right_button(), Qt::LeftButton);
        QCOMPARE(probe().scrollfactorX(), 1);
        QTRY_VERIFY(probe().scrollfactorX() > 5);
        QTest::mouseRelease(probe().scroll_right_button(), Qt::LeftButton);
        const int there = probe().scrollfactorX();
        QTest::qWait(50);
        QCOMPARE(probe().scrollfactorX(), there);
        // At the start the button is disabled while it is held.
        QTest::mousePress(probe().scroll_left_button(), Qt::LeftButton);
        QTRY_COMPARE(probe().scrollfactorX(), 0);
        QVERIFY(!probe().scroll_left_button()->isEnabled());
        QTest::mouseRelease(probe().scroll_left_button(), Qt::LeftButton);
        QCOMPARE(range(), Ends(0, 250));
    }

    void eachScaleHasItsRangeAndCaption()
    {
        openOn({});
        const char *const captions[] = { "31.25 m", "62.5 m", "125 m",  "250 m", "500 m",
                                         "1000 m",  "2000 m", "4000 m", "8000 m" };
        probe().scale_button()->click();
        // The caption does not depend on the shortening factor.
        for (const double ku : { 1.49896229, 3.0 }) {
            window().KU_change(ku);
            for (int scale = 0; scale <= 8; ++scale) {
                window().scale_change(scale);
                const QString caption = QStringLiteral("Scale\n") + QLatin1String(captions[scale]);
                QCOMPARE(probe().scale_button()->text(), caption);
                QCOMPARE(probe().param_dial()->titleText, caption);
                QCOMPARE(probe().scale_dist(), 31.25F * static_cast<float>(1 << scale));
                QCOMPARE(range(), Ends(0, 250 << scale));
            }
        }
        for (const int scale : { -3, std::numeric_limits<int>::min() }) {
            window().scale_change(scale);
            QCOMPARE(probe().master_scale(), 0);
        }
        for (const int scale : { 12, std::numeric_limits<int>::max() }) {
            window().scale_change(scale);
            QCOMPARE(probe().master_scale(), 8);
        }
    }

    void aNewScaleReturnsToTheStart()
    {
        openOn({});
        window().scale_change(2);
        window().plotScroll(5000);
        window().scale_change(2);
        QCOMPARE(range(), Ends(0, 1000));
        QCOMPARE(probe().scrollfactorX(), 0);
    }

    void aJumpBetweenTheEndsDisablesBothZoomButtons()
    {
        openOn({});
        const auto verify = [this](int scale, bool down, bool up) {
            window().scale_change(scale);
            QCOMPARE(probe().scale_down_button()->isEnabled(), down);
            QCOMPARE(probe().scale_up_button()->isEnabled(), up);
        };
        verify(0, false, true);
        verify(8, false, false);
        verify(4, true, true);
        verify(8, true, false);
        verify(0, false, false);
        verify(1, true, true);
    }

    void aZoomButtonKeepsTheActiveCursorInView()
    {
        openOn({ TraceBuilder() });
        window().cursorSetup_slot(10000);
        input::click(probe().scale_up_button());
        QCOMPARE(probe().master_scale(), 1);
        QCOMPARE(range(), Ends(9750, 10250));
        input::click(probe().scale_down_button());
        QCOMPARE(probe().master_scale(), 0);
        QCOMPARE(range(), Ends(9875, 10125));
        // The group takes a press from a disabled button.
        emit probe().scale_nav_group()->idPressed(0);
        QCOMPARE(probe().master_scale(), 0);
    }

    void theMarkersFollowTheRange()
    {
        openOn({ TraceBuilder() });
        window().cursorSetup_slot(200);
        window().setPlotRange(100, 600);
        QCOMPARE(probe().scrollfactorX(), 100);
        const CurArrow *a = probe().cur_arrowA();
        const CurArrow *b = probe().cur_arrowB();
        QCOMPARE(a->XRes, 500);
        QCOMPARE(b->XRes, 500);
        QVERIFY(qAbs(double{ a->pos } - a->pos0 - a->field.width() * 100.0 / 500.0) < 0.01);
        // Cursor B is at 0, outside; an end of the range is inside.
        QVERIFY(a->cur_arrow1.isVisible());
        QVERIFY(!b->cur_arrow1.isVisible());
        window().setPlotRange(0, 200);
        QVERIFY(a->cur_arrow1.isVisible());
        QVERIFY(b->cur_arrow1.isVisible());
    }

    void anEndOfTheRangeDisablesItsScrollButton()
    {
        openOn({});
        window().setPlotRange(0, 64000);
        QVERIFY(!probe().scroll_left_button()->isEnabled());
        QVERIFY(!probe().scroll_right_button()->isEnabled());
        window().setPlotRange(1, 63999);
        QVERIFY(probe().scroll_left_button()->isEnabled());
        QVERIFY(probe().scroll_right_button()->isEnabled());
    }

    void theCorrectionRestoresTheWidthOfThePlot()
    {
        openOn({});
        const double width = double{ probe().trueWidth() };
        QtCharts::QChart *chart = probe().Plot_Chart();
        const QSizeF size = chart->size();
        window().plotCorrection();
        QCOMPARE(chart->size(), size);
        QCOMPARE(chart->pos(), QPointF(-10.25, -10.25));
        chart->resize(size.width() + 64.0, size.height());
        QVERIFY(qAbs(chart->plotArea().width() - width) > 60.0);
        window().plotCorrection();
        QCOMPARE(chart->plotArea().width(), width);
        QCOMPARE(chart->size().height(), size.height());
        QCOMPARE(chart->pos(), QPointF(74.0 - chart->plotArea().x() - 10.25, -10.25));
    }
};

QTEST_MAIN(TestRange)
#include "tst_range.moc"
