// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/exporting_picture.h"

#include "calc/numeric.h"
#include "extras/exporting_caption.h"
#include "mainwindow.h"

#include <QApplication>
#include <QBuffer>
#include <QFontInfo>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <cmath>

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
    Report(const MainWindow &window, Ground ground, double width, int letter)
        : m_window(window)
        , m_ink(window, ground)
        , m_font(fontOf(letter))
        , m_margin(letter)
        , m_caption(window,
                    fontOf(std::max(leastCaptionLetter, calc::truncated(captionShare * letter))),
                    width - 2 * letter)
        , m_width(width)
    {
    }

    /// Height of the strip with its margins, a whole number, as sizes of files are.
    double captionHeight() const
    {
        return std::ceil(m_caption.height() + 2 * m_margin);
    }

    /// Draws the report \a height units high with \a painter.
    void draw(QPainter &painter, double height) const
    {
        const double chart = height - captionHeight();
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        // A unit more, so that a program that rounds a drawing's size leaves no bare edge.
        painter.fillRect(QRectF(0.0, 0.0, m_width + 1.0, height + 1.0), m_ink.ground());
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

QImage chartPicture(const MainWindow &window, Ground ground)
{
    const QSizeF plot = plotSize(window);
    const Report report(window, ground, plot.width(), letterOf(window));
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
    Report(window, Ground::White, pageUnits, pageLetter).draw(painter, writer.height() / scale);
    painter.end();
    return buffer.data();
}

QByteArray chartDrawing(const MainWindow &window)
{
    const QSizeF plot = plotSize(window);
    const Report report(window, Ground::White, plot.width(), letterOf(window));
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
