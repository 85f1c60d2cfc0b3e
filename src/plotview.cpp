// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotview.h"

#include <QGraphicsSceneWheelEvent>
#include <QPaintEvent>

#include <cmath>

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
    Q_UNUSED(rect)
    // Qt fills slowly when it clips to a region or antialiases, so the rectangles of the region are
    // filled one by one. At a fractional screen scale their edges lie within pixels; the margin
    // fills these pixels, too.
    const int margin = std::trunc(devicePixelRatioF()) == devicePixelRatioF() ? 0 : 1;
    painter->setRenderHint(QPainter::Antialiasing, false);
    for (const QRect &exposed : m_exposed) {
        const QRectF part
            = mapToScene(exposed.adjusted(-margin, -margin, margin, margin)).boundingRect();
        painter->setClipRect(part);
        QGraphicsView::drawBackground(painter, part);
    }
}
