// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "curarrow.h"

#include "calc/numeric.h"

#include <QBrush>
#include <QFont>
#include <QPen>

#include <cmath>

namespace {

constexpr qreal markerZ = 10.0;
constexpr double letterShare = 0.75; ///< of the base font size

QString letterOf(char id)
{
    if (id == 1)
        return QStringLiteral("A");
    return id == 2 ? QStringLiteral("B") : QString();
}

} // namespace

CurArrow::CurArrow(char markerId)
    : id(markerId)
{
    const int half = ar_size / 2;
    polygon << QPointF(-half, 0) << QPointF(half, 0) << QPointF(0, 2 * ar_size);
    cur_arrow1.setPolygon(polygon);
    cur_arrow1.setZValue(markerZ);
    cur_arrow1.setPen(Qt::NoPen);
    cur_arrow2.setPolygon(polygon);
    cur_arrow2.setScale(-1.0);
    cur_arrow2.setZValue(markerZ);
    cur_arrow2.setPen(Qt::NoPen);
    cur_lbl.setPen(Qt::NoPen);
    cur_lbl.setZValue(markerZ);
    cur_lbl.setText(letterOf(id));
    group = new QGraphicsItemGroup;
    group->addToGroup(&cur_arrow1);
    group->addToGroup(&cur_arrow2);
    group->addToGroup(&cur_lbl);
}

CurArrow::~CurArrow()
{
    // The items are members; a group that still holds them would delete them a second time.
    group->removeFromGroup(&cur_arrow1);
    group->removeFromGroup(&cur_arrow2);
    group->removeFromGroup(&cur_lbl);
    delete group;
}

void CurArrow::setColor(const QColor &c)
{
    color = c;
    const QBrush fill(color, Qt::SolidPattern);
    cur_arrow1.setBrush(fill);
    cur_arrow2.setBrush(fill);
    cur_lbl.setBrush(fill);
    // Qt::SolidPattern (1) makes the letter of the active cursor a pixel bolder, Qt::NoBrush (0)
    // gives a hairline.
    cur_lbl.setPen(
        QPen(fill, static_cast<qreal>(br_style), Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
}

void CurArrow::setRect(const QRectF &r)
{
    field = r;
    cur_arrow2.setPos(r.bottomLeft());
    cur_arrow1.setPos(r.topLeft());
    cur_lbl.setPos(r.bottomLeft());
    cur_lbl.moveBy(0.0, -cur_lbl.boundingRect().height());
    pos0 = calc::truncated(r.left() + 1.0);
}

void CurArrow::moveX(float p)
{
    double x = pos0;
    if (XRes != 0)
        x += static_cast<double>(p) * (field.width() / XRes);
    // QGraphicsItem accepts an infinite position, which would break the scene rectangle.
    pos = std::isfinite(x) ? static_cast<float>(x) : static_cast<float>(pos0);
    const qreal markerX = static_cast<qreal>(pos);
    cur_arrow2.setX(markerX);
    cur_arrow1.setX(markerX);
    const QRectF letter = cur_lbl.boundingRect();
    const qreal letterX = markerX - letter.center().x();
    cur_lbl.setX(letterX);
    const int width = calc::truncated(letter.width());
    const bool fits = field.right() > 2 * width + letterX;
    cur_lbl.moveBy(fits ? width : -width, 0.0);
}

void CurArrow::vis_state(bool v)
{
    cur_arrow1.setVisible(v);
    cur_arrow2.setVisible(v);
    cur_lbl.setVisible(v);
}

void CurArrow::setXRes(int n)
{
    XRes = n;
}

void CurArrow::setFont(float size)
{
    QFont font = cur_lbl.font();
    font.setPointSize(qMax(1, calc::truncated(static_cast<double>(size) * letterShare)));
    cur_lbl.setFont(font);
}

void CurArrow::setScale(float k)
{
    scale *= k;
    cur_arrow1.setScale(static_cast<qreal>(scale));
    cur_arrow2.setScale(static_cast<qreal>(-scale));
}

void CurArrow::setBr_style(Qt::BrushStyle s)
{
    br_style = s;
    setColor(color);
}
