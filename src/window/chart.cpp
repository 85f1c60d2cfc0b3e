// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/readout.h"
#include "calc/trace_points.h"
#include "curarrow.h"
#include "dictionary.h"
#include "legendbutton.h"
#include "mainwindow.h"
#include "serieslayer.h"

#include <QGraphicsScene>
#include <QtCharts/QLegend>

QT_CHARTS_USE_NAMESPACE

namespace {

// Not resize alone: it copies a buffer that a series shares, even when there is nothing to change.
void resizeTo(QVector<QPointF> &buffer, qtcompat::Size size)
{
    if (buffer.size() != size)
        buffer.resize(size);
}

} // namespace

void MainWindow::buildChart()
{
    Plot_Chart->setMargins(QMargins(constants::chartMargin, constants::chartMargin,
                                    constants::chartMargin, constants::chartMargin));
    // The scene's background shows through, so that difference mode can colour it.
    Plot_Chart->setPlotAreaBackgroundVisible(false);
    Plot_Chart->setBackgroundVisible(false);
    Plot_Chart->legend()->hide();
    // An attached legend, also a hidden one, has the chart laid out for every new pen of a series.
    Plot_Chart->legend()->detachFromChart();

    createChartAxes();
    addTraceSeries();
    addCursorSeries();
    seriesLayer = new SeriesLayer(*Plot_Chart, *cust_axisX, *cust_axisY);
    Plot_Scene->addItem(Plot_Chart);
    createChartTexts();
    points.resize(constants::stepPointCount);
    points_sp.resize(constants::drawnSamples);

    Plot_Scene->addItem(cur_arrowA->group);
    Plot_Scene->addItem(cur_arrowB->group);
}

void MainWindow::createChartAxes()
{
    const QColor axisColour = QColor::fromRgba(constants::axisColour);
    axisX->append(0.0, 0.0);
    axisX->append(x_length, 0.0);
    m_pen.setColor(axisColour);
    m_pen.setWidth(constants::baseLinePen);
    axisX->setPen(m_pen);
    // The chart's first series for good: it is the one by which pixels become counts.
    Plot_Chart->addSeries(axisX);
    Plot_Chart->createDefaultAxes();
    cust_axisX = qobject_cast<QValueAxis *>(Plot_Chart->axes(Qt::Horizontal).constFirst());
    cust_axisY = qobject_cast<QValueAxis *>(Plot_Chart->axes(Qt::Vertical).constFirst());

    m_pen.setWidth(constants::axisLinePen);
    for (QValueAxis *axis : { cust_axisX, cust_axisY }) {
        axis->setLinePen(m_pen);
        axis->setGridLineColor(axisColour);
        axis->setTitleBrush(QBrush(Qt::gray));
        axis->setLabelsColor(Qt::gray);
        axis->setLabelFormat(QStringLiteral("%i"));
    }
    cust_axisX->setRange(0, constants::drawnSamples);
    cust_axisX->setTickCount(2);
    cust_axisY->setRange(constants::levelMin, constants::levelMax);
    cust_axisY->setTickCount(9);

    QFont labels = cust_axisY->labelsFont();
    labels.setPixelSize(10);
    cust_axisY->setLabelsFont(labels);
    // Distances under the chart are drawn by the window; the axis keeps the least possible height.
    labels.setPixelSize(1);
    cust_axisX->setLabelsFont(labels);
    cust_axisX->setLabelsVisible(false);
}

void MainWindow::addTraceSeries()
{
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        rfg_series[slot] = new QLineSeries(this);
        rfg_series_sp[slot] = new MarkableSpline(this);
        m_pen.setWidth(constants::tracePen);
        m_pen.setColor(QColor::fromRgba(constants::slotColours[slot]));
        for (QXYSeries *series : { static_cast<QXYSeries *>(rfg_series[slot]),
                                   static_cast<QXYSeries *>(rfg_series_sp[slot]) }) {
            series->setPen(m_pen);
            Plot_Chart->addSeries(series);
            series->attachAxis(cust_axisX);
            series->attachAxis(cust_axisY);
        }
        rfg_series_sp[slot]->hide();
    }
}

void MainWindow::addCursorSeries()
{
    // Two points each from the start: they are only ever replaced.
    for (QLineSeries *line : { cursor_A, cursor_B })
        line->replace(
            QVector<QPointF>{ { 0.0, constants::levelMin }, { 0.0, constants::levelMax } });
    for (QLineSeries *level : { cursor_A_add, cursor_B_add })
        level->replace(QVector<QPointF>{ { 0.0, 0.0 }, { double(x_length), 0.0 } });
    for (QLineSeries *series : { cursor_A_add, cursor_A, cursor_B_add, cursor_B }) {
        Plot_Chart->addSeries(series);
        series->attachAxis(cust_axisX);
        series->attachAxis(cust_axisY);
    }
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
    // The series of the other form keeps its old points; it is rebuilt when it comes to sight. Its
    // buffer takes the size that those points would have.
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
    m_brush = QBrush(
        QColor::fromRgba(on ? constants::differenceBackground : constants::normalBackground),
        Qt::SolidPattern);
    Plot_Scene->setBackgroundBrush(m_brush);
    for (int slot = 0; slot < constants::slotCount; ++slot)
        if (isLoaded(slot))
            load_rfg(slot);
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
