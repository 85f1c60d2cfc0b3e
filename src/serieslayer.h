// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/qtcompat.h"

#include <QGraphicsObject>
#include <QGraphicsView>
#include <QHash>
#include <QVector>
#include <QtCharts/QChart>
#include <QtCharts/QSplineSeries>
#include <QtCharts/QValueAxis>

/// Paints all series of a chart in place of the chart module, with the same pixels.
///
/// When the points of a series or the range change, the module computes an outline of the series
/// for mouse tests. The viewer does not use the outlines, and they take half the time of a pan. A
/// series that is marked for OpenGL has no outline. So all series are marked, and this item paints
/// them. The OpenGL widget that would show them is created in a view that is never shown. The
/// module paints series that are not marked.
///
/// The item repaints itself when points (by replace()), pens, visibility, ranges or the plot area
/// change; it has no use for other properties of series. It paints only near the region that the
/// view repaints, so a cursor step paints only short parts of the traces.
class SeriesLayer : public QGraphicsObject
{
    Q_OBJECT

public:
    /// Paints all series that \a chart has now: splines must be MarkableSplines, series of two
    /// points must keep two. The chart must be in no scene yet; only a PlotView may show it later.
    SeriesLayer(QtCharts::QChart &chart, QtCharts::QValueAxis &x, QtCharts::QValueAxis &y);

    /// Draws \a wanted above all other series, in this order, the last one on top. Does nothing
    /// when they are there already.
    void raise(const QVector<QtCharts::QXYSeries *> &wanted);

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    using Places = QVector<QRectF>;

    void markForOpenGL();
    void follow(const QtCharts::QXYSeries &series);
    void repaintLine(const QtCharts::QXYSeries &line);
    void repaintAll();
    QVector<QPointF> pixelsOf(const QtCharts::QXYSeries &series) const;
    QRectF placeOf(const QtCharts::QXYSeries &series) const;
    /// Parts that \a viewport repaints, in coordinates of this item; all of it for a null viewport.
    Places exposedPlaces(const QWidget *viewport) const;

    QtCharts::QChart &m_chart;
    QtCharts::QValueAxis &m_x;
    QtCharts::QValueAxis &m_y;
    QGraphicsView m_neverShown; ///< parent of the OpenGL widget
    QHash<const QtCharts::QXYSeries *, QRectF> m_lines; ///< places of the series of two points
};

/// A spline that can be marked for OpenGL. The module marks only line series, so \c type returns
/// the type of a line series while \c mark runs.
class MarkableSpline : public QtCharts::QSplineSeries
{
public:
    using QtCharts::QSplineSeries::QSplineSeries;
    SeriesType type() const override;
    void mark(bool on);

private:
    bool m_isLine = false;
};
