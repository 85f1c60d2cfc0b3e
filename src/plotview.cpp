// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotview.h"

#include <QGraphicsSceneWheelEvent>
#include <QPaintEvent>

void PlotScene::wheelEvent(QGraphicsSceneWheelEvent *event)
{
    event->ignore();
}

const QRegion &PlotView::exposedRegion() const
{
    return m_exposed;
}

void PlotView::paintEvent(QPaintEvent *event)
{
    m_exposed = event->region();
    QGraphicsView::paintEvent(event);
}

void PlotView::drawBackground(QPainter *painter, const QRectF &rect)
{
    // On a screen with a fractional scale the edges of the rectangle lie within pixels, which would
    // keep part of their former colour.
    QGraphicsView::drawBackground(painter, rect.adjusted(-1.0, -1.0, 1.0, 1.0));
}
