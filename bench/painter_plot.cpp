// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "painter_plot.h"

PainterPlot::PainterPlot()
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(constants::minPlotViewWidth, constants::minPlotViewHeight);
}

QWidget *PainterPlot::widget()
{
    return this;
}

QWidget *PainterPlot::canvas()
{
    return this;
}

void PainterPlot::showModel(const PeerModel &model, int changes, int slot)
{
    m_model = &model;
    m_points.resize(model.traces.size());
    if (changes & Traces) {
        for (int trace = 0; trace < m_points.size(); ++trace)
            if (slot < 0 || slot == trace)
                m_points[trace] = model.points(trace);
    }
    update();
}

QPointF PainterPlot::toPixel(QPointF point) const
{
    const double span = m_model->range.max - m_model->range.min;
    constexpr double levels = constants::levelMax - constants::levelMin;
    return { m_plot.left() + (point.x() - m_model->range.min) / span * m_plot.width(),
             m_plot.bottom() - (point.y() - constants::levelMin) / levels * m_plot.height() };
}

void PainterPlot::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_model == nullptr) {
        painter.fillRect(rect(), Qt::black);
        return;
    }
    m_plot = QRectF(rect().marginsRemoved(margins));
    painter.fillRect(rect(), m_model->background());
    paintLevels(painter);
    paintDistances(painter);
    painter.save();
    painter.setClipRect(m_plot);
    // The selected trace lies on the others.
    for (int slot = 0; slot < m_points.size(); ++slot)
        if (slot != m_model->selected)
            paintTrace(painter, slot);
    paintTrace(painter, m_model->selected);
    painter.restore();
    paintCursor(painter, 1 - m_model->active);
    paintCursor(painter, m_model->active);
    paintTexts(painter);
}

void PainterPlot::paintLevels(QPainter &painter) const
{
    const QColor ink = QColor::fromRgba(constants::axisColour);
    QFont font = this->font();
    font.setPixelSize(labelPixels);
    painter.setFont(font);
    for (int level = constants::levelMin; level <= constants::levelMax; level += levelStep) {
        const double y = toPixel({ 0.0, double(level) }).y();
        painter.setPen(QPen(ink, level == 0 ? constants::baseLinePen : 1));
        painter.drawLine(QPointF(m_plot.left(), y), QPointF(m_plot.right(), y));
        painter.setPen(Qt::gray);
        painter.drawText(QRectF(0, y - labelPixels, m_plot.left() - 6, 2 * labelPixels),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(level));
    }
    painter.setPen(QPen(ink, constants::axisLinePen));
    painter.drawLine(m_plot.bottomLeft(), m_plot.topLeft());
    painter.drawLine(m_plot.bottomLeft(), m_plot.bottomRight());
}

void PainterPlot::paintDistances(QPainter &painter) const
{
    const calc::GridPlan plan = m_model->grid(m_plot.width());
    const QPen grid(QColor::fromRgba(constants::axisColour), 1);
    QFont font = this->font();
    font.setPixelSize(qMax(labelPixels, m_model->textPoints));
    painter.setFont(font);
    const auto paint = [&](const calc::GridPlan::Line &line) {
        if (!line.visible)
            return;
        const double x = m_plot.left() + line.offset;
        painter.setPen(grid);
        painter.drawLine(QPointF(x, m_plot.bottom()), QPointF(x, m_plot.top()));
        painter.setPen(Qt::gray);
        painter.drawText(QPointF(x - font.pixelSize() / 2, m_plot.bottom() + margins.bottom() / 2),
                         line.text);
    };
    for (const calc::GridPlan::Line &line : plan.interior)
        paint(line);
    for (const calc::GridPlan::Line &line : plan.edges)
        paint(line);
}

void PainterPlot::paintTrace(QPainter &painter, int slot) const
{
    QVector<QPointF> pixels;
    pixels.reserve(m_points[slot].size());
    for (const QPointF &point : m_points[slot])
        pixels << toPixel(point);
    painter.setPen(QPen(QColor::fromRgba(constants::slotColours[slot]), m_model->penWidth(slot)));
    painter.setBrush(Qt::NoBrush);
    if (m_model->smooth) {
        painter.drawPath(PeerModel::curve(pixels));
        return;
    }
    for (int i = 1; i < pixels.size(); ++i)
        painter.drawLine(pixels[i - 1], pixels[i]);
}

void PainterPlot::paintCursor(QPainter &painter, int cursor) const
{
    const QColor ink = m_model->cursorColour(cursor);
    const double x = toPixel({ double(m_model->cursors[cursor]), 0.0 }).x();
    const double y = toPixel({ 0.0, double(m_model->level(cursor)) }).y();
    painter.setPen(QPen(ink, constants::cursorLevelPen, Qt::DashLine));
    painter.drawLine(QPointF(m_plot.left(), y), QPointF(m_plot.right(), y));
    painter.setPen(QPen(ink, constants::cursorPen));
    painter.drawLine(QPointF(x, m_plot.bottom()), QPointF(x, m_plot.top()));

    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    const double half = markerSize / 2.0;
    for (const double sign : { 1.0, -1.0 }) {
        const double edge = sign > 0.0 ? m_plot.top() : m_plot.bottom();
        const QPointF triangle[]
            = { { x - half, edge }, { x + half, edge }, { x, edge + sign * 2.0 * markerSize } };
        painter.drawPolygon(triangle, 3);
    }
    // As the viewer's letters: an outline with a pen.
    QPainterPath letter;
    QFont font = this->font();
    font.setPointSize(qMax(1, m_model->textPoints * 3 / 4));
    letter.addText(x + markerSize, m_plot.bottom() - 2.0, font,
                   cursor == 0 ? QStringLiteral("A") : QStringLiteral("B"));
    painter.setPen(ink);
    painter.drawPath(letter);
}

void PainterPlot::paintTexts(QPainter &painter) const
{
    QFont font = this->font();
    font.setPointSize(m_model->textPoints);
    painter.setPen(Qt::gray);
    painter.setFont(font);
    painter.drawText(m_plot, Qt::AlignRight | Qt::AlignTop, m_model->stepText);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(m_plot.topLeft() + QPointF(m_model->textPoints, -6.0), m_model->title);
}
