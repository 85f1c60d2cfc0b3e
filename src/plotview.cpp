// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "plotview.h"

#include "qtcompat.h"
#include "straightforward.h"

#include <QGraphicsObject>
#include <QPaintEvent>
#include <QStyleOptionGraphicsItem>

#include <cstring>

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

PlotView::PlotView(QWidget *parent)
    : QGraphicsView(parent)
    , m_keepsPicture(!straightforward::wanted())
    , m_framesToWait(framesAfterChange)
{
}

void PlotView::invalidate()
{
    m_chart = nullptr;
    m_framesToWait = framesAfterChange;
    m_picture = QPixmap();
    m_inPicture.clear();
}

void PlotView::cursorMoved(const QGraphicsItem *chart)
{
    m_chart = chart;
}

int PlotView::framesFromPicture() const
{
    return m_framesFromPicture;
}

void PlotView::paintEvent(QPaintEvent *event)
{
    const bool onlyCursorMoved = m_keepsPicture && m_chart != nullptr;
    if (onlyCursorMoved && m_framesToWait == 0 && paintOverPicture(*event)) {
        ++m_framesFromPicture;
    } else {
        if (m_framesToWait > 0)
            --m_framesToWait;
        QGraphicsView::paintEvent(event);
    }
    m_chart = nullptr;
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

bool PlotView::paintOverPicture(const QPaintEvent &event)
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
    QPainter painter(viewport());
    painter.drawPixmap(0, 0, m_picture);
    // As far as antialiased edges may reach over what is painted anew.
    const QRectF exposed = mapToScene(event.rect().adjusted(-2, -2, 2, 2)).boundingRect();
    paintItems(painter, items.mid(cut), exposed, QPoint());
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
        paintItems(painter, below, all, place.topLeft());
    }
    m_picture = whole.copy(QRect(place.topLeft() * ratio, place.size() * ratio));
    m_picture.setDevicePixelRatio(ratio);
    m_pictureTransform = transformInWindow();
    m_inPicture = below;
}

void PlotView::paintItems(QPainter &painter, const Items &items, const QRectF &exposed,
                          QPoint corner) const
{
    const QTransform toCorner = QTransform::fromTranslate(corner.x(), corner.y());
    painter.setRenderHints(renderHints());
    for (QGraphicsItem *item : items) {
        if (item->flags() & QGraphicsItem::ItemHasNoContents)
            continue;
        if (!item->sceneBoundingRect().adjusted(-1.0, -1.0, 1.0, 1.0).intersects(exposed))
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
