// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "each.h"
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

    void inDifferenceModeTheCoarserSampleCounts()
    {
        // Of the master, then of the selected trace.
        for (const QVector<float> &steps : { QVector<float>{ 10.0F, 2.5F }, { 2.5F, 10.0F } }) {
            openOn(tracesOfSteps(steps));
            QTest::mouseClick(probe().selected_rfg()[1], Qt::LeftButton);
            QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
            window().cursorSetup_slot(400);
            input::wheel(viewport(), 120);
            QCOMPARE(probe().cursor_dial()->trueValue, 408);
            input::wheel(probe().cursor_dial(), -120);
            QCOMPARE(probe().cursor_dial()->trueValue, 400);
        }
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
        // The mark of the dial turns too.
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

    void theWheelOnTheParameterDial()
    {
        struct Row
        {
            const char *name;
            int id;
            int from;
            int delta;
            int to;
        };
        openOn(tracesOfSteps({ 5.0F }));
        each<Row>(
            {
                { "shift right by a sample", MainWindow::H_OFFSET, 8, 120, 12 },
                { "shift left by a sample", MainWindow::H_OFFSET, 8, -120, 4 },
                { "shift past its end", MainWindow::H_OFFSET, 63998, 120, 64000 },
                { "shift past its start", MainWindow::H_OFFSET, -63998, -120, -64000 },
                { "up", MainWindow::V_OFFSET, 8, 120, 9 },
                { "up past the end", MainWindow::V_OFFSET, 256, 120, 256 },
                { "down past the end", MainWindow::V_OFFSET, -256, -120, -256 },
                { "factor", MainWindow::KU, 498, 120, 499 },
                { "factor past its end", MainWindow::KU, 9000, 120, 9000 },
                { "scale", MainWindow::SCALE, 2, 120, 3 },
                { "scale past its end", MainWindow::SCALE, 8, 120, 8 },
                { "scale past its start", MainWindow::SCALE, 0, -120, 0 },
            },
            [this](const Row &row) {
                QTest::mouseClick(probe().down_buttons()->button(row.id), Qt::LeftButton);
                probe().param_dial()->trueValue = row.from;
                input::wheel(probe().param_dial(), row.delta);
                QCOMPARE(probe().param_dial()->trueValue, row.to);
                const rfg_SHOWN &trace = probe().rfg_DATA()[0];
                const float factor = probe().master_params().KU;
                if (row.id == MainWindow::KU)
                    QCOMPARE(factor, float(row.to / 1000.0 + 1.0));
                else
                    QCOMPARE(row.id == MainWindow::H_OFFSET       ? trace.scroll
                                 : row.id == MainWindow::V_OFFSET ? trace.offset
                                                                  : probe().master_scale(),
                             row.to);
            });
    }
};

QTEST_MAIN(TestWheel)
#include "tst_wheel.moc"
