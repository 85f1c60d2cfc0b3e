// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calc/axis_grid.h"
#include "calc/trace_points.h"
#include "calc/view_range.h"
#include "protocol_vx840.h"

#include <QColor>
#include <QPainterPath>
#include <QString>
#include <QStringList>
#include <QVector>

/// What a peer's plot has to show: the same as the viewer's, as plain data.
struct PeerModel
{
    static constexpr int cursorCount = 2;

    struct Trace
    {
        Protocol_VX840::TDR_FILE_t record = {};
        int offset = 0; ///< sample steps
        int scroll = 0; ///< counts
    };

    QVector<Trace> traces; ///< at most six
    int selected = 0;
    int master = 0;
    bool difference = false;
    bool smooth = false;
    calc::Range range = { 0, constants::drawnSamples }; ///< counts
    double ku = double{ constants::startKU };
    int cursors[cursorCount] = { 0, 0 }; ///< counts
    int active = 0; ///< the yellow one; the other is gray
    QString title;
    QString stepText;
    int textPoints = 9; ///< size of title and step text

    /// Reads the six files anew; the shifts are gone then.
    void load(const QStringList &files);

    double metresPerCount() const;
    /// Points of a trace: of its steps, or those that a smooth curve goes through.
    QVector<QPointF> points(int slot) const;
    /// The same as straight lines, for a library that knows no other.
    QVector<QPointF> polyline(int slot) const;
    /// Sample steps under a cursor, or 129.
    int level(int cursor) const;
    calc::GridPlan grid(double plotWidth) const;
    QColor cursorColour(int cursor) const;
    double penWidth(int slot) const;
    QColor background() const;

    /// Smooth curve through \a points. Its control points come from the neighbours, which is
    /// cheaper than the chart module's way and bends about as much.
    static QPainterPath curve(const QVector<QPointF> &points);

private:
    calc::TraceRef ref(int slot) const;
};
