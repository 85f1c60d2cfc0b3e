// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/exporting_chart.h"

#include "calc/axis_grid.h"
#include "calc/numeric.h"
#include "calc/spline.h"
#include "curarrow.h"
#include "dictionary.h"
#include "mainwindow.h"

#include <QFontMetricsF>
#include <QGraphicsScene>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace extras {

namespace {

constexpr double leastContrast = 3.0;
constexpr double plainLetter = 14.0; ///< units; with larger letters, lines are thicker as well
constexpr double curveFineness = 8.0; ///< scale at which curves are flattened
constexpr int greySaturation = 25; ///< of 255; below it a colour counts as grey
constexpr QRgb lettersOnScreen = 0xFFE6E6E6;

double luminance(const QColor &colour)
{
    const auto linear = [](double share) {
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

double contrastOnWhite(const QColor &colour)
{
    return 1.05 / (luminance(colour) + 0.05);
}

/// Narrows \a from and \a to, positions from 0 to 1 on a line, so that start + position * delta is
/// within \a low and \a high.
void narrow(double start, double delta, double low, double high, double &from, double &to)
{
    if (delta == 0.0) {
        if (start < low || start > high)
            to = -1.0;
        return;
    }
    const double one = (low - start) / delta;
    const double other = (high - start) / delta;
    from = std::max(from, std::min(one, other));
    to = std::min(to, std::max(one, other));
}

QPolygonF curveThrough(const QVector<QPointF> &points)
{
    const QVector<QPointF> controls = calc::splineControls(points);
    if (controls.isEmpty())
        return {};
    QPainterPath path(points.first());
    for (int i = 0; i + 1 < controls.size(); i += 2)
        path.cubicTo(controls[i], controls[i + 1], points[i / 2 + 1]);
    const QTransform finer = QTransform::fromScale(curveFineness, curveFineness);
    return finer.inverted().map(path.toSubpathPolygons(finer).value(0));
}

/// One drawing of a chart.
class Chart
{
public:
    Chart(QPainter &painter, const QFont &font, const MainWindow &window, const Ink &ink)
        : m_painter(painter)
        , m_window(window)
        , m_parts(window.parts())
        , m_ink(ink)
        , m_metrics(font)
        , m_letter(m_metrics.height())
        , m_thickness(std::max(1.0, font.pixelSize() / plainLetter))
    {
        painter.setFont(font);
    }

    void draw(const QRectF &area);

private:
    QPointF at(double column, double level) const;
    double widthOf(const QString &text) const;
    void setPen(const QColor &screen, double width);
    void write(QPointF topLeft, const QString &text, const QColor &screen);
    void drawLevels();
    void drawDistances();
    void drawTexts();
    void drawSeries();
    void drawMarkers();

    QPainter &m_painter;
    const MainWindow &m_window;
    const MainWindowParts &m_parts;
    const Ink &m_ink;
    QFontMetricsF m_metrics;
    double m_letter; ///< height of a line of text
    double m_thickness; ///< of a thin line
    QRectF m_plot;
};

void Chart::draw(const QRectF &area)
{
    const double unit = widthOf(m_parts.d->DIST_SUFFIX_STR);
    m_plot = area.adjusted(widthOf(QStringLiteral("-128")) + m_letter, 2 * m_letter,
                           -(unit + 3 * m_letter), -2 * m_letter);
    drawDistances();
    drawLevels();
    drawSeries();
    drawMarkers();
    drawTexts();
}

QPointF Chart::at(double column, double level) const
{
    const QtCharts::QValueAxis &x = *m_parts.cust_axisX;
    const QtCharts::QValueAxis &y = *m_parts.cust_axisY;
    const double columns = std::max(1.0, x.max() - x.min());
    return { m_plot.left() + (column - x.min()) / columns * m_plot.width(),
             m_plot.bottom() - (level - y.min()) / (y.max() - y.min()) * m_plot.height() };
}

double Chart::widthOf(const QString &text) const
{
    return m_metrics.horizontalAdvance(text);
}

void Chart::setPen(const QColor &screen, double width)
{
    m_painter.setPen(QPen(m_ink.of(screen), width * m_thickness));
}

void Chart::write(QPointF topLeft, const QString &text, const QColor &screen)
{
    m_painter.setPen(m_ink.of(screen));
    m_painter.drawText(QPointF(topLeft.x(), topLeft.y() + m_metrics.ascent()), text);
}

void Chart::drawLevels()
{
    const QtCharts::QValueAxis &axis = *m_parts.cust_axisY;
    const double step = (axis.max() - axis.min()) / (axis.tickCount() - 1);
    for (int i = 0; i < axis.tickCount(); ++i) {
        const double level = axis.min() + i * step;
        const double y = at(0.0, level).y();
        setPen(axis.gridLinePen().color(), i == 0 ? axis.linePen().widthF() : 1.0);
        m_painter.drawLine(QPointF(m_plot.left(), y), QPointF(m_plot.right(), y));
        const QString text = QString::number(calc::truncated(level));
        write({ m_plot.left() - widthOf(text) - m_letter / 2, y - m_letter / 2 }, text, Qt::gray);
    }
    setPen(axis.gridLinePen().color(), axis.linePen().widthF());
    m_painter.drawLine(m_plot.bottomLeft(), m_plot.topLeft());
}

void Chart::drawDistances()
{
    const QtCharts::QValueAxis &axis = *m_parts.cust_axisX;
    const calc::GridPlan plan
        = calc::planGrid({ calc::truncated(axis.min()), calc::truncated(axis.max()) },
                         m_window.state().dist_coef, static_cast<float>(m_plot.width()));
    const double top = m_plot.bottom() + 0.75 * m_letter;
    double end = m_plot.left() - 2 * m_letter; // of the label before
    const auto drawLine = [&](const calc::GridPlan::Line &line) {
        if (!line.visible)
            return;
        const double x = m_plot.left() + line.offset;
        setPen(axis.gridLinePen().color(), 1);
        m_painter.drawLine(QPointF(x, m_plot.top()), QPointF(x, m_plot.bottom()));
        const double left = x - widthOf(line.text) / 2;
        // In a narrow window there is no room for every label.
        if (left < end + m_letter / 2)
            return;
        write({ left, top }, line.text, Qt::gray);
        end = left + widthOf(line.text);
    };
    drawLine(plan.edges[0]);
    for (const calc::GridPlan::Line &line : plan.interior)
        drawLine(line);
    drawLine(plan.edges[1]);
    write({ std::max(end, m_plot.right()) + m_letter / 2, top }, m_parts.d->DIST_SUFFIX_STR,
          Qt::gray);
}

void Chart::drawTexts()
{
    const QFont plain = m_painter.font();
    QFont bold = plain;
    bold.setBold(true);
    m_painter.setFont(bold);
    // Beside the title, not within the plot as on the screen, where a cursor can cross it.
    const QString step = m_parts.cursor_step_lbl.text();
    const double top = m_plot.top() - 1.5 * m_letter;
    const double stepLeft = m_plot.right() - widthOf(step);
    const QString title
        = QFontMetricsF(bold).elidedText(m_parts.chart_title.text().simplified(), Qt::ElideMiddle,
                                         stepLeft - m_letter - m_plot.left());
    write({ m_plot.left(), top }, title, Qt::gray);
    m_painter.setFont(plain);
    write({ stepLeft, top }, step, Qt::gray);
}

void Chart::drawSeries()
{
    // In the chart's own order, later ones on top.
    const auto all = m_parts.Plot_Chart->series();
    for (QtCharts::QAbstractSeries *one : all) {
        const auto *series = qobject_cast<QtCharts::QXYSeries *>(one);
        if (!series || !series->isVisible())
            continue;
        const QVector<QPointF> points = qtcompat::pointsOf(*series);
        const bool curve = qobject_cast<const QtCharts::QSplineSeries *>(series) != nullptr;
        QPolygonF line;
        for (const QPointF &point : points)
            line.append(at(point.x(), point.y()));
        QPen pen = series->pen();
        pen.setColor(m_ink.of(pen.color()));
        pen.setWidthF(pen.widthF() * m_thickness);
        m_painter.strokePath(clipped(curve ? curveThrough(line) : line, m_plot), pen);
    }
}

void Chart::drawMarkers()
{
    const double half = m_letter / 4;
    const QPolygonF tip{ { { -half, 0.0 }, { half, 0.0 }, { 0.0, 4 * half } } };
    const bool activeIsA = m_window.state().Cur_flag == MainWindow::CURSOR_A;
    QRectF taken;
    const auto drawMarker = [&](const CurArrow &marker, int column) {
        if (!m_window.isCursor_visible(marker.id))
            return;
        const double x = at(column, 0.0).x();
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(m_ink.of(marker.color));
        m_painter.drawPolygon(tip.translated(x, m_plot.top()));
        QPolygonF lower;
        for (const QPointF &corner : tip)
            lower.append(QPointF(x + corner.x(), m_plot.bottom() - corner.y()));
        m_painter.drawPolygon(lower);
        m_painter.setBrush(Qt::NoBrush);
        const QString name = marker.cur_lbl.text();
        QRectF letter(x + 2 * half, m_plot.bottom() - m_letter, widthOf(name), m_letter);
        if (letter.right() + half > m_plot.right())
            letter.moveRight(x - 2 * half);
        if (letter.intersects(taken))
            letter.moveBottom(taken.top());
        write(letter.topLeft(), name, marker.color);
        taken = letter;
    };
    const MainWindowState &state = m_window.state();
    if (activeIsA)
        drawMarker(*m_parts.cur_arrowB, state.cursor_B_pos);
    drawMarker(*m_parts.cur_arrowA, state.cursor_A_pos);
    if (!activeIsA)
        drawMarker(*m_parts.cur_arrowB, state.cursor_B_pos);
}

} // namespace

Ink::Ink(const MainWindow &window, Background background)
    : m_background(background == Background::White
                       ? Qt::white
                       : window.parts().Plot_Scene->backgroundBrush().color())
    , m_onWhite(background == Background::White)
{
}

QColor Ink::background() const
{
    return m_background;
}

QColor Ink::text() const
{
    return of(QColor::fromRgb(lettersOnScreen));
}

QColor Ink::of(const QColor &screen) const
{
    if (!m_onWhite)
        return screen;
    if (screen.saturation() < greySaturation)
        return { 255 - screen.red(), 255 - screen.green(), 255 - screen.blue() };
    QColor ink = screen;
    while (contrastOnWhite(ink) < leastContrast)
        ink.setHsv(screen.hsvHue(), screen.hsvSaturation(), ink.value() - 1);
    return ink;
}

QPainterPath clipped(const QPolygonF &line, const QRectF &area)
{
    QPainterPath path;
    for (int i = 0; i + 1 < line.size(); ++i) {
        const QLineF part(line[i], line[i + 1]);
        double from = 0.0;
        double to = 1.0;
        narrow(part.x1(), part.dx(), area.left(), area.right(), from, to);
        narrow(part.y1(), part.dy(), area.top(), area.bottom(), from, to);
        if (from > to)
            continue;
        const QPointF start = part.pointAt(from);
        if (path.isEmpty() || path.currentPosition() != start)
            path.moveTo(start);
        path.lineTo(to == 1.0 ? part.p2() : part.pointAt(to));
    }
    return path;
}

void drawChart(QPainter &painter, const QRectF &area, const QFont &font, const MainWindow &window,
               const Ink &ink)
{
    Chart(painter, font, window, ink).draw(area);
}

} // namespace extras
