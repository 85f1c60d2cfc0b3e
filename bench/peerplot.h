// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/constants.h"
#include "calc/trace_points.h"
#include "calc/view_range.h"
#include "protocol_vx840.h"

#include <QColor>
#include <QPainterPath>
#include <QPen>
#include <QStringList>
#include <QVector>

class QWidget;

/// What the viewer's plot shows, as plain data.
struct PeerModel
{
    struct Trace
    {
        Protocol_VX840::TDR_FILE_t record = {};
        int offset = 0; ///< sample steps
        int scroll = 0; ///< counts
    };

    QVector<Trace> traces; ///< one for each slot; the first is the master
    int selected = 0;
    bool difference = false;
    bool smooth = false;
    calc::Range range = { 0, constants::drawnSamples }; ///< counts
    double ku = 1.5;
    int cursors[2] = {}; ///< A, which is active, and B; counts
    int textPoints = 9; ///< size of title and step text

    /// Reads the six \a files again; no trace is shifted then.
    void load(const QStringList &files);

    /// Points of a trace: corners of its steps, or those that the smooth curve passes through.
    QVector<QPointF> points(int slot) const;
    /// The same for a library that draws straight lines only.
    QVector<QPointF> polyline(int slot) const;
    /// Smooth curve through \a points.
    static QPainterPath curve(const QVector<QPointF> &points);

    /// Sample steps under a cursor, or 129.
    int level(int cursor) const;
    double metresPerCount() const;
    QPen tracePen(int slot) const;
    QColor cursorColour(int cursor) const;
    QColor background() const;
    QString title() const;
    QString stepText() const;

private:
    calc::TraceRef ref(int slot) const;
};

/// A plot widget that draws a PeerModel.
class PeerPlot
{
public:
    virtual ~PeerPlot() = default;

    /// Shows \a model, which stays valid, in one repaint. The points are as before unless
    /// \a pointsChanged.
    virtual void show(const PeerModel &model, bool pointsChanged) = 0;

    QWidget *const widget; ///< owned by the window that takes it into its layout
    QWidget *const canvas; ///< the part on which the traces are painted

protected:
    PeerPlot(QWidget *plotWidget, QWidget *plotCanvas)
        : widget(plotWidget)
        , canvas(plotCanvas)
    {
    }

    static constexpr QRgb gridColour = 0xFF323232;
    static constexpr int cursorPen = 2;
};

/// The reference: repaints everything with QPainter, antialiased, a line per segment as the chart
/// module does, which is also faster than one polyline.
PeerPlot *makePainterPlot();
/// The libraries in their ordinary use: a replot for every change. Axes in counts, no letters at
/// the cursors.
PeerPlot *makeQwtPlot();
PeerPlot *makeQCustomPlot();
