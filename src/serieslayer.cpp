// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "serieslayer.h"

#include "calc/spline.h"
#include "plotview.h"

#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QLoggingCategory>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

QT_CHARTS_USE_NAMESPACE

namespace {

constexpr qreal aboveAxes = 100.0;
constexpr qreal edge = 2.0; ///< pixels around the plot that its lines touch
constexpr qreal stripMargin = 7.0; ///< pixels right of the plot, where nothing is drawn
constexpr qreal reach = 4.0; ///< pixels; a line paints no farther from its points

qreal fraction(qreal number)
{
    return number - std::trunc(number);
}

/// Clip of the chart module for lines: \a plot, enlarged by up to a pixel so that lines along its
/// edges are not cut. \a corner is the position of the plot in the chart.
QRectF clipOfLines(const QRectF &plot, QPointF corner)
{
    const qreal left = fraction(corner.x());
    const qreal top = fraction(corner.y());
    return plot.adjusted(-left, -top, qMax(left, fraction(plot.width() + 0.5)),
                         qMax(top, fraction(plot.height() + 0.5)));
}

/// True when the rectangle around \a points, which may be a line, is near one of \a places.
bool isNear(const QVector<QRectF> &places, std::initializer_list<QPointF> points)
{
    QPointF low = *points.begin();
    QPointF high = low;
    for (const QPointF &point : points) {
        low = { qMin(low.x(), point.x()), qMin(low.y(), point.y()) };
        high = { qMax(high.x(), point.x()), qMax(high.y(), point.y()) };
    }
    return std::any_of(places.begin(), places.end(), [=](const QRectF &place) {
        return low.x() <= place.right() + reach && high.x() >= place.left() - reach
            && low.y() <= place.bottom() + reach && high.y() >= place.top() - reach;
    });
}

void drawSegments(QPainter &painter, const QVector<QPointF> &points, const QVector<QRectF> &places)
{
    QVector<QLineF> segments;
    segments.reserve(points.size());
    for (int i = 1; i < points.size(); ++i)
        if (isNear(places, { points[i - 1], points[i] }))
            segments.append(QLineF(points[i - 1], points[i]));
    painter.drawLines(segments);
}

void drawDashes(QPainter &painter, const QVector<QPointF> &points)
{
    QPainterPath path;
    path.addPolygon(points);
    painter.drawPath(path);
}

void drawSpline(QPainter &painter, const QVector<QPointF> &points, const QVector<QRectF> &places)
{
    const int stretches = qMax(0, static_cast<int>(points.size()) - 1);
    const QVector<QPointF> controls = calc::splineControls(points);
    QVector<bool> wanted(stretches + 2, false); // with one more at each end
    for (int i = 0; i < stretches; ++i)
        wanted[i + 1]
            = isNear(places, { points[i], controls[2 * i], controls[2 * i + 1], points[i + 1] });
    QPainterPath path;
    bool goesOn = false;
    for (int i = 0; i < stretches; ++i) {
        // The ends of a stretch are rounded differently when the stretch beside it is not drawn.
        const bool drawn = wanted[i] || wanted[i + 1] || wanted[i + 2];
        if (drawn && !goesOn)
            path.moveTo(points[i]);
        if (drawn)
            path.cubicTo(controls[2 * i], controls[2 * i + 1], points[i + 1]);
        goesOn = drawn;
    }
    painter.drawPath(path);
}

} // namespace

QAbstractSeries::SeriesType MarkableSpline::type() const
{
    return m_isLine ? SeriesTypeLine : QSplineSeries::type();
}

void MarkableSpline::mark(bool on)
{
    m_isLine = true;
    setUseOpenGL(on);
    m_isLine = false;
}

SeriesLayer::SeriesLayer(QChart &chart, QValueAxis &x, QValueAxis &y)
    : QGraphicsObject(&chart)
    , m_chart(chart)
    , m_x(x)
    , m_y(y)
{
    setZValue(aboveAxes);
    setAcceptedMouseButtons(Qt::NoButton);
    markForOpenGL();
    const auto all = chart.series();
    for (const QAbstractSeries *series : all)
        follow(static_cast<const QXYSeries &>(*series));
    connect(&x, &QValueAxis::rangeChanged, this, &SeriesLayer::repaintAll);
    connect(&y, &QValueAxis::rangeChanged, this, &SeriesLayer::repaintAll);
    connect(&chart, &QChart::plotAreaChanged, this, [this](const QRectF &plot) {
        prepareGeometryChange();
        setPos(plot.topLeft());
        repaintAll();
    });
}

void SeriesLayer::markForOpenGL()
{
    // The module creates one OpenGL widget: in the first view of the chart's scene, when the first
    // series is marked.
    QGraphicsScene stage;
    m_neverShown.setScene(&stage);
    stage.addItem(&m_chart);
    // Without OpenGL the widget, which is never used, writes a warning to the log.
    QLoggingCategory &log = *QLoggingCategory::defaultCategory();
    const bool warnings = log.isWarningEnabled();
    log.setEnabled(QtWarningMsg, false);
    const auto all = m_chart.series();
    for (QAbstractSeries *series : all)
        if (series->type() == QAbstractSeries::SeriesTypeSpline)
            static_cast<MarkableSpline *>(series)->mark(true);
        else
            series->setUseOpenGL(true);
    log.setEnabled(QtWarningMsg, warnings);
    stage.removeItem(&m_chart);
    m_neverShown.setScene(nullptr);
}

void SeriesLayer::follow(const QXYSeries &series)
{
    if (series.count() == 2)
        m_lines.insert(&series, QRectF());
    const auto repaint = [this, &series] {
        if (m_lines.contains(&series))
            repaintLine(series);
        else
            update();
    };
    connect(&series, &QXYSeries::pointsReplaced, this, repaint);
    connect(&series, &QXYSeries::penChanged, this, repaint);
    connect(&series, &QXYSeries::visibleChanged, this, repaint);
}

void SeriesLayer::repaintLine(const QXYSeries &line)
{
    const QRectF former = std::exchange(m_lines[&line], placeOf(line));
    // qt_intersect_spans (Qt 5.15 and 6.4) is fast only in rows of the window whose number is below
    // the number of spans in the exposed region. This strip, in which nothing is drawn, adds a span
    // to every row.
    const QRectF strip = boundingRect().adjusted(boundingRect().width() - 1.0, 0.0, 0.0, 0.0);
    // Updates of the item would be united into one rectangle; updates of the scene are not.
    for (const QRectF &place : { former, m_lines[&line], strip })
        if (place.intersects(boundingRect()))
            scene()->update(mapRectToScene(place & boundingRect()));
}

void SeriesLayer::repaintAll()
{
    for (auto line = m_lines.begin(); line != m_lines.end(); ++line)
        line.value() = placeOf(*line.key());
    update();
}

void SeriesLayer::raise(const QVector<QXYSeries *> &wanted)
{
    const QList<QAbstractSeries *> order = m_chart.series();
    if (std::equal(wanted.rbegin(), wanted.rend(), order.rbegin()))
        return;
    // The chart draws series in the order in which they were added.
    for (QXYSeries *series : wanted) {
        m_chart.removeSeries(series);
        m_chart.addSeries(series);
        series->attachAxis(&m_x);
        series->attachAxis(&m_y);
    }
    // A layout from the event loop would cause a second repaint.
    m_chart.layout()->activate();
    scene()->update();
}

QRectF SeriesLayer::boundingRect() const
{
    return QRectF(QPointF(), m_chart.plotArea().size()).adjusted(-edge, -edge, stripMargin, edge);
}

QVector<QPointF> SeriesLayer::pixelsOf(const QXYSeries &series) const
{
    QVector<QPointF> points = qtcompat::pointsOf(series);
    const QSizeF size = m_chart.plotArea().size();
    const qreal left = m_x.min();
    const qreal bottom = m_y.min();
    const qreal perCount = size.width() / (m_x.max() - left);
    const qreal perLevel = size.height() / (m_y.max() - bottom);
    for (QPointF &point : points)
        point = { (point.x() - left) * perCount, size.height() - (point.y() - bottom) * perLevel };
    return points;
}

QRectF SeriesLayer::placeOf(const QXYSeries &series) const
{
    const qreal margin = series.pen().widthF();
    return QPolygonF(pixelsOf(series)).boundingRect().adjusted(-margin, -margin, margin, margin);
}

SeriesLayer::Places SeriesLayer::exposedPlaces(const QWidget *viewport) const
{
    if (viewport == nullptr)
        return { boundingRect() };
    const auto *view = static_cast<const PlotView *>(viewport->parentWidget());
    Places places;
    for (const QRect &rect : view->exposedRegion())
        places.append(mapRectFromScene(view->mapToScene(rect).boundingRect()));
    return places;
}

void SeriesLayer::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    Q_UNUSED(option)
    const QRectF plot(QPointF(), m_chart.plotArea().size());
    const QRectF linesClip = clipOfLines(plot, pos());
    const Places exposed = exposedPlaces(widget);
    painter->save();
    painter->setBrush(Qt::NoBrush);
    const auto all = m_chart.series();
    for (const QAbstractSeries *each : all) {
        const auto &series = static_cast<const QXYSeries &>(*each);
        if (!series.isVisible() || !series.useOpenGL())
            continue;
        const bool isSpline = series.type() == QAbstractSeries::SeriesTypeSpline;
        painter->setPen(series.pen());
        painter->setClipRect(isSpline ? plot : linesClip);
        if (isSpline)
            drawSpline(*painter, pixelsOf(series), exposed);
        else if (series.pen().style() == Qt::SolidLine)
            drawSegments(*painter, pixelsOf(series), exposed);
        else
            drawDashes(*painter, pixelsOf(series));
    }
    painter->restore();
}
