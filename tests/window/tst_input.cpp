// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "contrast.h"
#include "dialoganswer.h"
#include "each.h"
#include "input_events.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "windowtest.h"

#include <QAction>
#include <QButtonGroup>
#include <QGraphicsView>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QtTest>

#include <limits>

/// Mouse and wheel on the chart, the dials and the logo.
class TestInput : public WindowTest
{
    Q_OBJECT

private:
    int shape() const
    {
        return int(window().cursor().shape());
    }

private slots:
    void leftPressOutsideThePlotAndMoveWithoutButtonsMoveNothing()
    {
        openOn(tracesOfSteps({ 1.25F }));
        window().cursorSetup_slot(100);
        for (const QPoint place :
             { QPoint(1, 100), QPoint(100, 1), viewport()->rect().bottomRight() - QPoint(1, 1) }) {
            QVERIFY(!probe().Plot_Chart()->plotArea().contains(
                probe().Plot_Chart()->mapFromParent(QPointF(place))));
            input::press(viewport(), place, Qt::LeftButton);
            QCOMPARE(probe().cursor_A_pos(), 100);
            QCOMPARE(probe().mp(), place.x() + 10);
        }
        input::move(viewport(), QPoint(77, 60), Qt::NoButton);
        QCOMPARE(probe().cursor_A_pos(), 100);
        QCOMPARE(probe().mp(), 87);
        QCOMPARE(shape(), int(Qt::ArrowCursor));
    }

    void leftDragMovesTheCursorInsideAndOutsideThePlot()
    {
        openOn(tracesOfSteps({ 1.25F }));
        const QPoint start = input::pixelOf(probe(), 50);
        input::press(viewport(), start, Qt::LeftButton);
        QCOMPARE(probe().cursor_A_pos(), input::countAt(probe(), start.x()));
        QVERIFY(qAbs(probe().cursor_A_pos() - 50) <= 1);
        QCOMPARE(shape(), int(Qt::ArrowCursor));
        for (const int count : { 60, 90, 200, 120 }) {
            const QPoint place = input::pixelOf(probe(), count);
            input::move(viewport(), place, Qt::LeftButton);
            QCOMPARE(probe().cursor_A_pos(), input::countAt(probe(), place.x()));
            QCOMPARE(shape(), int(Qt::ClosedHandCursor));
        }
        // Above the upper edge of the view, still at a column of the plot.
        input::move(viewport(), QPoint(input::pixelOf(probe(), 150).x(), -40), Qt::LeftButton);
        QVERIFY(qAbs(probe().cursor_A_pos() - 150) <= 1);
        // Left of the first column.
        input::move(viewport(), QPoint(-300, 100), Qt::LeftButton);
        QCOMPARE(probe().cursor_A_pos(), 0);
        input::release(viewport(), QPoint(-300, 100), Qt::LeftButton);
        QCOMPARE(shape(), int(Qt::ArrowCursor));
        window().cursorSelect_slot(2);
        input::press(viewport(), start, Qt::LeftButton);
        QVERIFY(qAbs(probe().cursor_B_pos() - 50) <= 1);
    }

    void twoButtonsAtOnceDoNothing()
    {
        openOn(tracesOfSteps({ 1.25F }));
        window().cursorSetup_slot(100);
        window().setPlotRange(500, 750);
        const QPoint place = input::pixelOf(probe(), 600);
        for (const Qt::MouseButtons held :
             { Qt::LeftButton | Qt::RightButton, Qt::LeftButton | Qt::MiddleButton,
               Qt::RightButton | Qt::MiddleButton }) {
            for (const Qt::MouseButton cause : { Qt::LeftButton, Qt::RightButton })
                input::mouse(viewport(), QEvent::MouseButtonPress, place, cause, held);
            input::move(viewport(), place + QPoint(40, 0), held);
            QVERIFY(!probe().chartMenu()->isVisible());
        }
        QCOMPARE(probe().cursor_A_pos(), 100);
        QCOMPARE(probe().scrollfactorX(), 500);
        QCOMPARE(shape(), int(Qt::ArrowCursor));
    }

    void draggingRightWithTheMiddleButtonScrollsRight()
    {
        openOn(tracesOfSteps({ 1.25F }));
        for (const int level : { 0, 3, 6 }) {
            window().scale_change(level);
            const int width = 250 << level;
            window().setPlotRange(20000, 20000 + width);
            input::press(viewport(), QPoint(200, 100), Qt::MiddleButton);
            QCOMPARE(shape(), int(Qt::ArrowCursor));
            // The chart begins 10.25 pixels left of the view, and the last position is truncated to
            // a whole pixel, so each move counts 0.25 pixels more.
            const double countsPerPixel = width / probe().Plot_Chart()->plotArea().width();
            int left = 20000 + int(countsPerPixel * 30.25);
            input::move(viewport(), QPoint(230, 90), Qt::MiddleButton);
            QCOMPARE(probe().scrollfactorX(), left);
            QCOMPARE(shape(), int(Qt::ClosedHandCursor));
            left += int(countsPerPixel * -49.75);
            input::move(viewport(), QPoint(180, 90), Qt::MiddleButton);
            QCOMPARE(probe().scrollfactorX(), left);
            QCOMPARE(probe().cust_axisX()->max(), double(left + width));
            input::release(viewport(), QPoint(180, 90), Qt::MiddleButton);
            QCOMPARE(shape(), int(Qt::ArrowCursor));
        }
        // A pan past an end is refused.
        window().scale_change(0);
        window().setPlotRange(5, 255);
        input::press(viewport(), QPoint(300, 100), Qt::MiddleButton);
        input::move(viewport(), QPoint(200, 100), Qt::MiddleButton);
        QCOMPARE(probe().scrollfactorX(), 5);
    }

    void rightButtonOpensTheChartMenuAtThePointer()
    {
        openOn(tracesOfSteps({ 1.25F }));
        const QPoint pointer(333, 222);
        QCursor::setPos(pointer);
        QPoint corner;
        const auto answer = answerMenu([this, &corner](QMenu &menu) {
            QCOMPARE(&menu, probe().chartMenu());
            corner = menu.pos();
            QCOMPARE(menu.font(), window().font());
            QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier,
                              menu.actionGeometry(probe().curB_action()).center());
        });
        input::press(viewport(), QPoint(100, 100), Qt::RightButton);
        QVERIFY(answer->served());
        QCOMPARE(corner, QCursor::pos());
        QCOMPARE(corner, pointer);
        QCOMPARE(int(probe().Cur_flag()), int(MainWindow::CURSOR_B));
    }

    // ---- Wheel ----

    void notchMovesTheCursorByOneSample()
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

    void differenceModeUsesTheCoarserSample()
    {
        // The master has the coarser step, then the selected trace.
        for (const QVector<float> &steps : { QVector<float>{ 10.0F, 2.5F }, { 2.5F, 10.0F } }) {
            openOn(tracesOfSteps(steps));
            input::click(probe().selected_rfg()[1]);
            input::click(probe().difference_button());
            window().cursorSetup_slot(400);
            input::wheel(viewport(), 120);
            QCOMPARE(probe().cursor_dial()->trueValue, 408);
            input::wheel(probe().cursor_dial(), -120);
            QCOMPARE(probe().cursor_dial()->trueValue, 400);
        }
    }

    void wheelThatScalesCentresTheCursor()
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
        probe().cur_wheel_action()->trigger();
        input::wheel(viewport(), 120);
        QCOMPARE(probe().master_scale(), 0);
        QCOMPARE(probe().cursor_A_pos(), 3001);
    }

    void wheelOnTheCursorDialAlwaysMovesTheCursor()
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

    void withoutACursorTheWheelStepsOnlyTheDial()
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

    void wheelOnAnyOtherControlMovesNothing()
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

    void wheelOnTheParameterDialStepsTheParameter()
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
                input::click(probe().down_buttons()->button(row.id));
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

    // ---- Other controls ----

    void anyPressOnTheLogoOpensAboutQt()
    {
        fixture->open();
        for (const Qt::MouseButton button : { Qt::LeftButton, Qt::RightButton, Qt::MiddleButton }) {
            bool isAbout = false;
            const auto answer = answerDialog([this, &isAbout](QDialog &dialog) {
                const auto *box = qobject_cast<QMessageBox *>(&dialog);
                isAbout = box != nullptr && box->parentWidget() == &window()
                    && box->text().contains(QStringLiteral("Qt"))
                    // Qt sets this title because the viewer's is empty.
                    && box->windowTitle() == QStringLiteral("About Qt");
                dialog.reject();
            });
            QTest::mousePress(probe().logo_lbl(), button);
            QVERIFY(answer->served());
            QVERIFY(isAbout);
        }
    }

    void linksInTheAboutBoxAreReadableOnEveryBackground()
    {
        fixture->open();
        for (const char *sheet : { "QWidget { background: rgb(64, 65, 66); color: white; }",
                                   "QWidget { background: white; color: black; }" }) {
            probe().settingsData()->current_CSS = QLatin1String(sheet);
            window().set_CSS();
            double best = 0.0;
            int points = 0;
            const auto answer = answerDialog([&](QDialog &dialog) {
                const QColor link = QApplication::palette().color(QPalette::Link);
                const QImage picture = dialog.grab().toImage();
                for (int y = 0; y < picture.height(); ++y)
                    for (int x = 0; x < picture.width(); ++x)
                        points += picture.pixelColor(x, y) == link ? 1 : 0;
                best = contrast(link.rgb(), picture.pixel(2, 2));
                dialog.reject();
            });
            QTest::mousePress(probe().logo_lbl(), Qt::LeftButton);
            QVERIFY(answer->served());
            // The underlines of the links.
            QVERIFY(points > 20);
            QVERIFY(best >= 4.5);
        }
    }
};

QTEST_MAIN(TestInput)
#include "tst_input.moc"
