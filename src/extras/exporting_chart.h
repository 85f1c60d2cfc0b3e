// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QPainterPath>
#include <QPolygonF>
#include <QRectF>

class MainWindow;
class QPainter;

namespace extras {

enum class Background {
    Screen, ///< the colours of the window
    White,
};

/// Colours of a picture.
class Ink
{
public:
    Ink(const MainWindow &window, Background background);

    QColor background() const;
    QColor text() const;
    /// The colour in the picture for \a screen, a colour of the window. On white, greys are
    /// inverted and other colours darkened to a contrast of at least 3:1; the hue stays.
    QColor of(const QColor &screen) const;

private:
    QColor m_background;
    bool m_onWhite;
};

/// The parts of \a line within \a area.
QPainterPath clipped(const QPolygonF &line, const QRectF &area);

/// Draws the chart of \a window into \a area: title, grid, axes, visible series, cursors. It is
/// drawn from the window's data, not from its widgets, so that the screen does not change. Letters
/// have the size of \a font in units of \a painter; lines are as thick as on the screen, thicker
/// with large letters.
void drawChart(QPainter &painter, const QRectF &area, const QFont &font, const MainWindow &window,
               const Ink &ink);

} // namespace extras
