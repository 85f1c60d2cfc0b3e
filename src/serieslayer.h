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
/// When the points of a series or the range change, the module strokes an outline of the series for
/// mouse tests. Nothing here uses the outlines, and they take half of a pan. Only a series that is
/// marked for OpenGL has none. So all series are marked, the OpenGL widget that would show them is
/// created in a view that is never shown, and this item paints them. Series that are not marked are
/// left to the module.
///
/// The item repaints itself when the series, the axes or the plot area change. It paints only near
/// the region that the view repaints, so a cursor step paints only short parts of the traces.
class SeriesLayer : public QGraphicsObject
{
    Q_OBJECT

public:
    /// For all series that \a chart has now. Splines are MarkableSplines, and series of two points
    /// keep two points. The chart is in no scene yet, later in one that only a PlotView shows.
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
    /// What \a viewport repaints, in coordinates of this item; all of it without a viewport.
    Places exposedPlaces(const QWidget *viewport) const;

    QtCharts::QChart &m_chart;
    QtCharts::QValueAxis &m_x;
    QtCharts::QValueAxis &m_y;
    QGraphicsView m_neverShown; ///< parent of the OpenGL widget
    QHash<const QtCharts::QXYSeries *, QRectF> m_lines; ///< series of two points, and their places
};

/// A spline that can be marked for OpenGL. The module marks lines only, so this series says that it
/// is one while the mark is set.
class MarkableSpline : public QtCharts::QSplineSeries
{
public:
    using QtCharts::QSplineSeries::QSplineSeries;
    SeriesType type() const override;
    void mark(bool on);

private:
    bool m_isLine = false;
};
