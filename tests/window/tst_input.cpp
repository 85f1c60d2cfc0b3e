// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "contrast.h"
#include "dialoganswer.h"
#include "inputevents.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "windowtest.h"

#include <QButtonGroup>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QtTest>

namespace {

/// Counts the events of some types that arrive at an object.
class Arrivals : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        types << event->type();
        return QObject::eventFilter(watched, event);
    }

    QVector<QEvent::Type> types;
};

/// A window that counts the events that its filter consumes.
class CountingWindow : public MainWindow
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool held = MainWindow::eventFilter(watched, event);
        seen += 1;
        consumed += held ? 1 : 0;
        return held;
    }

    int seen = 0;
    int consumed = 0;
};

} // namespace

class TestInput : public WindowTest
{
    Q_OBJECT

private:
    int shape() const
    {
        return int(window().cursor().shape());
    }

private slots:
    void aLeftPressInThePlotPutsTheCursorThere()
    {
        openOn(tracesOfSteps({ 1.25F }));
        const QPoint place = input::pixelOf(probe(), 100);
        input::press(viewport(), place, Qt::LeftButton);
        QCOMPARE(probe().cursor_A_pos(), input::countAt(probe(), place.x()));
        QVERIFY(qAbs(probe().cursor_A_pos() - 100) <= 1);
        QCOMPARE(probe().mp(), place.x() + 10);
        window().cursorSelect_slot(2);
        input::press(viewport(), input::pixelOf(probe(), 30), Qt::LeftButton);
        QVERIFY(qAbs(probe().cursor_B_pos() - 30) <= 1);
    }

    void aLeftPressOutsideThePlotMovesNothing()
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
    }

    void aLeftDragTakesTheCursorAlongInsideAndOutsideThePlot()
    {
        openOn(tracesOfSteps({ 1.25F }));
        const QPoint start = input::pixelOf(probe(), 50);
        input::press(viewport(), start, Qt::LeftButton);
        QCOMPARE(shape(), int(Qt::ArrowCursor));
        for (const int count : { 60, 90, 200, 120 }) {
            const QPoint place = input::pixelOf(probe(), count);
            input::move(viewport(), place, Qt::LeftButton);
            QCOMPARE(probe().cursor_A_pos(), input::countAt(probe(), place.x()));
            QCOMPARE(shape(), int(Qt::ClosedHandCursor));
        }
        // Over the upper edge of the view, still at a column of the plot.
        input::move(viewport(), QPoint(input::pixelOf(probe(), 150).x(), -40), Qt::LeftButton);
        QVERIFY(qAbs(probe().cursor_A_pos() - 150) <= 1);
        // Far to the left is before the first column.
        input::move(viewport(), QPoint(-300, 100), Qt::LeftButton);
        QCOMPARE(probe().cursor_A_pos(), 0);
        input::release(viewport(), QPoint(-300, 100), Qt::LeftButton);
        QCOMPARE(shape(), int(Qt::ArrowCursor));
    }

    void aMoveWithoutButtonsMovesNothing()
    {
        openOn(tracesOfSteps({ 1.25F }));
        window().cursorSetup_slot(100);
        input::move(viewport(), QPoint(77, 60), Qt::NoButton);
        QCOMPARE(probe().cursor_A_pos(), 100);
        QCOMPARE(probe().mp(), 87);
        QCOMPARE(shape(), int(Qt::ArrowCursor));
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
            // The chart begins 10.25 pixels left of the view, and the last place is a whole number.
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
    }

    void aPanPastAnEndIsRefused()
    {
        openOn(tracesOfSteps({ 1.25F }));
        window().setPlotRange(5, 255);
        input::press(viewport(), QPoint(300, 100), Qt::MiddleButton);
        input::move(viewport(), QPoint(200, 100), Qt::MiddleButton);
        QCOMPARE(probe().scrollfactorX(), 5);
        window().scale_change(8);
        input::move(viewport(), QPoint(250, 100), Qt::MiddleButton);
        QCOMPARE(probe().scrollfactorX(), 0);
    }

    void theRightButtonOpensTheChartMenuAtThePointer()
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

    void anyPressOnTheLogoOpensAboutQt()
    {
        fixture->open();
        for (const Qt::MouseButton button : { Qt::LeftButton, Qt::RightButton, Qt::MiddleButton }) {
            bool isAbout = false;
            const auto answer = answerDialog([this, &isAbout](QDialog &dialog) {
                const auto *box = qobject_cast<QMessageBox *>(&dialog);
                isAbout = box != nullptr && box->parentWidget() == &window()
                    && box->text().contains(QStringLiteral("Qt"))
                    // Qt's own title takes the place of the empty one.
                    && box->windowTitle() == QStringLiteral("About Qt");
                dialog.reject();
            });
            QTest::mousePress(probe().logo_lbl(), button);
            QVERIFY(answer->served());
            QVERIFY(isAbout);
        }
    }

    void linksInTheAboutBoxCanBeReadOnEveryGround()
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
            // The lines under the links.
            QVERIFY(points > 20);
            QVERIFY(best >= 4.5);
        }
    }

    void everyEventReachesItsTarget()
    {
        openOn(tracesOfSteps({ 1.25F }));
        Arrivals scene;
        probe().Plot_Scene()->installEventFilter(&scene);
        input::press(viewport(), QPoint(100, 100), Qt::LeftButton);
        input::move(viewport(), QPoint(110, 100), Qt::LeftButton);
        input::release(viewport(), QPoint(110, 100), Qt::LeftButton);
        input::wheel(viewport(), 120);
        for (const QEvent::Type type :
             { QEvent::GraphicsSceneMousePress, QEvent::GraphicsSceneMouseMove,
               QEvent::GraphicsSceneMouseRelease, QEvent::GraphicsSceneWheel })
            QVERIFY2(scene.types.contains(type), qPrintable(QString::number(type)));
        probe().Plot_Scene()->removeEventFilter(&scene);
        // Dials turn their own position, buttons refuse a right press by themselves.
        input::wheel(probe().param_dial(), 120);
        QVERIFY(probe().param_dial()->value() != 0);
        const auto answer = answerDialog(cancelDialog);
        QVERIFY(!input::mouse(probe().KU_button(), QEvent::MouseButtonPress, QPoint(5, 5),
                              Qt::RightButton, Qt::RightButton));
        QVERIFY(answer->served());
        QTest::mouseClick(probe().curB_button(), Qt::LeftButton);
        QVERIFY(probe().curB_button()->isChecked());
    }

    void theFilterConsumesNothing()
    {
        CountingWindow counting;
        const MainWindowProbe p(counting);
        counting.show();
        QVERIFY(QTest::qWaitForWindowExposed(&counting));
        QWidget *view = p.Plot_View()->viewport();
        input::press(view, QPoint(100, 100), Qt::LeftButton);
        input::move(view, QPoint(120, 100), Qt::MiddleButton);
        input::release(view, QPoint(120, 100), Qt::MiddleButton);
        for (QWidget *widget : { view, static_cast<QWidget *>(p.param_dial()),
                                 static_cast<QWidget *>(p.cursor_dial()) })
            input::wheel(widget, 120);
        const auto menu = answerMenu([](QMenu &) {});
        input::press(view, QPoint(100, 100), Qt::RightButton);
        const auto about = answerDialog(cancelDialog);
        input::press(p.logo_lbl(), QPoint(5, 5), Qt::LeftButton);
        const auto entry = answerDialog(cancelDialog);
        input::press(p.curA_button(), QPoint(5, 5), Qt::RightButton);
        QEvent language(QEvent::LanguageChange);
        QApplication::sendEvent(p.legend_button(), &language);
        counting.resize(820, 520);
        WindowFixture::settle();
        QVERIFY(menu->served() && about->served() && entry->served());
        QVERIFY(counting.seen > 12);
        QCOMPARE(counting.consumed, 0);
    }
};

QTEST_MAIN(TestInput)
#include "tst_input.moc"
