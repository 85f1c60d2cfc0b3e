// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "plot_on_qcustomplot.h"

#include "peer_plot.h"

#include <qcustomplot.h>

namespace {

class PlotOnQCustomPlot : public QCustomPlot, public PeerPlot
{
public:
    PlotOnQCustomPlot();

    QWidget *widget() override;
    QWidget *canvas() override;
    void showModel(const PeerModel &model, int changes, int slot) override;

private:
    struct Cursor
    {
        QCPItemStraightLine *line;
        QCPItemStraightLine *level;
        QCPGraph *top;
        QCPGraph *bottom;
        QCPItemText *letter;
    };

    void setUpAxes();
    void addCursors();
    QCPItemText *addText(Qt::Alignment alignment, double x, double y);
    void showTraces(const PeerModel &model, int slot);
    void showSelection(const PeerModel &model);
    void showCursors(const PeerModel &model);
    void showDistances(const PeerModel &model);
    void showTexts(const PeerModel &model);

    QCPGraph *m_traces[constants::slotCount] = {};
    Cursor m_cursors[PeerModel::cursorCount] = {};
    QCPItemText *m_title = nullptr;
    QCPItemText *m_step = nullptr;
    QSharedPointer<QCPAxisTickerText> m_distances;
};

} // namespace

PeerPlot *plotOnQCustomPlot()
{
    return new PlotOnQCustomPlot;
}

PlotOnQCustomPlot::PlotOnQCustomPlot()
    : m_distances(new QCPAxisTickerText)
{
    setMinimumSize(constants::minPlotViewWidth, constants::minPlotViewHeight);
    setAntialiasedElements(QCP::aeAll);
    axisRect()->setAutoMargins(QCP::msNone);
    axisRect()->setMargins(margins);
    setUpAxes();
    addLayer(QStringLiteral("selected"), layer(QStringLiteral("main")));
    addLayer(QStringLiteral("cursors"), layer(QStringLiteral("selected")));
    for (QCPGraph *&trace : m_traces)
        trace = addGraph();
    addCursors();
    m_title = addText(Qt::AlignLeft | Qt::AlignBottom, 0.01, 0.0);
    m_step = addText(Qt::AlignRight | Qt::AlignTop, 0.99, 0.0);
}

void PlotOnQCustomPlot::setUpAxes()
{
    const QPen thin(QColor::fromRgba(constants::axisColour), 1.0);
    QFont font = this->font();
    font.setPixelSize(labelPixels);
    for (QCPAxis *axis : { xAxis, yAxis }) {
        axis->setBasePen(QPen(thin.color(), constants::axisLinePen));
        axis->setTickPen(thin);
        axis->setSubTicks(false);
        axis->setTickLabelColor(Qt::gray);
        axis->setTickLabelFont(font);
        axis->grid()->setPen(thin);
        axis->grid()->setZeroLinePen(Qt::NoPen);
    }
    yAxis->grid()->setZeroLinePen(QPen(thin.color(), constants::baseLinePen));
    yAxis->setRange(constants::levelMin, constants::levelMax);
    QSharedPointer<QCPAxisTickerFixed> levels(new QCPAxisTickerFixed);
    levels->setTickStep(levelStep);
    yAxis->setTicker(levels);
    xAxis->setTicker(m_distances);
}

void PlotOnQCustomPlot::addCursors()
{
    setCurrentLayer(QStringLiteral("cursors"));
    for (Cursor &cursor : m_cursors) {
        cursor = { new QCPItemStraightLine(this), new QCPItemStraightLine(this), addGraph(),
                   addGraph(), new QCPItemText(this) };
        for (QCPGraph *graph : { cursor.top, cursor.bottom }) {
            graph->setLineStyle(QCPGraph::lsNone);
            graph->setLayer(QStringLiteral("cursors"));
        }
        cursor.letter->setPositionAlignment(Qt::AlignLeft | Qt::AlignBottom);
        cursor.letter->setPadding(QMargins(static_cast<int>(markerSize), 0, 0, 0));
    }
    setCurrentLayer(QStringLiteral("main"));
}

QCPItemText *PlotOnQCustomPlot::addText(Qt::Alignment alignment, double x, double y)
{
    auto *text = new QCPItemText(this);
    text->position->setType(QCPItemPosition::ptAxisRectRatio);
    text->position->setCoords(x, y);
    text->setPositionAlignment(alignment);
    text->setClipToAxisRect(false);
    text->setColor(Qt::gray);
    return text;
}

QWidget *PlotOnQCustomPlot::widget()
{
    return this;
}

QWidget *PlotOnQCustomPlot::canvas()
{
    return this;
}

void PlotOnQCustomPlot::showModel(const PeerModel &model, int changes, int slot)
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

void PlotOnQCustomPlot::showTraces(const PeerModel &model, int slot)
{
    setBackground(QBrush(model.background()));
    for (int trace = 0; trace < model.traces.size(); ++trace) {
        if (slot >= 0 && slot != trace)
            continue;
        const QVector<QPointF> points = model.polyline(trace);
        QVector<QCPGraphData> graphData;
        graphData.reserve(points.size());
        for (const QPointF &point : points)
            graphData << QCPGraphData(point.x(), point.y());
        // Sorted by its making: the points of a tread and its riser share an x in their order.
        m_traces[trace]->data()->set(graphData, true);
    }
}

void PlotOnQCustomPlot::showSelection(const PeerModel &model)
{
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        m_traces[slot]->setPen(
            QPen(QColor::fromRgba(constants::slotColours[slot]), model.penWidth(slot)));
        m_traces[slot]->setLayer(slot == model.selected ? QStringLiteral("selected")
                                                        : QStringLiteral("main"));
    }
}

void PlotOnQCustomPlot::showCursors(const PeerModel &model)
{
    for (int which = 0; which < PeerModel::cursorCount; ++which) {
        const Cursor &cursor = m_cursors[which];
        const QColor ink = model.cursorColour(which);
        const double column = model.cursors[which];
        const double level = model.level(which);
        cursor.line->setPen(QPen(ink, constants::cursorPen));
        cursor.line->point1->setCoords(column, 0.0);
        cursor.line->point2->setCoords(column, 1.0);
        cursor.level->setPen(QPen(ink, constants::cursorLevelPen, Qt::DashLine));
        cursor.level->point1->setCoords(0.0, level);
        cursor.level->point2->setCoords(1.0, level);
        cursor.top->setData({ column }, { constants::levelMax - double{ markerInset } }, true);
        cursor.bottom->setData({ column }, { constants::levelMin + double{ markerInset } }, true);
        cursor.top->setScatterStyle(
            QCPScatterStyle(QCPScatterStyle::ssTriangleInverted, ink, ink, markerSize));
        cursor.bottom->setScatterStyle(
            QCPScatterStyle(QCPScatterStyle::ssTriangle, ink, ink, markerSize));
        cursor.letter->setText(which == 0 ? QStringLiteral("A") : QStringLiteral("B"));
        cursor.letter->setColor(ink);
        cursor.letter->position->setCoords(column, constants::levelMin);
    }
}

void PlotOnQCustomPlot::showDistances(const PeerModel &model)
{
    xAxis->setRange(model.range.min, model.range.max);
    const double width = axisRect()->width();
    const double span = model.range.max - model.range.min;
    const calc::GridPlan plan = model.grid(width);
    m_distances->clear();
    for (int i = 0; i < plan.interiorCount; ++i)
        m_distances->addTick(model.range.min + plan.interior[i].offset / width * span,
                             plan.interior[i].text);
}

void PlotOnQCustomPlot::showTexts(const PeerModel &model)
{
    QFont font = this->font();
    font.setPointSize(model.textPoints);
    m_step->setFont(font);
    m_step->setText(model.stepText);
    font.setBold(true);
    m_title->setFont(font);
    m_title->setText(model.title);
}
