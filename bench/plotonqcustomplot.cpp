// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "peerplot.h"

#include <qcustomplot.h>

namespace {

class PlotOnQCustomPlot : public QCustomPlot, public PeerPlot
{
public:
    PlotOnQCustomPlot()
        : PeerPlot(this, this)
    {
        setAntialiasedElements(QCP::aeAll);
        yAxis->setRange(constants::levelMin, constants::levelMax);
        for (QCPAxis *axis : { xAxis, yAxis }) {
            axis->setTickLabelColor(Qt::gray);
            axis->grid()->setPen(QColor::fromRgb(gridColour));
        }
        addLayer(QStringLiteral("selected"), layer(QStringLiteral("main")));
        for (QCPGraph *&trace : m_traces)
            trace = addGraph();
        setCurrentLayer(QStringLiteral("overlay"));
        for (int i = 0; i < 2; ++i) {
            m_lines[i] = new QCPItemStraightLine(this);
            m_levels[i] = new QCPItemStraightLine(this);
        }
        m_title = addText(Qt::AlignLeft | Qt::AlignTop, 0.01);
        m_step = addText(Qt::AlignRight | Qt::AlignTop, 0.99);
    }

    void show(const PeerModel &model, bool pointsChanged) override
    {
        for (int slot = 0; slot < model.traces.size(); ++slot) {
            if (pointsChanged)
                showPoints(model, slot);
            m_traces[slot]->setPen(model.tracePen(slot));
            m_traces[slot]->setLayer(slot == model.selected ? QStringLiteral("selected")
                                                            : QStringLiteral("main"));
        }
        for (int i = 0; i < 2; ++i) {
            m_lines[i]->setPen(QPen(model.cursorColour(i), cursorPen));
            m_lines[i]->point1->setCoords(model.cursors[i], 0.0);
            m_lines[i]->point2->setCoords(model.cursors[i], 1.0);
            m_levels[i]->setPen(QPen(model.cursorColour(i), 1, Qt::DashLine));
            m_levels[i]->point1->setCoords(0.0, model.level(i));
            m_levels[i]->point2->setCoords(1.0, model.level(i));
        }
        xAxis->setRange(model.range.min, model.range.max);
        setBackground(model.background());
        const QFont font(QString(), model.textPoints);
        m_title->setFont(font);
        m_title->setText(model.title());
        m_step->setFont(font);
        m_step->setText(model.stepText());
        replot();
    }

private:
    QCPItemText *addText(Qt::Alignment alignment, double x)
    {
        auto *text = new QCPItemText(this);
        text->position->setType(QCPItemPosition::ptAxisRectRatio);
        text->position->setCoords(x, 0.0);
        text->setPositionAlignment(alignment);
        text->setColor(Qt::gray);
        return text;
    }
    void showPoints(const PeerModel &model, int slot)
    {
        QVector<QCPGraphData> pairs;
        const QVector<QPointF> points = model.polyline(slot);
        for (const QPointF &point : points)
            pairs << QCPGraphData(point.x(), point.y());
        // Already sorted: the two ends of a riser have the same x, which sorting might swap.
        m_traces[slot]->data()->set(pairs, true);
    }

    QCPGraph *m_traces[constants::slotCount];
    QCPItemStraightLine *m_lines[2];
    QCPItemStraightLine *m_levels[2];
    QCPItemText *m_title;
    QCPItemText *m_step;
};

} // namespace

PeerPlot *makeQCustomPlot()
{
    return new PlotOnQCustomPlot;
}
