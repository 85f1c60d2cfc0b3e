// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPair>
#include <QPointF>
#include <QString>
#include <QVector>

class MainWindow;
class QPainter;

namespace extras {

class Ink;

/// The strip under a chart: a line for each visible trace, and below them the facts about the
/// measurement in columns. Words are those of the window.
class Caption
{
public:
    /// A strip \a width units wide with letters of \a font. A file name that is too long for it is
    /// shortened in the middle; everything else takes as many lines as it needs.
    Caption(const MainWindow &window, const QFont &font, double width);

    double height() const;
    void draw(QPainter &painter, QPointF topLeft, const Ink &ink) const;

private:
    struct Trace
    {
        QColor colour;
        QString cells[4]; ///< slot, file, date and time, marks
    };

    /// Names and values one under the other; widths include the gap that follows.
    struct Column
    {
        QVector<QPair<QString, QString>> facts;
        double nameWidth = 0.0;
        double width = 0.0; ///< of names and values
    };

    void addTraces(const MainWindow &window, double width);
    void addFacts(const MainWindow &window, double width);
    double widthOf(const QString &text) const;
    double factsTop() const;
    void drawTraces(QPainter &painter, QPointF topLeft, const Ink &ink) const;

    QFont m_font;
    QFontMetricsF m_metrics;
    double m_line; ///< height of a line
    double m_swatch; ///< width of the sample of a trace's colour, with its gap
    QVector<Trace> m_traces;
    double m_cellWidths[4] = {}; ///< of the cells of a trace, with their gaps
    QVector<Column> m_columns;
};

} // namespace extras
