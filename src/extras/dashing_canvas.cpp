// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/dashing_canvas.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <utility>

namespace extras {

namespace {

constexpr double mmPerInch = 25.4;

/// Narrows the share [\a from, \a to] of a line to where start + share * delta is in [low, high].
void narrow(double start, double delta, double low, double high, double &from, double &to)
{
    if (qFuzzyIsNull(delta)) {
        if (start < low || start > high)
            to = -1.0;
        return;
    }
    const double one = (low - start) / delta;
    const double other = (high - start) / delta;
    from = std::max(from, std::min(one, other));
    to = std::min(to, std::max(one, other));
}

bool isDashed(const QPen &pen)
{
    return pen.style() != Qt::NoPen && pen.style() != Qt::SolidLine;
}

/// Length of one pattern of \a pen in its own units.
double periodOf(const QPen &pen)
{
    double sum = 0.0;
    const auto pattern = pen.dashPattern();
    for (const qreal part : pattern)
        sum += part;
    return sum * (pen.widthF() > 0.0 ? pen.widthF() : 1.0);
}

} // namespace

QLineF cutToPattern(const QLineF &line, const QRectF &area, double period)
{
    double from = 0.0;
    double to = 1.0;
    narrow(line.x1(), line.dx(), area.left(), area.right(), from, to);
    narrow(line.y1(), line.dy(), area.top(), area.bottom(), from, to);
    if (!(from < to))
        return {};
    if (period > 0.0 && line.length() > 0.0) {
        const double share = period / line.length();
        from = std::floor(from / share) * share;
    }
    return { line.pointAt(from), line.pointAt(to) };
}

/// Hands everything on to a painter of the picture.
class DashingCanvas::Engine : public QPaintEngine
{
public:
    explicit Engine(QImage &picture)
        : QPaintEngine(AllFeatures)
        , m_picture(picture)
    {
    }

    bool begin(QPaintDevice *) override
    {
        return m_painter.begin(&m_picture);
    }

    bool end() override
    {
        return m_painter.end();
    }

    Type type() const override
    {
        return User;
    }

    void updateState(const QPaintEngineState &now) override
    {
        const DirtyFlags dirty = now.state();
        // Before the clip, which is in its coordinates.
        if (dirty & DirtyTransform)
            m_painter.setTransform(now.transform());
        if (dirty & DirtyClipRegion)
            m_painter.setClipRegion(now.clipRegion(), now.clipOperation());
        if (dirty & DirtyClipPath)
            m_painter.setClipPath(now.clipPath(), now.clipOperation());
        if (dirty & DirtyClipEnabled)
            m_painter.setClipping(now.isClipEnabled());
        if (dirty & DirtyPen)
            m_painter.setPen(now.pen());
        if (dirty & DirtyBrush)
            m_painter.setBrush(now.brush());
        if (dirty & DirtyBrushOrigin)
            m_painter.setBrushOrigin(now.brushOrigin());
        if (dirty & DirtyBackground)
            m_painter.setBackground(now.backgroundBrush());
        if (dirty & DirtyBackgroundMode)
            m_painter.setBackgroundMode(now.backgroundMode());
        if (dirty & DirtyFont)
            m_painter.setFont(now.font());
        if (dirty & DirtyOpacity)
            m_painter.setOpacity(now.opacity());
        if (dirty & DirtyCompositionMode)
            m_painter.setCompositionMode(now.compositionMode());
        if (dirty & DirtyHints) {
            m_painter.setRenderHints(m_painter.renderHints(), false);
            m_painter.setRenderHints(now.renderHints());
        }
    }

    void drawPath(const QPainterPath &path) override
    {
        if (path.elementCount() != 2 || !isDashed(m_painter.pen())) {
            m_painter.drawPath(path);
            return;
        }
        const QTransform toLine = m_painter.transform().inverted();
        const double width = m_painter.pen().widthF();
        const QRectF seen
            = toLine.mapRect(QRectF(m_picture.rect())).adjusted(-width, -width, width, width);
        const QLineF line(path.elementAt(0), path.elementAt(1));
        m_painter.drawLine(cutToPattern(line, seen, periodOf(m_painter.pen())));
    }

    void drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) override
    {
        if (mode == PolylineMode)
            m_painter.drawPolyline(points, count);
        else
            m_painter.drawPolygon(points, count,
                                  mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
    }

    void drawPixmap(const QRectF &target, const QPixmap &pixmap, const QRectF &source) override
    {
        m_painter.drawPixmap(target, pixmap, source);
    }

    void drawTextItem(const QPointF &at, const QTextItem &text) override
    {
        m_painter.drawTextItem(at, text);
    }

private:
    QImage &m_picture;
    QPainter m_painter;
};

DashingCanvas::DashingCanvas(QImage &picture, int resolution)
    : m_picture(picture)
    , m_resolution(resolution)
    , m_engine(std::make_unique<Engine>(picture))
{
}

DashingCanvas::~DashingCanvas() = default;

QPaintEngine *DashingCanvas::paintEngine() const
{
    return m_engine.get();
}

int DashingCanvas::metric(PaintDeviceMetric what) const
{
    switch (what) {
    case PdmWidth:
        return m_picture.width();
    case PdmHeight:
        return m_picture.height();
    case PdmWidthMM:
        return qRound(m_picture.width() * mmPerInch / m_resolution);
    case PdmHeightMM:
        return qRound(m_picture.height() * mmPerInch / m_resolution);
    case PdmDepth:
        return m_picture.depth();
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return qRound(devicePixelRatioFScale());
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return m_resolution;
    default:
        return QPaintDevice::metric(what);
    }
}

} // namespace extras
