// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/exporting_picture.h"

#include "calc/numeric.h"
#include "extras/dashing_canvas.h"
#include "mainwindow.h"

#include <QGraphicsScene>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cmath>

namespace extras {

namespace {

constexpr double pointsPerInch = 72.0;
constexpr double metresPerInch = 0.0254;
constexpr double labelMargin = 4.0; ///< pixels of the screen right of the last distance

/// What of the scene the view shows, in scene coordinates, which are the pixels of the screen. A
/// distance at the right edge that the view cuts off is had whole.
QRectF shownArea(const MainWindow &window)
{
    const MainWindowParts &parts = window.parts();
    QRectF area = parts.Plot_View->mapToScene(parts.Plot_View->viewport()->rect()).boundingRect();
    const auto include = [&](const QGraphicsSimpleTextItem &label) {
        if (label.isVisible() && label.sceneBoundingRect().left() < area.right())
            area.setRight(std::max(area.right(), label.sceneBoundingRect().right() + labelMargin));
    };
    for (const QGraphicsSimpleTextItem &label : parts.axis_lbl)
        include(label);
    for (const QGraphicsSimpleTextItem &label : parts.axis_0_lbl)
        include(label);
    return area;
}

/// Draws all of \a area into \a target.
bool draw(const MainWindow &window, QPaintDevice &device, const QRectF &target, const QRectF &area)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    window.parts().Plot_Scene->render(&painter, target, area, Qt::IgnoreAspectRatio);
    return painter.end();
}

} // namespace

QImage chartPicture(const MainWindow &window)
{
    const QRectF area = shownArea(window);
    const double scale = double{ pictureResolution } / window.parts().Plot_View->logicalDpiX();
    QImage picture(calc::truncated(std::ceil(area.width() * scale)),
                   calc::truncated(std::ceil(area.height() * scale)), QImage::Format_RGB32);
    if (picture.isNull())
        return {};
    picture.fill(Qt::black);
    {
        DashingCanvas canvas(picture, window.parts().Plot_View->logicalDpiX());
        if (!draw(window, canvas, QRectF(QPointF(), area.size() * scale), area))
            return {};
    }
    // Only now: on a device of 300 dots per inch letters would grow once more.
    const int dotsPerMetre = qRound(pictureResolution / metresPerInch);
    picture.setDotsPerMeterX(dotsPerMetre);
    picture.setDotsPerMeterY(dotsPerMetre);
    return picture;
}

bool writeChartPdf(const MainWindow &window, QIODevice &device)
{
    const QRectF area = shownArea(window);
    const int resolution = window.parts().Plot_View->logicalDpiX();
    QPdfWriter writer(&device);
    writer.setCreator(QStringLiteral("Velkor"));
    writer.setTitle(window.parts().chart_title.text());
    // One unit of the page is one pixel of the screen, for letters as well as for lines.
    writer.setResolution(resolution);
    // Whole points, because the page has no others, and the picture fills it to the edges.
    const QSizeF page(std::ceil(area.width() * pointsPerInch / resolution),
                      std::ceil(area.height() * pointsPerInch / resolution));
    writer.setPageLayout(
        QPageLayout(QPageSize(page, QPageSize::Point, QString(), QPageSize::ExactMatch),
                    QPageLayout::Portrait, QMarginsF()));
    return draw(window, writer, QRectF(QPointF(), page * (resolution / pointsPerInch)), area);
}

} // namespace extras
