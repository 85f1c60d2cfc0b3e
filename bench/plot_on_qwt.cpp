// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "plot_on_qwt.h"

#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_textlabel.h>
#include <qwt_scale_div.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_widget.h>
#include <qwt_symbol.h>
#include <qwt_text.h>

namespace {

constexpr double aboveTraces = 50.0; ///< z of the cursors; the traces have 1 to 10

/// Axis in counts with labels in metres.
class DistanceDraw : public QwtScaleDraw
{
public:
    explicit DistanceDraw(double metresPerCount)
        : m_metresPerCount(metresPerCount)
    {
    }

    QwtText label(double counts) const override
    {
        return QString::number(counts * m_metresPerCount, 'f', 1);
    }

private:
    double m_metresPerCount;
};

} // namespace

PlotOnQwt::PlotOnQwt()
{
    setMinimumSize(constants::minPlotViewWidth, constants::minPlotViewHeight);
    // The window's sheet beats every palette, so the background is a sheet's affair as well. It
    // stays as it is in difference mode: to style the plot anew would be no honest competition.
    setStyleSheet(QStringLiteral("QwtPlot, QwtPlotCanvas { background: %1 }")
                      .arg(QColor::fromRgba(constants::normalBackground).name()));
    auto *surface = qobject_cast<QwtPlotCanvas *>(QwtPlot::canvas());
    surface->setFrameStyle(QFrame::NoFrame);
    plotLayout()->setCanvasMargin(0);
    plotLayout()->setAlignCanvasToScales(true);
    setAxisScale(yLeft, constants::levelMin, constants::levelMax, levelStep);
    setAxisMaxMinor(yLeft, 0);
    QFont font = axisFont(yLeft);
    font.setPixelSize(labelPixels);
    setAxisFont(yLeft, font);
    setAxisFont(xBottom, font);
    for (const int axis : { int(yLeft), int(xBottom) }) {
        axisWidget(axis)->setMargin(0);
        QPalette ink = axisWidget(axis)->palette();
        ink.setColor(QPalette::WindowText, QColor::fromRgba(constants::axisColour));
        ink.setColor(QPalette::Text, Qt::gray);
        axisWidget(axis)->setPalette(ink);
    }
    axisScaleDraw(yLeft)->setMinimumExtent(margins.left());
    setContentsMargins(0, margins.top(), margins.right(), 0);

    addGrid();
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        m_traces[slot] = new QwtPlotCurve;
        m_traces[slot]->setRenderHint(QwtPlotItem::RenderAntialiased);
        m_traces[slot]->attach(this);
    }
    for (Cursor &cursor : m_cursors)
        cursor = { addMarker(QwtPlotMarker::VLine), addMarker(QwtPlotMarker::HLine),
                   addMarker(QwtPlotMarker::NoLine), addMarker(QwtPlotMarker::NoLine) };
    m_title = new QwtPlotTextLabel;
    m_step = new QwtPlotTextLabel;
    m_title->attach(this);
    m_step->attach(this);
}

void PlotOnQwt::addGrid()
{
    auto *grid = new QwtPlotGrid;
    grid->setPen(QColor::fromRgba(constants::axisColour), 1.0);
    grid->setRenderHint(QwtPlotItem::RenderAntialiased);
    grid->attach(this);
    auto *base = new QwtPlotMarker;
    base->setLineStyle(QwtPlotMarker::HLine);
    base->setLinePen(QColor::fromRgba(constants::axisColour), constants::baseLinePen);
    base->setYValue(0.0);
    base->attach(this);
}

QwtPlotMarker *PlotOnQwt::addMarker(int lineStyle)
{
    auto *marker = new QwtPlotMarker;
    marker->setLineStyle(static_cast<QwtPlotMarker::LineStyle>(lineStyle));
    marker->setRenderHint(QwtPlotItem::RenderAntialiased);
    marker->attach(this);
    return marker;
}

QWidget *PlotOnQwt::widget()
{
    return this;
}

QWidget *PlotOnQwt::canvas()
{
    return QwtPlot::canvas();
}

void PlotOnQwt::showModel(const PeerModel &model, int changes, int slot)
{
    if (changes & Traces)
        showTraces(model, slot);
    if (changes & (Selection | Traces))
        showSelection(model);
    if (changes & (Cursors | Selection))
        showCursors(model);
    if (changes & (Range | Units))
        showDistances(model);
    if (changes & Texts)
        showTexts(model);
    replot();
}

void PlotOnQwt::showTraces(const PeerModel &model, int slot)
{
    for (int trace = 0; trace < model.traces.size(); ++trace)
        if (slot < 0 || slot == trace)
            m_traces[trace]->setSamples(model.polyline(trace));
}

void PlotOnQwt::showSelection(const PeerModel &model)
{
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        m_traces[slot]->setPen(QColor::fromRgba(constants::slotColours[slot]),
                               model.penWidth(slot));
        m_traces[slot]->setZ(slot == model.selected ? constants::slotCount + 1 : slot + 1);
    }
}

void PlotOnQwt::showCursors(const PeerModel &model)
{
    for (int which = 0; which < PeerModel::cursorCount; ++which) {
        const Cursor &cursor = m_cursors[which];
        const QColor ink = model.cursorColour(which);
        const int column = model.cursors[which];
        const double z = aboveTraces + (which == model.active ? 10.0 : 0.0);
        cursor.line->setXValue(column);
        cursor.level->setYValue(model.level(which));
        cursor.top->setValue(column, constants::levelMax - markerInset);
        cursor.bottom->setValue(column, constants::levelMin + markerInset);
        if (cursor.line->linePen().color() == ink)
            continue;
        cursor.line->setLinePen(ink, constants::cursorPen);
        cursor.level->setLinePen(ink, constants::cursorLevelPen, Qt::DashLine);
        const QSize size(static_cast<int>(markerSize), static_cast<int>(2 * markerSize));
        cursor.top->setSymbol(new QwtSymbol(QwtSymbol::DTriangle, ink, Qt::NoPen, size));
        cursor.bottom->setSymbol(new QwtSymbol(QwtSymbol::UTriangle, ink, Qt::NoPen, size));
        QwtText letter(which == 0 ? QStringLiteral("A") : QStringLiteral("B"));
        letter.setColor(ink);
        cursor.bottom->setLabel(letter);
        cursor.bottom->setLabelAlignment(Qt::AlignRight | Qt::AlignTop);
        for (QwtPlotMarker *marker : { cursor.line, cursor.level, cursor.top, cursor.bottom })
            marker->setZ(z);
    }
}

void PlotOnQwt::showDistances(const PeerModel &model)
{
    const double metres = model.metresPerCount();
    if (m_metresPerCount != metres) {
        m_metresPerCount = metres;
        setAxisScaleDraw(xBottom, new DistanceDraw(metres));
        axisScaleDraw(xBottom)->setMinimumExtent(margins.bottom());
    }
    const double width = QwtPlot::canvas()->width();
    const double span = model.range.max - model.range.min;
    const calc::GridPlan plan = model.grid(width);
    QList<double> majors;
    for (int i = 0; i < plan.interiorCount; ++i)
        majors << model.range.min + plan.interior[i].offset / width * span;
    setAxisScaleDiv(xBottom, QwtScaleDiv(model.range.min, model.range.max, {}, {}, majors));
}

void PlotOnQwt::showTexts(const PeerModel &model)
{
    const auto text = [&model](const QString &words, int alignment, bool bold) {
        QwtText result(words);
        QFont font;
        font.setPointSize(model.textPoints);
        font.setBold(bold);
        result.setFont(font);
        result.setColor(Qt::gray);
        result.setRenderFlags(alignment);
        return result;
    };
    m_title->setText(text(model.title, Qt::AlignLeft | Qt::AlignTop, true));
    m_step->setText(text(model.stepText, Qt::AlignRight | Qt::AlignTop, false));
}
