// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "calc/axis_grid.h"
#include "calc/numeric.h"

#include <QGraphicsScene>

#include <algorithm>

QT_CHARTS_USE_NAMESPACE

namespace {

constexpr double titleShare = 0.9; ///< chart title's font as a part of the base size
constexpr double maxTitlePoints = 12.0;
constexpr double minGridPixels = 10.0; ///< grid labels are never smaller than this
constexpr double titleGap = 2.0; ///< pixels between chart title and plot

void hidePair(QGraphicsLineItem &line, QGraphicsSimpleTextItem &label)
{
    line.hide();
    label.hide();
}

/// Point size of title and step label at the base font \a size, in points.
int titlePoints(float size)
{
    // A very low window gives 0, which is no valid point size.
    return std::max(1, calc::truncated(std::min(double{ size } * titleShare, maxTitlePoints)));
}

} // namespace

void MainWindow::axisCreate()
{
    const auto add = [this](QGraphicsSimpleTextItem &label, QGraphicsLineItem &line) {
        Plot_Scene->addItem(&label);
        label.setBrush(cust_axisX->labelsBrush());
        Plot_Scene->addItem(&line);
        line.setZValue(0.0);
        // Grid lines lie under the traces.
        line.stackBefore(Plot_Chart);
        line.setPen(cust_axisX->gridLinePen());
    };
    for (int i = 0; i < constants::gridLines; ++i)
        add(axis_lbl[i], axis_lines[i]);
    for (int i = 0; i < constants::gridEdges; ++i)
        add(axis_0_lbl[i], axis_0_lines[i]);
}

QRectF MainWindow::plotInScene() const
{
    return Plot_Chart->mapToScene(Plot_Chart->plotArea()).boundingRect();
}

void MainWindow::setChartFonts()
{
    QFont title = chart_title.font();
    title.setPointSize(titlePoints(font_size));
    chart_title.setFont(title);
    const QPointF corner = plotInScene().topLeft();
    chart_title.setPos(corner.x() + double{ font_size },
                       corner.y() - chart_title.boundingRect().height() - titleGap);

    QFont step = cursor_step_lbl.font();
    step.setPointSize(titlePoints(font_size));
    cursor_step_lbl.setFont(step);
    set_cur_step_lbl();

    QFont label = axis_lbl[0].font();
    label.setPixelSize(calc::truncated(std::max(minGridPixels, double{ font_size })));
    for (QGraphicsSimpleTextItem &item : axis_lbl)
        item.setFont(label);
    for (QGraphicsSimpleTextItem &item : axis_0_lbl)
        item.setFont(label);
}

void MainWindow::axisSetup(QRectF plot, QRectF chart)
{
    plotLeft = static_cast<float>(plot.left());
    // Labels are in the middle of the band under the plot.
    const int halfLetter = axis_lbl[0].font().pixelSize() / 2;
    const auto shift = static_cast<float>((chart.bottom() - plot.bottom()) / 2.0 - halfLetter);
    const QLineF upright(plot.bottomLeft(), plot.topLeft());
    const auto place = [&](QGraphicsLineItem &line, QGraphicsSimpleTextItem &label) {
        line.setLine(upright);
        label.setPos(double{ plotLeft }, plot.bottom() + double{ shift });
        hidePair(line, label);
    };
    for (int i = 0; i < constants::gridLines; ++i)
        place(axis_lines[i], axis_lbl[i]);
    for (int i = 0; i < constants::gridEdges; ++i)
        place(axis_0_lines[i], axis_0_lbl[i]);
    setXAxis();
}

void MainWindow::setXAxis()
{
    // One repaint of the whole plot is cheaper than 40 small ones for the moved lines and labels.
    Plot_Scene->update();
    const calc::GridPlan plan = calc::planGrid(viewRange(), dist_coef, trueWidth);
    const int labelShift = axis_lbl[0].font().pixelSize() / 2;
    const double viewRight = Plot_View->viewport()->width();
    const auto apply = [&](const calc::GridPlan::Line &planned, QGraphicsLineItem &line,
                           QGraphicsSimpleTextItem &label) {
        if (!planned.visible) {
            hidePair(line, label);
            return;
        }
        line.setX(planned.offset);
        label.setText(planned.text);
        label.setX(planned.offset + double{ plotLeft } - labelShift);
        // Moved to the left by the width that the view would cut off.
        const double cut = label.x() + label.boundingRect().right() - viewRight;
        label.setTransform(QTransform::fromTranslate(-std::max(0.0, cut), 0.0));
        line.show();
        label.show();
    };
    for (int i = 0; i < constants::gridLines; ++i)
        apply(plan.interior[i], axis_lines[i], axis_lbl[i]);
    for (int i = 0; i < constants::gridEdges; ++i)
        apply(plan.edges[i], axis_0_lines[i], axis_0_lbl[i]);
}
