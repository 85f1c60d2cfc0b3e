// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "calc/readout.h"
#include "calc/trace_points.h"
#include "curarrow.h"
#include "dictionary.h"
#include "legendbutton.h"
#include "serieslayer.h"

#include <QGraphicsScene>
#include <QtCharts/QLegend>

QT_CHARTS_USE_NAMESPACE

namespace {

constexpr int chartMargin = 20; ///< pixels on each side of the plot
constexpr quint32 axisColour = 0xFF323232; ///< axes, base line and grid
constexpr quint32 differenceBackground = 0xFF28283C; ///< behind differences
constexpr int axisLinePen = 2;
constexpr int baseLinePen = 3;

// QVector::resize copies a shared buffer even when the size stays the same.
void resizeTo(QVector<QPointF> &buffer, qtcompat::Size size)
{
    if (buffer.size() != size)
        buffer.resize(size);
}

void createChartAxes(MainWindowParts &parts, QPen &pen, int length)
{
    const QColor colour = QColor::fromRgba(axisColour);
    parts.axisX->append(0.0, 0.0);
    parts.axisX->append(length, 0.0);
    pen.setColor(colour);
    pen.setWidth(baseLinePen);
    parts.axisX->setPen(pen);
    // Stays the first series of the chart, which QChart::mapToValue uses.
    parts.Plot_Chart->addSeries(parts.axisX);
    parts.Plot_Chart->createDefaultAxes();
    parts.cust_axisX
        = qobject_cast<QValueAxis *>(parts.Plot_Chart->axes(Qt::Horizontal).constFirst());
    parts.cust_axisY
        = qobject_cast<QValueAxis *>(parts.Plot_Chart->axes(Qt::Vertical).constFirst());

    pen.setWidth(axisLinePen);
    for (QValueAxis *axis : { parts.cust_axisX, parts.cust_axisY }) {
        axis->setLinePen(pen);
        axis->setGridLineColor(colour);
        axis->setTitleBrush(QBrush(Qt::gray));
        axis->setLabelsColor(Qt::gray);
        axis->setLabelFormat(QStringLiteral("%i"));
    }
    parts.cust_axisX->setRange(0, constants::drawnSamples);
    parts.cust_axisX->setTickCount(2);
    parts.cust_axisY->setRange(constants::levelMin, constants::levelMax);
    parts.cust_axisY->setTickCount(9);

    QFont labels = parts.cust_axisY->labelsFont();
    labels.setPixelSize(10);
    parts.cust_axisY->setLabelsFont(labels);
    // The window draws the labels under the chart itself; those of the axis get the least height.
    labels.setPixelSize(1);
    parts.cust_axisX->setLabelsFont(labels);
    parts.cust_axisX->setLabelsVisible(false);
}

void addTraceSeries(MainWindowParts &parts, QPen &pen, QObject *owner)
{
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        parts.rfg_series[slot] = new QLineSeries(owner);
        parts.rfg_series_sp[slot] = new MarkableSpline(owner);
        pen.setWidth(constants::tracePen);
        pen.setColor(QColor::fromRgba(constants::slotColours[slot]));
        for (QXYSeries *series : { static_cast<QXYSeries *>(parts.rfg_series[slot]),
                                   static_cast<QXYSeries *>(parts.rfg_series_sp[slot]) }) {
            series->setPen(pen);
            parts.Plot_Chart->addSeries(series);
            series->attachAxis(parts.cust_axisX);
            series->attachAxis(parts.cust_axisY);
        }
        parts.rfg_series_sp[slot]->hide();
    }
}

void addCursorSeries(const MainWindowParts &parts, int length)
{
    // Two points each from the start, because SeriesLayer follows such series as lines.
    for (QLineSeries *line : { parts.cursor_A, parts.cursor_B })
        line->replace(
            QVector<QPointF>{ { 0.0, constants::levelMin }, { 0.0, constants::levelMax } });
    for (QLineSeries *level : { parts.cursor_A_add, parts.cursor_B_add })
        level->replace(QVector<QPointF>{ { 0.0, 0.0 }, { double(length), 0.0 } });
    // Cursor A is active at the start, so its series are added last.
    for (QLineSeries *series :
         { parts.cursor_B_add, parts.cursor_B, parts.cursor_A_add, parts.cursor_A }) {
        parts.Plot_Chart->addSeries(series);
        series->attachAxis(parts.cust_axisX);
        series->attachAxis(parts.cust_axisY);
    }
}

void createChartTexts(MainWindowParts &parts)
{
    QFont bold = parts.Plot_Chart->titleFont();
    bold.setBold(true);
    parts.chart_title.setFont(bold);
    parts.chart_title.setBrush(QBrush(Qt::gray));
    // The default brush, black, is invisible on this background.
    parts.cursor_step_lbl.setBrush(QBrush(Qt::gray));
    parts.Plot_Scene->addItem(&parts.chart_title);
    parts.Plot_Scene->addItem(&parts.cursor_step_lbl);
}

} // namespace

void MainWindow::buildChart()
{
    Plot_Chart->setMargins(QMargins(chartMargin, chartMargin, chartMargin, chartMargin));
    // The background is that of the scene, which difference mode colours.
    Plot_Chart->setPlotAreaBackgroundVisible(false);
    Plot_Chart->setBackgroundVisible(false);
    Plot_Chart->legend()->hide();
    // Even a hidden legend would cause a layout of the chart for each new pen of a series.
    Plot_Chart->legend()->detachFromChart();

    createChartAxes(*this, m_pen, x_length);
    addTraceSeries(*this, m_pen, this);
    addCursorSeries(*this, x_length);
    seriesLayer = new SeriesLayer(*Plot_Chart, *cust_axisX, *cust_axisY);
    Plot_Scene->addItem(Plot_Chart);
    createChartTexts(*this);
    points.resize(constants::stepPointCount);
    points_sp.resize(constants::drawnSamples);

    Plot_Scene->addItem(cur_arrowA->group);
    Plot_Scene->addItem(cur_arrowB->group);
}

calc::TraceRef MainWindow::traceRef(int id) const
{
    const rfg_SHOWN &trace = rfg_DATA[id];
    return { trace.f_p_840.samples, stepOf(id), quint32{ trace.f_p_840.ch.params.delay },
             trace.scroll, trace.offset };
}

void MainWindow::load_rfg(int id)
{
    if (!isSlot(id))
        return;
    const calc::TraceRef trace = traceRef(id);
    const bool difference = isDrawnAsDifference(id);
    // The series of the other form is hidden and keeps its old points. Its buffer gets the size
    // that its points would have.
    if (smooth_rfg_flag) {
        if (difference)
            calc::splineDifference(traceRef(rfg_master_ID), trace, points_sp);
        else
            calc::splinePoints(trace, points_sp);
        rfg_series_sp[id]->replace(points_sp);
        resizeTo(points, qMax<qtcompat::Size>(0, 2 * points_sp.size() - 1));
    } else {
        if (difference)
            calc::stepDifference(traceRef(rfg_master_ID), trace, points);
        else
            calc::stepPoints(trace, points);
        rfg_series[id]->replace(points);
        resizeTo(points_sp, (points.size() + 1) / 2);
    }
}

void MainWindow::redrawLoaded()
{
    for (int slot = 0; slot < constants::slotCount; ++slot)
        if (isLoaded(slot))
            load_rfg(slot);
}

void MainWindow::redraw(int id)
{
    // All differences depend on the master.
    if (diff_flag == DIFF && id == rfg_master_ID)
        redrawLoaded();
    else
        load_rfg(id);
}

void MainWindow::setSmoothFlag(bool on)
{
    smooth_rfg_flag = on;
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        if (!isLoaded(slot))
            continue;
        rfg_series[slot]->setVisible(!on && selected_rfg[slot]->vis());
        rfg_series_sp[slot]->setVisible(on && selected_rfg[slot]->vis());
        load_rfg(slot);
    }
}

void MainWindow::setDiff_flag(bool on)
{
    diff_flag = on ? DIFF : NORMAL;
    m_brush = QBrush(QColor::fromRgba(on ? differenceBackground : constants::normalBackground),
                     Qt::SolidPattern);
    Plot_Scene->setBackgroundBrush(m_brush);
    redrawLoaded();
    rfgSelect_slot(rfg_ID);
}

void MainWindow::seriesUp(QXYSeries *series)
{
    seriesLayer->raise({ series });
}

QString MainWindow::count_to_distance(int count) const
{
    return calc::distanceText(count, dist_coef, d->DIST_SUFFIX_STR);
}

QString MainWindow::count_to_level(int level) const
{
    return calc::levelText(level);
}
