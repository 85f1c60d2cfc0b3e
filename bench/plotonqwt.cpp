// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "peerplot.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_textlabel.h>
#include <qwt_text.h>

namespace {

class PlotOnQwt : public QwtPlot, public PeerPlot
{
public:
    PlotOnQwt()
        : PeerPlot(this, QwtPlot::canvas())
    {
        setAxisScale(yLeft, constants::levelMin, constants::levelMax);
        add(new QwtPlotGrid)->setPen(QColor::fromRgb(gridColour));
        for (QwtPlotCurve *&trace : m_traces)
            trace = add(new QwtPlotCurve);
        for (int i = 0; i < 2; ++i) {
            m_lines[i] = add(new QwtPlotMarker);
            m_lines[i]->setLineStyle(QwtPlotMarker::VLine);
            m_levels[i] = add(new QwtPlotMarker);
            m_levels[i]->setLineStyle(QwtPlotMarker::HLine);
        }
        m_title = add(new QwtPlotTextLabel);
        m_step = add(new QwtPlotTextLabel);
    }

    void show(const PeerModel &model, bool pointsChanged) override
    {
        for (int slot = 0; slot < model.traces.size(); ++slot) {
            if (pointsChanged)
                m_traces[slot]->setSamples(model.polyline(slot));
            m_traces[slot]->setPen(model.tracePen(slot));
            m_traces[slot]->setZ(slot == model.selected ? constants::slotCount : slot);
        }
        for (int i = 0; i < 2; ++i) {
            m_lines[i]->setXValue(model.cursors[i]);
            m_lines[i]->setLinePen(model.cursorColour(i), cursorPen);
            m_levels[i]->setYValue(model.level(i));
            m_levels[i]->setLinePen(model.cursorColour(i), 1, Qt::DashLine);
        }
        setAxisScale(xBottom, model.range.min, model.range.max);
        setCanvasBackground(model.background());
        setText(m_title, model.title(), Qt::AlignLeft | Qt::AlignTop, model.textPoints);
        setText(m_step, model.stepText(), Qt::AlignRight | Qt::AlignTop, model.textPoints);
        replot();
    }

private:
    template <typename Item> Item *add(Item *item)
    {
        item->setRenderHint(QwtPlotItem::RenderAntialiased);
        item->attach(this);
        return item;
    }
    static void setText(QwtPlotTextLabel *label, const QString &words, Qt::Alignment alignment,
                        int points)
    {
        QwtText text(words);
        text.setFont(QFont(QString(), points));
        text.setColor(Qt::gray);
        text.setRenderFlags(static_cast<int>(alignment));
        label->setText(text);
    }

    QwtPlotCurve *m_traces[constants::slotCount];
    QwtPlotMarker *m_lines[2];
    QwtPlotMarker *m_levels[2];
    QwtPlotTextLabel *m_title;
    QwtPlotTextLabel *m_step;
};

} // namespace

PeerPlot *makeQwtPlot()
{
    return new PlotOnQwt;
}
