// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/exporting_caption.h"

#include "base/catalogue.h"
#include "dictionary.h"
#include "extras/exporting_chart.h"
#include "extras/exporting_text.h"
#include "mainwindow.h"
#include "settingsdata.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace extras {

namespace {

constexpr double lineSpacing = 1.3; ///< heights of the font
/// A program that shows a drawing with another font may need more room than this one.
constexpr double widthReserve = 1.1;
constexpr int fileCell = 1;
constexpr int leastRows = 3;

} // namespace

Caption::Caption(const MainWindow &window, const QFont &font, double width)
    : m_font(font)
    , m_metrics(font)
    , m_line(m_metrics.height() * lineSpacing)
    , m_swatch(3 * m_metrics.height())
{
    addTraces(window, width);
    addFacts(window, width);
}

void Caption::addTraces(const MainWindow &window, double width)
{
    const MainWindowState &state = window.state();
    const Catalogue texts("Extras", window.settings()->current_language);
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        if (!isShown(window, slot))
            continue;
        QStringList marks;
        if (slot == state.rfg_ID)
            marks.append(texts.text(QT_TRANSLATE_NOOP("Extras", "selected")));
        if (slot == state.rfg_master_ID)
            marks.append(texts.text(QT_TRANSLATE_NOOP("Extras", "master")));
        m_traces.append({ QColor::fromRgba(constants::slotColours[slot]),
                          { window.slotTitle(slot), fileOf(window, slot), measuredOf(window, slot),
                            marks.join(QStringLiteral(", ")) } });
        for (int i = 0; i < 4; ++i)
            m_cellWidths[i] = std::max(m_cellWidths[i], widthOf(m_traces.last().cells[i]));
    }
    double others = m_swatch;
    for (int i = 0; i < 4; ++i)
        if (i != fileCell)
            others += m_cellWidths[i];
    m_cellWidths[fileCell] = std::min(m_cellWidths[fileCell], std::max(0.0, width - others));
}

void Caption::addFacts(const MainWindow &window, double width)
{
    const QVector<QPair<QString, QString>> facts = factsOf(window);
    const auto count = static_cast<int>(facts.size());
    double total = width + 1.0;
    // As many columns as have room. In three rows, what belongs together makes a column.
    for (int rows = leastRows; rows <= count && total > width; ++rows) {
        m_columns.clear();
        total = -m_metrics.height(); // the gap after the last column
        for (int first = 0; first < count; first += rows) {
            Column column{ facts.mid(first, rows) };
            double values = 0.0;
            for (const auto &[name, value] : std::as_const(column.facts)) {
                column.nameWidth = std::max(column.nameWidth, widthOf(name));
                values = std::max(values, widthOf(value));
            }
            column.width = column.nameWidth + values;
            total += column.width;
            m_columns.append(column);
        }
    }
}

double Caption::widthOf(const QString &text) const
{
    return text.isEmpty() ? 0.0
                          : m_metrics.horizontalAdvance(text) * widthReserve + m_metrics.height();
}

double Caption::height() const
{
    return factsTop() + m_line * static_cast<int>(m_columns.constFirst().facts.size());
}

double Caption::factsTop() const
{
    return m_traces.isEmpty() ? 0.0 : m_line * (static_cast<int>(m_traces.size()) + 0.5);
}

void Caption::draw(QPainter &painter, QPointF topLeft, const Ink &ink) const
{
    painter.setFont(m_font);
    drawTraces(painter, topLeft, ink);
    painter.setPen(ink.text());
    QPointF top = topLeft + QPointF(0.0, factsTop() + m_metrics.ascent());
    for (const Column &column : m_columns) {
        QPointF at = top;
        for (const auto &[name, value] : column.facts) {
            painter.drawText(at, name);
            painter.drawText(at + QPointF(column.nameWidth, 0.0), value);
            at.ry() += m_line;
        }
        top.rx() += column.width;
    }
}

void Caption::drawTraces(QPainter &painter, QPointF topLeft, const Ink &ink) const
{
    QPointF base = topLeft + QPointF(0.0, m_metrics.ascent());
    for (const Trace &trace : m_traces) {
        const QPointF middle(0.0, m_metrics.ascent() / 3);
        painter.setPen(QPen(ink.of(trace.colour), 3, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(base - middle, base - middle + QPointF(m_swatch * 2 / 3, 0.0));
        painter.setPen(ink.text());
        double x = m_swatch;
        for (int i = 0; i < 4; ++i) {
            const double room = m_cellWidths[i] - m_metrics.height();
            painter.drawText(base + QPointF(x, 0.0),
                             m_metrics.elidedText(trace.cells[i], Qt::ElideMiddle, room));
            x += m_cellWidths[i];
        }
        base += QPointF(0.0, m_line);
    }
}

} // namespace extras
