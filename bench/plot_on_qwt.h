// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "peer_plot.h"

#include <qwt_plot.h>

class QwtPlotCurve;
class QwtPlotMarker;
class QwtPlotTextLabel;

/// The plot as one would build it on Qwt: items on a QwtPlot, a plain replot for every change.
class PlotOnQwt : public QwtPlot, public PeerPlot
{
    Q_OBJECT

public:
    PlotOnQwt();

    QWidget *widget() override;
    QWidget *canvas() override;
    void showModel(const PeerModel &model, int changes, int slot) override;

private:
    struct Cursor
    {
        QwtPlotMarker *line;
        QwtPlotMarker *level;
        QwtPlotMarker *top;
        QwtPlotMarker *bottom; ///< with the letter
    };

    void addGrid();
    QwtPlotMarker *addMarker(int lineStyle);
    void showTraces(const PeerModel &model, int slot);
    void showSelection(const PeerModel &model);
    void showCursors(const PeerModel &model);
    void showDistances(const PeerModel &model);
    void showTexts(const PeerModel &model);

    QwtPlotCurve *m_traces[constants::slotCount] = {};
    Cursor m_cursors[PeerModel::cursorCount] = {};
    QwtPlotTextLabel *m_title = nullptr;
    QwtPlotTextLabel *m_step = nullptr;
    double m_metresPerCount = 1.0;
};
