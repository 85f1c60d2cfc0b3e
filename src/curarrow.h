// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QGraphicsItemGroup>
#include <QGraphicsPolygonItem>
#include <QGraphicsSimpleTextItem>
#include <QPolygonF>
#include <QRectF>

/// Marker of one measuring cursor in the chart scene: a triangle on the upper edge of the plot
/// area, its mirror image on the lower edge, and the letter of the cursor beside the lower one. The
/// owner adds \c group to the scene and deletes the marker before the scene.
class CurArrow
{
public:
    /// \a markerId is 1 for cursor A and 2 for cursor B; any other gives a marker without letter.
    explicit CurArrow(char markerId);
    ~CurArrow();
    Q_DISABLE_COPY(CurArrow)

    /// Fills triangles and letter with \a c. The enum value of \c br_style is the width of the
    /// outline of the letter, in pixels.
    void setColor(const QColor &c);

    /// Puts the marker on the edges of the plot area \a r, in scene coordinates.
    void setRect(const QRectF &r);

    /// Moves the marker to column \a p, counted from the left end of the visible range. The letter
    /// is to the right of the marker unless it would cross the right edge. While \c XRes is 0 the
    /// marker goes to column 0.
    void moveX(float p);

    /// Shows or hides the three items; the group itself stays as it is.
    void vis_state(bool v);

    /// Sets the number of columns across the plot area to \a n. The marker moves with the next
    /// \c moveX.
    void setXRes(int n);

    /// Sets the letter to three quarters of \a size points, at least 1.
    void setFont(float size);

    /// Scales the triangles by \a k. Factors accumulate; the letter keeps its size.
    void setScale(float k);

    /// Qt::SolidPattern emphasises the letter (the active cursor), Qt::NoBrush does not.
    void setBr_style(Qt::BrushStyle s);

    QGraphicsPolygonItem cur_arrow1; ///< upper triangle, tip down
    QGraphicsPolygonItem cur_arrow2; ///< lower triangle: the same shape at scale -1, tip up
    QGraphicsSimpleTextItem cur_lbl; ///< the letter
    QGraphicsItemGroup *group = nullptr; ///< parent of the three items
    char id = 0; ///< 1 is cursor A, 2 is cursor B
    int ar_size = 6; ///< base width of the triangles, in pixels
    QColor color; ///< fill colour; invalid until \c setColor
    QPolygonF polygon; ///< shape of both triangles
    QRectF field; ///< the plot area, in scene coordinates
    float pos = 0.0F; ///< scene x of the marker
    bool visible = false; ///< unused; \c vis_state sets the items
    int XRes = 0; ///< columns across the plot area
    int minX = 0; ///< unused
    int pos0 = 0; ///< scene x of column 0
    float scale = 1.0F; ///< product of all factors of \c setScale
    Qt::BrushStyle br_style = Qt::SolidPattern; ///< emphasis of the letter
};
