// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/exporting_picture.h"

#include "base/catalogue.h"
#include "calc/numeric.h"
#include "extras/exporting_text.h"
#include "mainwindow.h"
#include "settingsdata.h"

#include <QApplication>
#include <QBuffer>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <cmath>
#include <utility>

namespace extras {

namespace {

constexpr double metresPerInch = 0.0254;
constexpr int dotsPerInch = 300;
constexpr double widestPicture = 11.0 * dotsPerInch; ///< dots; the width of A4 less its margins
constexpr double pageMargin = 15.0; ///< mm
constexpr double pageUnits = 1000.0; ///< units across a page, so that its letters have 9 points
constexpr int pageLetter = 12; ///< units
constexpr int leastCaptionLetter = 10; ///< units
constexpr double captionShare = 0.85; ///< of the letters in the chart

constexpr double lineSpacing = 1.3; ///< heights of the font
/// A program that shows a drawing with another font may need more width.
constexpr double widthReserve = 1.1;
constexpr int fileCell = 1;
constexpr int leastRows = 3;

/// The strip under a chart: a line for each visible trace, and below them the facts about the
/// measurement in columns, in the language of the window.
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
    // As many columns as fit. With three rows, each column holds facts of the same kind.
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

/// The font of a report, \a pixels units high. Letters grow evenly with the scale.
QFont fontOf(int pixels)
{
    QFont font(QFontInfo(QApplication::font()).family());
    font.setPixelSize(pixels);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

/// Chart and caption, laid out for a width.
class Report
{
public:
    /// \a width and \a chartHeight in units, letters \a letter units high.
    Report(const MainWindow &window, Background background, double width, int letter)
        : m_window(window)
        , m_ink(window, background)
        , m_font(fontOf(letter))
        , m_margin(letter)
        , m_caption(window,
                    fontOf(std::max(leastCaptionLetter, calc::truncated(captionShare * letter))),
                    width - 2 * letter)
        , m_width(width)
    {
    }

    /// Height of the strip with its margins: a whole number, because sizes in files are.
    double captionHeight() const
    {
        return std::ceil(m_caption.height() + 2 * m_margin);
    }

    /// Draws the report \a height units high with \a painter.
    void draw(QPainter &painter, double height) const
    {
        const double chart = height - captionHeight();
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        // One unit larger: a program that rounds the size of a drawing leaves no edge unpainted.
        painter.fillRect(QRectF(0.0, 0.0, m_width + 1.0, height + 1.0), m_ink.background());
        drawChart(painter, { 0.0, 0.0, m_width, chart }, m_font, m_window, m_ink);
        m_caption.draw(painter, { m_margin, chart + m_margin }, m_ink);
    }

private:
    const MainWindow &m_window;
    Ink m_ink;
    QFont m_font;
    double m_margin;
    Caption m_caption;
    double m_width;
};

QSizeF plotSize(const MainWindow &window)
{
    return window.parts().Plot_View->viewport()->size();
}

/// Height of the letters beside the plot on the screen, pixels.
int letterOf(const MainWindow &window)
{
    return window.parts().axis_lbl[0].font().pixelSize();
}

} // namespace

QImage chartPicture(const MainWindow &window, Background background)
{
    const QSizeF plot = plotSize(window);
    const Report report(window, background, plot.width(), letterOf(window));
    const double height = plot.height() + report.captionHeight();
    const double scale
        = std::min(double{ dotsPerInch } / window.logicalDpiX(), widestPicture / plot.width());
    QImage picture(calc::truncated(std::ceil(plot.width() * scale)),
                   calc::truncated(std::ceil(height * scale)), QImage::Format_RGB32);
    if (picture.isNull())
        return {};
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.scale(picture.width() / plot.width(), picture.height() / height);
    report.draw(painter, height);
    painter.end();
    const int dotsPerMetre = qRound(dotsPerInch / metresPerInch);
    picture.setDotsPerMeterX(dotsPerMetre);
    picture.setDotsPerMeterY(dotsPerMetre);
    return picture;
}

QByteArray chartPage(const MainWindow &window)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setCreator(QStringLiteral("Velkor"));
    writer.setTitle(window.parts().chart_title.text());
    writer.setResolution(dotsPerInch);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape,
                                     QMarginsF(pageMargin, pageMargin, pageMargin, pageMargin),
                                     QPageLayout::Millimeter));
    QPainter painter(&writer);
    const double scale = writer.width() / pageUnits;
    painter.scale(scale, scale);
    Report(window, Background::White, pageUnits, pageLetter).draw(painter, writer.height() / scale);
    painter.end();
    return buffer.data();
}

QByteArray chartDrawing(const MainWindow &window)
{
    const QSizeF plot = plotSize(window);
    const Report report(window, Background::White, plot.width(), letterOf(window));
    const double height = plot.height() + report.captionHeight();
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setTitle(window.parts().chart_title.text());
    generator.setResolution(window.logicalDpiX());
    generator.setSize({ calc::truncated(plot.width()), calc::truncated(height) });
    generator.setViewBox(QRectF(0.0, 0.0, plot.width(), height));
    QPainter painter(&generator);
    report.draw(painter, height);
    painter.end();
    return buffer.data();
}

} // namespace extras
