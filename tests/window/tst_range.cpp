// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "input_events.h"
#include "invariants.h"
#include "parambutton.h"
#include "windowtest.h"

#include <QPushButton>
#include <QtTest>

#include <limits>

/// The visible range of the window. tst_view_range tests the numbers.
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
    void scrollButtonsFollowTheRange()
    {
        openOn({});
        const auto verify = [this](int step, const Ends &ends) {
            window().plotScroll(step);
            QCOMPARE(range(), ends);
            // Each button is enabled unless the view is at its end.
            QCOMPARE(brokenInvariants(window()), QStringList());
        };
        verify(-1, { 0, 250 });
        verify(63700, { 63700, 63950 });
        verify(51, { 63700, 63950 });
        verify(50, { 63750, 64000 });
        // A view left of the start is moved to the start.
        window().setPlotRange(-20, 230);
        QVERIFY(probe().scroll_left_button()->isEnabled());
        verify(-1, { 0, 250 });
        window().setPlotRange(0, 64000);
        QVERIFY(!probe().scroll_left_button()->isEnabled());
        QVERIFY(!probe().scroll_right_button()->isEnabled());
    }

    void scrollButtonMovesByTheScale()
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

    void scrollButtonHeldDownRepeats()
    {
        openOn({});
        for (const QPushButton *arrow :
             { probe().scroll_left_button(), probe().scroll_right_button() }) {
            QVERIFY(arrow->autoRepeat());
            QCOMPARE(arrow->autoRepeatInterval(), 10);
        }
        window().plotScroll(5);
        // At the start the button is disabled while it is held.
        QTest::mousePress(probe().scroll_left_button(), Qt::LeftButton);
        QTRY_COMPARE(probe().scrollfactorX(), 0);
        QVERIFY(!probe().scroll_left_button()->isEnabled());
        QTest::mouseRelease(probe().scroll_left_button(), Qt::LeftButton);
        QCOMPARE(range(), Ends(0, 250));
    }

    void scaleHasItsRangeAndCaption()
    {
        openOn({});
        probe().scale_button()->click();
        window().plotScroll(5000);
        // The caption does not depend on the shortening factor.
        for (const double ku : { 1.49896229, 3.0 }) {
            window().KU_change(ku);
            for (const int scale : { 0, 8 }) {
                window().scale_change(scale);
                const QString caption = QStringLiteral("Scale\n%1 m").arg(31.25 * (1 << scale));
                QCOMPARE(probe().scale_button()->text(), caption);
                QCOMPARE(probe().param_dial()->titleText, caption);
                QCOMPARE(probe().scale_dist(), 31.25F * static_cast<float>(1 << scale));
                QCOMPARE(range(), Ends(0, 250 << scale));
            }
        }
        window().scale_change(std::numeric_limits<int>::max());
        QCOMPARE(probe().master_scale(), 8);
        // Setting the same scale again also returns to the start.
        window().scale_change(2);
        window().plotScroll(5000);
        window().scale_change(2);
        QCOMPARE(range(), Ends(0, 1000));
        QCOMPARE(probe().scrollfactorX(), 0);
    }

    void jumpBetweenTheEndsDisablesBothZoomButtons()
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

    void zoomButtonKeepsTheActiveCursorInView()
    {
        openOn({ TraceBuilder() });
        window().cursorSetup_slot(10000);
        input::click(probe().scale_up_button());
        QCOMPARE(probe().master_scale(), 1);
        QCOMPARE(range(), Ends(9750, 10250));
        input::click(probe().scale_down_button());
        QCOMPARE(probe().master_scale(), 0);
        QCOMPARE(range(), Ends(9875, 10125));
        // The group also reports a press of a disabled button.
        emit probe().scale_nav_group()->idPressed(0);
        QCOMPARE(probe().master_scale(), 0);
    }

    void correctionRestoresTheWidthOfThePlot()
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
