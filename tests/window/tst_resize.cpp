// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "curarrow.h"
#include "each.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "windowtest.h"

#include <QApplication>
#include <QButtonGroup>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QPushButton>
#include <QSpacerItem>
#include <QtTest>

namespace {

/// Values derived from the size of the window: the base size, font sizes in points (pixels in the
/// grid), icon sizes in pixels.
struct Sizes
{
    const char *name;
    QSize window;
    float base;
    int widgets;
    int title;
    int grid;
    int delta;
    int navigation;
    int largeIcon;
    int smallIcon;
    int letter;
};

const Sizes smallest{ "800x500", { 800, 500 }, 9.0F, 9, 8, 10, 18, 13, 27, 18, 6 };

/// The lines of the debug log, each with the function that wrote it.
QStringList &caught()
{
    static QStringList lines;
    return lines;
}

void catchLine(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtDebugMsg)
        caught() << QLatin1String(context.function) + QLatin1String(": ") + text;
}

} // namespace

class TestResize : public WindowTest
{
    Q_OBJECT

private:
    void resizeTo(int width, int height)
    {
        window().resize(width, height);
        WindowFixture::settle();
    }
    /// The debug line about the chart.
    QString report() const
    {
        const QRectF area = probe().Plot_Chart()->plotArea();
        const QSizeF chart = probe().Plot_Chart()->size();
        return QStringLiteral("plot %1,%2 %3x%4 chart %5x%6 frame %7 axis %8")
            .arg(area.x())
            .arg(area.y())
            .arg(area.width())
            .arg(area.height())
            .arg(chart.width())
            .arg(chart.height())
            .arg(chart.width() - area.width())
            .arg(probe().cust_axisX()->max());
    }

    void verifySizes(const Sizes &sizes) const
    {
        const MainWindowProbe &p = probe();
        QCOMPARE(window().size(), sizes.window);
        QCOMPARE(p.font_size(), sizes.base);
        const auto all = QApplication::allWidgets();
        for (const QWidget *widget : all) {
            const bool isNavigation
                = widget == p.curA_nav_button() || widget == p.curB_nav_button();
            QCOMPARE(widget->font().pointSize(),
                     widget == p.delta_lbl() ? sizes.delta
                         : isNavigation      ? sizes.navigation
                                             : sizes.widgets);
        }
        QCOMPARE(p.chart_title().font().pointSize(), sizes.title);
        QVERIFY(p.chart_title().font().bold());
        QCOMPARE(p.cursor_step_lbl().font().pointSize(), sizes.title);
        for (const auto &label : p.axis_lbl())
            QCOMPARE(label.font().pixelSize(), sizes.grid);
        for (const auto &label : p.axis_0_lbl())
            QCOMPARE(label.font().pixelSize(), sizes.grid);
        const QSize large(sizes.largeIcon, sizes.largeIcon);
        for (const LegendButton *button : p.selected_rfg())
            QCOMPARE(button->iconSize(), large);
        for (const QPushButton *button : { p.scale_up_button(), p.scale_down_button(),
                                           p.scroll_left_button(), p.scroll_right_button() })
            QCOMPARE(button->iconSize(), large);
        const QSize small(sizes.smallIcon, sizes.smallIcon);
        for (int id = 0; id < 10; ++id)
            QCOMPARE(p.down_buttons()->button(id)->iconSize(), small);
        for (const QAbstractButton *button :
             { p.up_buttons()->button(1), p.up_buttons()->button(2),
               static_cast<QAbstractButton *>(p.settings_button()),
               static_cast<QAbstractButton *>(p.difference_button()) })
            QCOMPARE(button->iconSize(), small);
        for (const CurArrow *marker : { p.cur_arrowA(), p.cur_arrowB() })
            QCOMPARE(marker->cur_lbl.font().pointSize(), sizes.letter);
    }

private slots:
    void init()
    {
        startOver();
        openOn({});
    }

    void everythingGrowsWithTheWindow()
    {
        each<Sizes>({ smallest,
                      { "1280x720", { 1280, 720 }, 12.96F, 12, 11, 12, 25, 19, 38, 25, 9 },
                      { "1920x1080", { 1920, 1080 }, 19.44F, 19, 12, 19, 38, 29, 58, 38, 14 },
                      // 15/16 of the width, in whole pixels, is less than the height.
                      { "narrow", { 801, 1000 }, 13.5F, 13, 12, 13, 27, 20, 40, 27, 10 } },
                    [this](const Sizes &sizes) {
                        resizeTo(sizes.window.width(), sizes.window.height());
                        verifySizes(sizes);
                    });
    }

    void chartTitleAndGridFillTheView()
    {
        resizeTo(1000, 700);
        const QGraphicsView *view = probe().Plot_View();
        const QtCharts::QChart *chart = probe().Plot_Chart();
        QCOMPARE(chart->size(), QSizeF(view->width() + 20.5, view->height() + 20.0));
        QCOMPARE(chart->pos(), QPointF(-10.25, -10.25));
        QCOMPARE(probe().Plot_Scene()->sceneRect(), view->sceneRect());
        QCOMPARE(double{ probe().trueWidth() }, plot().width());
        QCOMPARE(double{ probe().plotLeft() }, plot().left());

        const auto &title = probe().chart_title();
        QCOMPARE(title.x(), plot().left() + double{ probe().font_size() });
        QCOMPARE(title.y(), plot().top() - title.boundingRect().height() - 2.0);
        // The label of the step stays in its corner when its text changes.
        for (const double factor : { 1.49896229, 1.0 }) {
            window().KU_change(factor);
            const QRectF step = probe().cursor_step_lbl().boundingRect();
            const int left = int(step.width()) + int(step.height()) / 2;
            QCOMPARE(probe().cursor_step_lbl().pos(), QPointF(plot().right() - left, plot().top()));
        }
        window().KU_change(1.49896229);
        for (const auto &line : probe().axis_lines())
            QCOMPARE(line.line(),
                     QLineF(plot().left(), plot().bottom(), plot().left(), plot().top()));
    }

    void markersMoveAndGrowWithTheWindow()
    {
        window().cursorSetup_slot(125);
        const CurArrow *marker = probe().cur_arrowA();
        QCOMPARE(marker->scale, 1.0F);
        resizeTo(1280, 720);
        QVERIFY(qAbs(marker->scale - 1.44F) < 0.001F);
        QVERIFY(qAbs(marker->cur_arrow2.scale() + 1.44) < 0.001);
        QCOMPARE(marker->field, plot());
        QCOMPARE(marker->cur_arrow1.y(), plot().top());
        const double column = 125 * plot().width() / 250 + int(plot().left() + 1.0);
        QVERIFY(qAbs(marker->cur_arrow1.x() - column) < 0.01);
        QVERIFY(marker->cur_arrow1.isVisible());
        resizeTo(800, 500);
        QVERIFY(qAbs(marker->scale - 1.0F) < 0.001F);
    }

    // The scale of a marker is an accumulated product of floats.
    void twentyResizesAndBackChangeNothing()
    {
        for (int trip = 0; trip < 20; ++trip) {
            resizeTo(3840, 2160);
            QCOMPARE(probe().font_size(), 38.88F);
            resizeTo(800, 500);
        }
        verifySizes(smallest);
        QVERIFY(qAbs(probe().cur_arrowA()->cur_arrow1.scale() - 1.0) < 1e-5);
    }

    void spacersAreAFifthOfATraceButton()
    {
        const QSpacerItem *const spacers[]
            = { probe().blank_1(), probe().blank_2(), probe().blank_3() };
        for (const int height : { 560, 900 }) {
            resizeTo(800, height);
            const int expected = probe().selected_rfg()[0]->height() / 5;
            for (const QSpacerItem *spacer : spacers) {
                QCOMPARE(spacer->sizeHint().width(), 10);
                // The files button is laid out before the trace buttons and reads their old size.
                QVERIFY(qAbs(spacer->sizeHint().height() - expected) < 20);
                QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
                QCOMPARE(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
            }
        }
        // A resize of the files button alone sets exactly a fifth.
        QResizeEvent event(QSize(50, 50), QSize(40, 40));
        QApplication::sendEvent(probe().legend_button(), &event);
        for (const QSpacerItem *spacer : spacers)
            QCOMPARE(spacer->sizeHint(), QSize(10, probe().selected_rfg()[0]->height() / 5));
    }

    void sizesAreLogged()
    {
        const QString before = report();
        caught().clear();
        qInstallMessageHandler(catchLine);
        resizeTo(1000, 700);
        qInstallMessageHandler(nullptr);
        // New fonts can change the layout by a pixel, which resizes the view once more.
        const auto last = caught().size() - 3;
        QVERIFY(last >= 0 && last % 3 == 0);
        const QString filter
            = QStringLiteral("virtual bool MainWindow::eventFilter(QObject*, QEvent*): ");
        QCOMPARE(caught()[0], filter + QStringLiteral("1 before resize ") + before);
        QCOMPARE(caught()[last + 1], filter + QStringLiteral("2 after resize ") + report());
        QCOMPARE(caught()[last + 2],
                 filter
                     + QStringLiteral("5 after correction %1 view QSize(%2, %3)")
                           .arg(report())
                           .arg(probe().Plot_View()->width())
                           .arg(probe().Plot_View()->height()));
        // The sizes are also logged on request.
        caught().clear();
        qInstallMessageHandler(catchLine);
        window().reportSizes();
        qInstallMessageHandler(nullptr);
        QCOMPARE(caught().size(), 2);
        QVERIFY2(caught()[0].contains(QStringLiteral("1000, 700")), qPrintable(caught()[0]));
    }
};

QTEST_MAIN(TestResize)
#include "tst_resize.moc"
