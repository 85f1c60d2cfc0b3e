// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/axis_grid.h"
#include "peerplot.h"

#include <QPainter>
#include <QWidget>

namespace {

/// Around the plot area, as the viewer's chart leaves them.
constexpr QMargins margins = { 57, 26, 23, 27 };
constexpr int levelStep = 32; ///< between two lines of the vertical axis
constexpr int labelPixels = 10; ///< of its labels
constexpr double markerSize = 8.0;

class PainterPlot : public QWidget, public PeerPlot
{
public:
    PainterPlot()
        : PeerPlot(this, this)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    void show(const PeerModel &model, bool pointsChanged) override
    {
        m_model = &model;
        for (int slot = 0; pointsChanged && slot < model.traces.size(); ++slot)
            m_points[slot] = model.points(slot);
        update();
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        Q_UNUSED(event)
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        m_plot = QRectF(rect().marginsRemoved(margins));
        painter.fillRect(rect(), m_model->background());
        paintLevels(painter);
        paintDistances(painter);
        painter.save();
        painter.setClipRect(m_plot);
        for (int slot = 0; slot < m_model->traces.size(); ++slot)
            if (slot != m_model->selected)
                paintTrace(painter, slot);
        paintTrace(painter, m_model->selected);
        painter.restore();
        paintCursor(painter, 1);
        paintCursor(painter, 0);
        paintTexts(painter);
    }

private:
    QPointF toPixel(QPointF point) const
    {
        const double span = m_model->range.max - m_model->range.min;
        constexpr double levels = constants::levelMax - constants::levelMin;
        return { m_plot.left() + (point.x() - m_model->range.min) / span * m_plot.width(),
                 m_plot.bottom() - (point.y() - constants::levelMin) / levels * m_plot.height() };
    }
    QFont fontOf(int pixels) const
    {
        QFont font = this->font();
        font.setPixelSize(pixels);
        return font;
    }
    void paintLevels(QPainter &painter) const;
    void paintDistances(QPainter &painter) const;
    void paintTrace(QPainter &painter, int slot) const;
    void paintCursor(QPainter &painter, int cursor) const;
    void paintTexts(QPainter &painter) const;

    const PeerModel *m_model = nullptr;
    QVector<QPointF> m_points[constants::slotCount];
    QRectF m_plot;
};

void PainterPlot::paintLevels(QPainter &painter) const
{
    const QColor ink = QColor::fromRgb(gridColour);
    painter.setFont(fontOf(labelPixels));
    for (int level = constants::levelMin; level <= constants::levelMax; level += levelStep) {
        const double y = toPixel({ 0.0, double(level) }).y();
        painter.setPen(QPen(ink, level == 0 ? 3 : 1));
        painter.drawLine(QPointF(m_plot.left(), y), QPointF(m_plot.right(), y));
        painter.setPen(Qt::gray);
        painter.drawText(QRectF(0, y - labelPixels, m_plot.left() - 6, 2 * labelPixels),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(level));
    }
    painter.setPen(QPen(ink, 2));
    painter.drawLine(m_plot.bottomLeft(), m_plot.topLeft());
    painter.drawLine(m_plot.bottomLeft(), m_plot.bottomRight());
}

void PainterPlot::paintDistances(QPainter &painter) const
{
    const calc::GridPlan plan = calc::planGrid(m_model->range, m_model->metresPerCount(),
                                               static_cast<float>(m_plot.width()));
    painter.setFont(fontOf(m_model->textPoints));
    const double labelY = m_plot.bottom() + margins.bottom() / 2;
    const auto paint = [&](const calc::GridPlan::Line &line) {
        if (!line.visible)
            return;
        const double x = m_plot.left() + line.offset;
        painter.setPen(QColor::fromRgb(gridColour));
        painter.drawLine(QPointF(x, m_plot.bottom()), QPointF(x, m_plot.top()));
        painter.setPen(Qt::gray);
        painter.drawText(QPointF(x - m_model->textPoints / 2, labelY), line.text);
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
    painter.setPen(m_model->tracePen(slot));
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
    const QPointF at
        = toPixel({ double(m_model->cursors[cursor]), double(m_model->level(cursor)) });
    painter.setPen(QPen(ink, 1, Qt::DashLine));
    painter.drawLine(QPointF(m_plot.left(), at.y()), QPointF(m_plot.right(), at.y()));
    painter.setPen(QPen(ink, cursorPen));
    painter.drawLine(QPointF(at.x(), m_plot.bottom()), QPointF(at.x(), m_plot.top()));

    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    const double half = markerSize / 2.0;
    for (const double length : { 2.0 * markerSize, -2.0 * markerSize }) {
        const double edge = length > 0.0 ? m_plot.top() : m_plot.bottom();
        const QPointF triangle[]
            = { { at.x() - half, edge }, { at.x() + half, edge }, { at.x(), edge + length } };
        painter.drawPolygon(triangle, 3);
    }
    // The viewer's letters are outlines with a pen as well.
    QPainterPath letter;
    QFont font = this->font();
    font.setPointSize(m_model->textPoints * 3 / 4);
    letter.addText(at.x() + markerSize, m_plot.bottom() - 2.0, font,
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
    painter.drawText(m_plot, Qt::AlignRight | Qt::AlignTop, m_model->stepText());
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(m_plot.topLeft() + QPointF(m_model->textPoints, -6.0), m_model->title());
}

} // namespace

PeerPlot *makePainterPlot()
{
    return new PainterPlot;
}
