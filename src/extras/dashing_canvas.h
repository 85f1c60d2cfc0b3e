// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QLineF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QRectF>

#include <memory>

namespace extras {

/// The part of \a line within \a area, longer by up to \a period at its beginning, so that a
/// pattern of that length looks as if it came from where the whole line begins. Null where the line
/// misses \a area. A \a period of 0 or less cuts at the edge.
QLineF cutToPattern(const QLineF &line, const QRectF &area, double period);

/// Draws on a picture as any painter does, but dashes lines however long they are. The toolkit
/// gives up a pattern, and draws a line as a whole one, that comes ten thousand times in a line,
/// also where all but a hundred of them lie outside; the level lines of the cursors in a view of a
/// few metres are such lines.
class DashingCanvas : public QPaintDevice
{
public:
    /// Draws on \a picture, which must outlive it. Letters and lines have the size that they
    /// have on a screen of \a resolution dots per inch.
    DashingCanvas(QImage &picture, int resolution);
    ~DashingCanvas() override;

    QPaintEngine *paintEngine() const override;

protected:
    int metric(PaintDeviceMetric what) const override;

private:
    class Engine;

    QImage &m_picture;
    int m_resolution;
    std::unique_ptr<Engine> m_engine;
};

} // namespace extras
