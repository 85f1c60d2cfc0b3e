// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "peer_plot.h"

#include <QPainter>

/// The limit: everything anew at each repaint, antialiased, with QPainter alone. A line is painted
/// segment by segment as the chart module does, which is also the quicker way.
class PainterPlot : public QWidget, public PeerPlot
{
    Q_OBJECT

public:
    PainterPlot();

    QWidget *widget() override;
    QWidget *canvas() override;
    void showModel(const PeerModel &model, int changes, int slot) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPointF toPixel(QPointF point) const;
    void paintLevels(QPainter &painter) const;
    void paintDistances(QPainter &painter) const;
    void paintTrace(QPainter &painter, int slot) const;
    void paintCursor(QPainter &painter, int cursor) const;
    void paintTexts(QPainter &painter) const;

    const PeerModel *m_model = nullptr;
    QVector<QVector<QPointF>> m_points; ///< of each trace
    QRectF m_plot;
};
