// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotview.h"

#include "base/qtcompat.h"

#include <QGraphicsObject>
#include <QGraphicsSceneWheelEvent>
#include <QPaintEvent>
#include <QStyleOptionGraphicsItem>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace {

// The chart does some things one event after it was told to: items that went away, a new layout.
constexpr int framesAfterChange = 2;
constexpr int cursorSeries = 2; ///< of the active cursor: its level and its line

bool isSeries(const QGraphicsItem *item)
{
    // The chart module tells nobody which item draws a series.
    const QGraphicsObject *object = item->toGraphicsObject();
    if (object == nullptr)
        return false;
    const char *name = object->metaObject()->className();
    return std::strcmp(name, qtcompat::lineItemClass) == 0
        || std::strcmp(name, qtcompat::splineItemClass) == 0;
}

} // namespace

void PlotScene::wheelEvent(QGraphicsSceneWheelEvent *event)
{
    event->ignore();
}

PlotView::PlotView(QWidget *parent)
    : QGraphicsView(parent)
    , m_framesToWait(framesAfterChange)
{
}

void PlotView::invalidate()
{
    m_chart = nullptr;
    setViewportUpdateMode(BoundingRectViewportUpdate);
    m_framesToWait = framesAfterChange;
    m_picture = QPixmap();
    m_inPicture.clear();
}

void PlotView::cursorMoved(const QGraphicsItem *chart)
{
    // Where a unit is no whole number of pixels, the picture would stand between them.
    const qreal ratio = devicePixelRatioF();
    m_chart = ratio == std::floor(ratio) ? chart : nullptr;
    // Over the picture little is painted, and only where the cursor was and is; that saves half of
    // such a frame.
    if (qtcompat::linesTellWhereTheyWere && m_chart != nullptr && m_framesToWait == 0)
        setViewportUpdateMode(MinimalViewportUpdate);
}

int PlotView::framesFromPicture() const
{
    return m_framesFromPicture;
}

void PlotView::paintEvent(QPaintEvent *event)
{
    m_overPicture = m_chart != nullptr && m_framesToWait == 0 && takePicture();
    if (m_overPicture)
        ++m_framesFromPicture;
    else if (m_framesToWait > 0)
        --m_framesToWait;
    // Only that way the view lets somebody else paint its items.
    setOptimizationFlag(IndirectPainting, m_overPicture);
    QGraphicsView::paintEvent(event);
    m_above.clear();
    m_overPicture = false;
    m_chart = nullptr;
}

void PlotView::drawBackground(QPainter *painter, const QRectF &rect)
{
    if (!m_overPicture) {
        QGraphicsView::drawBackground(painter, rect);
        return;
    }
    painter->save();
    painter->resetTransform();
    painter->drawPixmap(0, 0, m_picture);
    painter->restore();
}

void PlotView::drawItems(QPainter *painter, int count, QGraphicsItem *items[],
                         const QStyleOptionGraphicsItem options[])
{
    Q_UNUSED(options)
    // The scene may offer more than is visible.
    Items offered;
    for (QGraphicsItem *item : std::as_const(m_above))
        if (std::find(items, items + count, item) != items + count)
            offered.append(item);
    paintItems(*painter, offered, QPoint());
}

void PlotView::resizeEvent(QResizeEvent *event)
{
    invalidate();
    QGraphicsView::resizeEvent(event);
}

void PlotView::changeEvent(QEvent *event)
{
    invalidate();
    QGraphicsView::changeEvent(event);
}

bool PlotView::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
    case QEvent::Polish:
    case QEvent::Show:
        invalidate();
        break;
    default:
        break;
    }
    return QGraphicsView::viewportEvent(event);
}

bool PlotView::takePicture()
{
    // In stacking order, and only what is visible.
    const Items items = scene()->items(mapToScene(viewport()->rect()).boundingRect(),
                                       Qt::IntersectsItemBoundingRect, Qt::AscendingOrder);
    const int cut = firstAbove(items);
    if (cut < 0)
        return false;
    const Items below = items.mid(0, cut);
    if (!pictureShows(below))
        makePicture(below);
    m_above = items.mid(cut);
    return true;
}

int PlotView::firstAbove(const Items &items) const
{
    // Among the chart's own children, not in the list: there a series out of sight is missing.
    const Items children = m_chart->childItems();
    int wanted = cursorSeries;
    for (int i = static_cast<int>(children.size()) - 1; i >= 0; --i) {
        if (!isSeries(children.at(i)))
            continue;
        if (--wanted > 0)
            continue;
        for (int above = i; above < children.size(); ++above) {
            const auto found = items.indexOf(children.at(above));
            if (found >= 0)
                return static_cast<int>(found);
        }
        return -1;
    }
    return -1;
}

bool PlotView::pictureShows(const Items &below) const
{
    return m_pictureTransform == transformInWindow() && m_inPicture == below
        && m_picture.devicePixelRatioF() == viewport()->devicePixelRatioF()
        && m_picture.size() == viewport()->size() * viewport()->devicePixelRatioF();
}

QTransform PlotView::transformInWindow() const
{
    const QPoint corner = viewport()->mapTo(window(), QPoint());
    return viewportTransform() * QTransform::fromTranslate(corner.x(), corner.y());
}

void PlotView::makePicture(const Items &below)
{
    const qreal ratio = viewport()->devicePixelRatioF();
    // As large as the window and painted where the plot stands in it: how dashes and edges are
    // rounded depends on both.
    QPixmap whole(window()->size() * ratio);
    whole.setDevicePixelRatio(ratio);
    const QRect place(viewport()->mapTo(window(), QPoint()), viewport()->size());
    {
        QPainter painter(&whole);
        painter.setClipRect(place);
        painter.setWorldTransform(transformInWindow());
        const QRectF all = mapToScene(viewport()->rect().adjusted(-1, -1, 2, 2)).boundingRect();
        // Not antialiased: the last column would let through a trace of what was there before.
        drawBackground(&painter, all);
        paintItems(painter, below, place.topLeft());
    }
    m_picture = whole.copy(QRect(place.topLeft() * ratio, place.size() * ratio));
    m_picture.setDevicePixelRatio(ratio);
    m_pictureTransform = transformInWindow();
    m_inPicture = below;
}

void PlotView::paintItems(QPainter &painter, const Items &items, QPoint corner) const
{
    const QTransform toCorner = QTransform::fromTranslate(corner.x(), corner.y());
    painter.setRenderHints(renderHints());
    for (QGraphicsItem *item : items) {
        if (item->flags() & QGraphicsItem::ItemHasNoContents)
            continue;
        QStyleOptionGraphicsItem option;
        option.state = item->isEnabled() ? QStyle::State_Enabled : QStyle::State_None;
        option.exposedRect = item->boundingRect();
        option.rect = option.exposedRect.toRect();
        option.styleObject = item->toGraphicsObject();
        painter.save();
        painter.setWorldTransform(item->deviceTransform(viewportTransform()) * toCorner);
        item->paint(&painter, &option, viewport());
        painter.restore();
    }
}
