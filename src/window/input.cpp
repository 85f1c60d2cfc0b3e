// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "calc/numeric.h"
#include "calc/view_range.h"
#include "cont_dial.h"
#include "curarrow.h"
#include "interfacebutton.h"
#include "legendbutton.h"
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

constexpr double fontShare = 0.018; ///< base font size as a share of the smaller window extent
constexpr int fontWidthNumerator = 15; ///< 15/16 of the width is compared with the height
constexpr int fontWidthDenominator = 16;
constexpr double deltaFontFactor = 2.0; ///< of the base font size, for the cursor distance
constexpr double navigationFontFactor = 1.5; ///< same, for "A" and "B" of the navigation buttons
constexpr float largeIconFactor = 3.0F; ///< same, icon side of trace and navigation buttons
constexpr float smallIconFactor = 2.0F; ///< same, icon side of parameter and cursor buttons
/// Pixels by which the chart is wider and higher than its view. About half of them are on each side
/// of the view, so that the frame of the chart is outside.
constexpr double chartExtraWidth = 20.5;
constexpr double chartExtraHeight = 20.0;

constexpr QRgb linkOnDark = 0xFF5ADCFF;

/// Makes links in rich text readable on \a background. Their colour is that of the palette of the
/// application, whose blue is unreadable on a dark background.
void adaptLinks(const QColor &background)
{
    QPalette palette = QApplication::palette();
    const QColor readable = background.lightness() < 128 ? QColor::fromRgb(linkOnDark) : Qt::blue;
    if (palette.color(QPalette::Link) == readable)
        return;
    palette.setColor(QPalette::Link, readable);
    QApplication::setPalette(palette);
}

QString chartReport(const MainWindowParts &parts)
{
    const QRectF plot = parts.Plot_Chart->plotArea();
    const QSizeF chart = parts.Plot_Chart->size();
    return QStringLiteral("plot %1,%2 %3x%4 chart %5x%6 frame %7 axis %8")
        .arg(plot.x())
        .arg(plot.y())
        .arg(plot.width())
        .arg(plot.height())
        .arg(chart.width())
        .arg(chart.height())
        .arg(chart.width() - plot.width())
        .arg(parts.cust_axisX->max());
}

void resizeChart(const MainWindowParts &parts)
{
    parts.Plot_Scene->setSceneRect(parts.Plot_View->sceneRect());
    parts.Plot_Chart->resize(parts.Plot_View->width() + chartExtraWidth,
                             parts.Plot_View->height() + chartExtraHeight);
    parts.Plot_Chart->setPos(constants::chartPosition, constants::chartPosition);
}

void resizeSpacers(const MainWindowParts &parts)
{
    for (QSpacerItem *spacer : { parts.blank_1, parts.blank_2, parts.blank_3 })
        spacer->changeSize(10, parts.selected_rfg[0]->height() / 5, QSizePolicy::Minimum,
                           QSizePolicy::Minimum);
}

/// Derives all fonts from \a font and the base \a size, in points.
void scaleFonts(const MainWindowParts &parts, QFont font, float size)
{
    const auto sized = [&font, size](double factor) {
        font.setPointSize(std::max(1, calc::truncated(factor * double{ size })));
        return font;
    };
    const QFont common = sized(1.0);
    const auto widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets)
        widget->setFont(common);
    parts.delta_lbl->setFont(sized(deltaFontFactor));
    parts.curA_nav_button->setFont(sized(navigationFontFactor));
    parts.curB_nav_button->setFont(sized(navigationFontFactor));
}

/// Derives all icons from the base font \a size, in points.
void scaleIcons(const MainWindowParts &parts, float size)
{
    const auto square = [size](float factor) {
        const int side = calc::truncated(factor * size);
        return QSize(side, side);
    };
    const QSize large = square(largeIconFactor);
    const QSize small = square(smallIconFactor);
    for (LegendButton *button : parts.selected_rfg)
        button->setIconSize(large);
    for (QPushButton *button : { parts.scale_up_button, parts.scale_down_button,
                                 parts.scroll_left_button, parts.scroll_right_button })
        button->setIconSize(large);
    const auto parameterButtons = parts.down_buttons->buttons();
    for (QAbstractButton *button : parameterButtons)
        button->setIconSize(small);
    for (QPushButton *button : { static_cast<QPushButton *>(parts.curA_button),
                                 static_cast<QPushButton *>(parts.curB_button),
                                 parts.settings_button, parts.difference_button })
        button->setIconSize(small);
}

void setPointerShape(MainWindow &window, QCursor &cursor, Qt::CursorShape shape)
{
    cursor.setShape(shape);
    window.setCursor(cursor);
}

} // namespace

// Consumes nothing: every event also reaches its target.
bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Plot_View->viewport()) {
        if (event->type() == QEvent::Resize && Plot_Chart) {
            // Not in a helper function: the log shows the name of this function.
            qDebug() << "1 before resize" << qUtf8Printable(chartReport(*this));
            resizeChart(*this);
            qDebug() << "2 after resize" << qUtf8Printable(chartReport(*this));
            trueWidth = static_cast<float>(Plot_Chart->plotArea().width());
            qDebug() << "5 after correction" << qUtf8Printable(chartReport(*this)) << "view"
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
        setPointerShape(*this, chart_cursor_plot, Qt::ArrowCursor);
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
            resizeSpacers(*this);
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
        } else if (static_cast<QMouseEvent *>(event)->buttons() == Qt::RightButton) {
            openEntryDialog(watched);
        }
        break;
    default:
        break;
    }
}

void MainWindow::scaleInterface()
{
    const int extent = std::min(width() * fontWidthNumerator / fontWidthDenominator, height());
    const float former = font_size;
    font_size = static_cast<float>(extent * fontShare);
    const float ratio = former == 0.0F ? 1.0F : font_size / former;

    scaleFonts(*this, font(), font_size);
    scaleIcons(*this, font_size);
    setChartFonts();
    const QRectF plot = plotInScene();
    axisSetup(plot, Plot_Chart->mapToScene(Plot_Chart->geometry()).boundingRect());
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
        setPointerShape(*this, chart_cursor_plot, Qt::ClosedHandCursor);
        plotScroll(calc::panStep(master_scale, point.x() - mp, trueWidth));
    } else if (event->buttons() == Qt::LeftButton) {
        // Also outside the plot area, so that a drag that leaves it still moves the cursor.
        setPointerShape(*this, chart_cursor_plot, Qt::ClosedHandCursor);
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
    if (drawsDifferences())
        step = std::max(step, stepOf(rfg_master_ID));
    cursor_dial->trueValue
        = calc::saturated(qint64{ cursor_dial->trueValue } + qint64{ notches } * step);
    cursorSetup_slot(cursor_dial->trueValue);
}

void MainWindow::paramWheel(int notches)
{
    const int step = checkedParameter() == H_OFFSET ? stepOf(rfg_ID) : 1;
    const qint64 value = qint64{ param_dial->trueValue } + qint64{ notches } * step;
    const qint64 clamped = value > param_dial->trueMax ? param_dial->trueMax
        : value < param_dial->trueMin                  ? param_dial->trueMin
                                                       : value;
    param_dial->trueValue = static_cast<int>(clamped);
    paramSetup_slot(param_dial->trueValue);
}
