// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "inputevents.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "windowtest.h"

#include <QAction>
#include <QButtonGroup>
#include <QGraphicsView>
#include <QtTest>

class TestWheel : public WindowTest
{
    Q_OBJECT

private slots:
    void aNotchMovesTheCursorByOneSample()
    {
        openOn(tracesOfSteps({ 5.0F }));
        window().cursorSetup_slot(40);
        input::wheel(viewport(), 120);
        QCOMPARE(probe().cursor_A_pos(), 44);
        QCOMPARE(probe().cursor_dial()->trueValue, 44);
        input::wheel(viewport(), -360);
        QCOMPARE(probe().cursor_A_pos(), 40);
        input::wheel(viewport(), 0);
        QCOMPARE(probe().cursor_A_pos(), 40);
    }

    void inDifferenceModeTheWiderSampleCounts_data()
    {
        QTest::addColumn<float>("master");
        QTest::addColumn<float>("current");
        QTest::newRow("the master's") << 10.0F << 2.5F;
        QTest::newRow("the selected trace's") << 2.5F << 10.0F;
    }

    void inDifferenceModeTheWiderSampleCounts()
    {
        QFETCH(const float, master);
        QFETCH(const float, current);
        openOn(tracesOfSteps({ master, current }));
        QTest::mouseClick(probe().selected_rfg()[1], Qt::LeftButton);
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        window().cursorSetup_slot(400);
        input::wheel(viewport(), 120);
        QCOMPARE(probe().cursor_dial()->trueValue, 408);
        input::wheel(probe().cursor_dial(), -120);
        QCOMPARE(probe().cursor_dial()->trueValue, 400);
    }

    void aNotchThatScalesGoesBackToTheCursor()
    {
        openOn(tracesOfSteps({ 1.25F }));
        probe().scale_wheel_action()->trigger();
        window().cursorSetup_slot(3000);
        // Away from the user raises the exponent, which shows more of the cable.
        input::wheel(viewport(), 120);
        QCOMPARE(probe().master_scale(), 1);
        QCOMPARE(probe().cust_axisX()->min(), 2750.0);
        QCOMPARE(probe().cust_axisX()->max(), 3250.0);
        QCOMPARE(probe().cursor_A_pos(), 3000);
        input::wheel(viewport(), -120);
        input::wheel(viewport(), -120);
        QCOMPARE(probe().master_scale(), 0);
        QCOMPARE(probe().cust_axisX()->min(), 2875.0);
    }

    void theWheelOnTheCursorDialAlwaysMovesTheCursor()
    {
        openOn(tracesOfSteps({ 2.5F }));
        probe().scale_wheel_action()->trigger();
        window().cursorSetup_slot(10);
        input::wheel(probe().cursor_dial(), 120);
        QCOMPARE(probe().cursor_A_pos(), 12);
        QCOMPARE(probe().master_scale(), 1);
        // The dial's own position turned too, which counts for nothing.
        QVERIFY(probe().cursor_dial()->value() != 0);
        QCOMPARE(probe().cursor_dial()->trueValue, 12);
    }

    void withoutACursorTheWheelStepsTheDialAlone()
    {
        openOn(tracesOfSteps({ 2.5F }));
        window().cursorSetup_slot(10);
        window().cursorSelect_slot(0);
        input::wheel(viewport(), 120);
        QCOMPARE(probe().cursor_dial()->trueValue, 12);
        QCOMPARE(probe().cursor_A_pos(), 10);
        input::press(viewport(), input::pixelOf(probe(), 100), Qt::LeftButton);
        input::move(viewport(), input::pixelOf(probe(), 120), Qt::LeftButton);
        QCOMPARE(probe().cursor_A_pos(), 10);
        QCOMPARE(probe().cursor_B_pos(), 0);
        probe().cursor_dial()->trueValue = std::numeric_limits<int>::max();
        input::wheel(viewport(), 120);
        QCOMPARE(probe().cursor_dial()->trueValue, std::numeric_limits<int>::max());
        probe().scale_wheel_action()->trigger();
        window().setPlotRange(5000, 5500);
        input::wheel(viewport(), 120);
        QCOMPARE(probe().scrollfactorX(), 0);
    }

    void theWheelOnAnyOtherControlMovesNothing()
    {
        openOn(tracesOfSteps({ 5.0F }));
        window().cursorSetup_slot(40);
        const int parameter = probe().param_dial()->trueValue;
        QWidget *const others[] = { probe().legend_button(), probe().KU_button(),
                                    probe().scale_button(), probe().curA_button() };
        for (QWidget *other : others) {
            input::wheel(other, 120);
            QCOMPARE(probe().cursor_dial()->trueValue, 40);
            QCOMPARE(probe().param_dial()->trueValue, parameter);
            QCOMPARE(probe().master_scale(), 2);
        }
    }

    void theWheelOnTheParameterDial_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("delta");
        QTest::addColumn<int>("to");
        QTest::newRow("shift right by a sample") << 7 << 8 << 120 << 12;
        QTest::newRow("shift left by a sample") << 7 << 8 << -120 << 4;
        QTest::newRow("shift past its end") << 7 << 63998 << 120 << 64000;
        QTest::newRow("shift past its start") << 7 << -63998 << -120 << -64000;
        QTest::newRow("up") << 3 << 8 << 120 << 9;
        QTest::newRow("up past the end") << 3 << 256 << 120 << 256;
        QTest::newRow("down past the end") << 3 << -256 << -120 << -256;
        QTest::newRow("factor") << 1 << 498 << 120 << 499;
        QTest::newRow("factor past its end") << 1 << 9000 << 120 << 9000;
        QTest::newRow("scale") << 8 << 2 << 120 << 3;
        QTest::newRow("scale past its end") << 8 << 8 << 120 << 8;
        QTest::newRow("scale past its start") << 8 << 0 << -120 << 0;
    }

    void theWheelOnTheParameterDial()
    {
        QFETCH(const int, id);
        QFETCH(const int, from);
        QFETCH(const int, delta);
        QFETCH(const int, to);
        openOn(tracesOfSteps({ 5.0F }));
        QTest::mouseClick(probe().down_buttons()->button(id), Qt::LeftButton);
        probe().param_dial()->trueValue = from;
        input::wheel(probe().param_dial(), delta);
        QCOMPARE(probe().param_dial()->trueValue, to);
        const rfg_SHOWN &trace = probe().rfg_DATA()[0];
        if (id == 7)
            QCOMPARE(trace.scroll, to);
        else if (id == 3)
            QCOMPARE(trace.offset, to);
        else if (id == 1)
            QCOMPARE(probe().master_params().KU + 0.0F, float(to / 1000.0 + 1.0));
        else
            QCOMPARE(probe().master_scale(), to);
    }
};

QTEST_MAIN(TestWheel)
#include "tst_wheel.moc"
