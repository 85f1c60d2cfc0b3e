// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/numeric.h"
#include "calc/view_range.h"
#include "cont_dial.h"
#include "curarrow.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "mainwindow.h"
#include "parambutton.h"

#include <QApplication>
#include <QButtonGroup>
#include <QDebug>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QSpacerItem>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr QRgb linkOnDark = 0xFF5ADCFF;

/// Rich text takes the colour of links from the palette of the application. Its blue cannot be read
/// on a dark \a ground.
void adaptLinks(const QColor &ground)
{
    QPalette palette = QApplication::palette();
    const QColor readable = ground.lightness() < 128 ? QColor::fromRgb(linkOnDark) : Qt::blue;
    if (palette.color(QPalette::Link) == readable)
        return;
    palette.setColor(QPalette::Link, readable);
    QApplication::setPalette(palette);
}

} // namespace

// Consumes nothing: every event also reaches its target.
bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Plot_View->viewport()) {
        if (event->type() == QEvent::Resize && Plot_Chart) {
            // Written here and not in a helper: the log shows the name of this function.
            qDebug() << "1 before resize" << qUtf8Printable(chartReport());
            resizeChart();
            qDebug() << "2 after resize" << qUtf8Printable(chartReport());
            trueWidth = static_cast<float>(Plot_Chart->plotArea().width());
            qDebug() << "5 after correction" << qUtf8Printable(chartReport()) << "view"
                     << Plot_View->size();
        }
        filterViewport(event);
    } else {
        filterControls(watched, event);
    }
    return QObject::eventFilter(watched, event);
}

void MainWindow::filterViewport(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Resize:
        scaleInterface();
        break;
    case QEvent::MouseMove:
        plotMouseMove(static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseButtonPress:
        plotMousePress(static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseButtonRelease:
        setPointerShape(Qt::ArrowCursor);
        break;
    case QEvent::Wheel:
        plotWheel(static_cast<QWheelEvent *>(event));
        break;
    default:
        break;
    }
}

void MainWindow::filterControls(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::LanguageChange:
        if (watched == legend_button)
            retranslateUi();
        break;
    case QEvent::Resize:
        if (watched == legend_button)
            resizeSpacers();
        break;
    case QEvent::Wheel: {
        const int notch = sign(static_cast<QWheelEvent *>(event)->angleDelta().y());
        if (watched == cursor_dial)
            cursorWheel(notch);
        else if (watched == param_dial)
            paramWheel(notch);
        break;
    }
    case QEvent::MouseButtonPress:
        if (watched == logo_lbl) {
            adaptLinks(palette().color(QPalette::Window));
            QMessageBox::aboutQt(this, QLatin1String(""));
        } else if (static_cast<QMouseEvent *>(event)->buttons() == Qt::RightButton)
            openEntryDialog(watched);
        break;
    default:
        break;
    }
}

QString MainWindow::chartReport() const
{
    const QRectF plot = Plot_Chart->plotArea();
    const QSizeF chart = Plot_Chart->size();
    return QStringLiteral("plot %1,%2 %3x%4 chart %5x%6 frame %7 axis %8")
        .arg(plot.x())
        .arg(plot.y())
        .arg(plot.width())
        .arg(plot.height())
        .arg(chart.width())
        .arg(chart.height())
        .arg(chart.width() - plot.width())
        .arg(cust_axisX->max());
}

void MainWindow::resizeChart()
{
    Plot_Scene->setSceneRect(Plot_View->sceneRect());
    Plot_Chart->resize(Plot_View->width() + constants::chartExtraWidth,
                       Plot_View->height() + constants::chartExtraHeight);
    Plot_Chart->setPos(constants::chartPosition, constants::chartPosition);
}

void MainWindow::scaleInterface()
{
    const int extent = std::min(
        width() * constants::fontWidthNumerator / constants::fontWidthDenominator, height());
    const float former = font_size;
    font_size = static_cast<float>(extent * constants::fontShare);
    const float ratio = former == 0.0F ? 1.0F : font_size / former;

    scaleFonts();
    placeTitle();
    scaleIcons();
    setAxisFonts();
    axisSetup(plotInScene(), Plot_Chart->mapToScene(Plot_Chart->geometry()).boundingRect());
    scaleMarkers(ratio);
}

void MainWindow::scaleFonts()
{
    const auto sized = [this](double factor) {
        QFont font = this->font();
        font.setPointSize(std::max(1, calc::truncated(factor * double{ font_size })));
        return font;
    };
    const QFont common = sized(1.0);
    const auto widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets)
        widget->setFont(common);
    delta_lbl->setFont(sized(constants::deltaFontFactor));
    curA_nav_button->setFont(sized(constants::navigationFontFactor));
    curB_nav_button->setFont(sized(constants::navigationFontFactor));
}

void MainWindow::scaleIcons()
{
    const auto square = [this](float factor) {
        const int side = calc::truncated(factor * font_size);
        return QSize(side, side);
    };
    const QSize large = square(constants::largeIconFactor);
    const QSize small = square(constants::smallIconFactor);
    for (LegendButton *button : selected_rfg)
        button->setIconSize(large);
    for (QPushButton *button :
         { scale_up_button, scale_down_button, scroll_left_button, scroll_right_button })
        button->setIconSize(large);
    const auto parameterButtons = down_buttons->buttons();
    for (QAbstractButton *button : parameterButtons)
        button->setIconSize(small);
    for (QPushButton *button :
         { static_cast<QPushButton *>(curA_button), static_cast<QPushButton *>(curB_button),
           settings_button, difference_button })
        button->setIconSize(small);
}

void MainWindow::scaleMarkers(float ratio)
{
    const QRectF plot = plotInScene();
    for (CurArrow *marker : { cur_arrowA, cur_arrowB }) {
        const int cursor = marker->id;
        marker->setFont(font_size);
        marker->setRect(plot);
        marker->setScale(ratio);
        marker->moveX(static_cast<float>(cursorPosition(cursor) - cust_axisX->min()));
        marker->vis_state(isCursor_visible(cursor));
    }
}

void MainWindow::plotMouseMove(const QMouseEvent *event)
{
    const QPointF point = Plot_Chart->mapFromParent(QPointF(event->pos()));
    if (event->buttons() == Qt::MiddleButton) {
        setPointerShape(Qt::ClosedHandCursor);
        plotScroll(calc::panStep(master_scale, point.x() - mp, trueWidth));
    } else if (event->buttons() == Qt::LeftButton) {
        // Outside the plot area too, so that a drag that leaves it keeps the cursor.
        setPointerShape(Qt::ClosedHandCursor);
        cursorSetup_slot(calc::truncated(Plot_Chart->mapToValue(point).x()));
    }
    mp = calc::truncated(point.x());
}

void MainWindow::plotMousePress(const QMouseEvent *event)
{
    const QPointF point = Plot_Chart->mapFromParent(QPointF(event->pos()));
    mp = calc::truncated(point.x());
    if (event->buttons() == Qt::RightButton) {
        chartMenu->setFont(font());
        chartMenu->exec(QCursor::pos());
    } else if (event->buttons() == Qt::LeftButton && Plot_Chart->plotArea().contains(point)) {
        cursorSetup_slot(calc::truncated(Plot_Chart->mapToValue(point).x()));
    }
}

void MainWindow::plotWheel(const QWheelEvent *event)
{
    const int notch = sign(event->angleDelta().y());
    if (!zoom_wheel_flag) {
        cursorWheel(notch);
        return;
    }
    zoomAtCursor(master_scale + notch);
}

void MainWindow::cursorWheel(int notches)
{
    int step = stepOf(rfg_ID);
    if (diff_flag == DIFF && masterExists())
        step = std::max(step, stepOf(rfg_master_ID));
    cursor_dial->trueValue
        = calc::saturated(qint64{ cursor_dial->trueValue } + qint64{ notches } * step);
    cursorSetup_slot(cursor_dial->trueValue);
}

void MainWindow::paramWheel(int notches)
{
    const int step = checkedParameter() == H_OFFSET ? stepOf(rfg_ID) : 1;
    const qint64 value = qint64{ param_dial->trueValue } + qint64{ notches } * step;
    // The upper end first: where the lower end is above it, the lower end wins.
    const qint64 clamped = value > param_dial->trueMax ? param_dial->trueMax
        : value < param_dial->trueMin                  ? param_dial->trueMin
                                                       : value;
    param_dial->trueValue = static_cast<int>(clamped);
    paramSetup_slot(param_dial->trueValue);
}

void MainWindow::setPointerShape(Qt::CursorShape shape)
{
    chart_cursor_plot.setShape(shape);
    setCursor(chart_cursor_plot);
}

void MainWindow::resizeSpacers()
{
    for (QSpacerItem *spacer : { blank_1, blank_2, blank_3 })
        spacer->changeSize(10, selected_rfg[0]->height() / 5, QSizePolicy::Minimum,
                           QSizePolicy::Minimum);
}
