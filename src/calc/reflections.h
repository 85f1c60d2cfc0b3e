// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QVector>

/// \file
/// Finds the reflections on a trace.
///
/// A reflection is an echo of the launched pulse: the trace leaves the baseline, peaks and returns,
/// upwards where the impedance rises and downwards where it falls. The steps of the search:
///
/// 1. Single samples that stick out are replaced: a pulse has more than one sample.
/// 2. The baseline is a running median, which follows ramps, droops and steps. It is straight under
///    the launched pulse and, in the second of two passes, under the peaks of the first pass.
/// 3. The pulse width is the width of the matched filter with the greatest signal-to-noise ratio.
///    The trace is smoothed with half of this width.
/// 4. Peaks are the local extremes of the smoothed trace that lie beyond the baseline.
/// 5. The noise is measured on the smoothed trace without the peaks; it may be white or coloured. A
///    peak stays when its distance from the baseline and from both its feet is several times the
///    noise.
/// 6. Valleys between two peaks of one sign and multiple reflections are dropped.
///
/// The search has no parameters. docs/reflections.md has the error rates on simulated traces.

namespace calc {

/// One reflection in a list of levels.
struct Echo
{
    int sample = 0; ///< index of the crest
    double height = 0.0; ///< sample steps above the baseline; below 0 for a negative reflection
};

/// The reflections in \a levels, from left to right. \a levels are sample steps; the first one is
/// taken \a start samples, 0 or more, after the crest of the launched pulse. Levels of 127, -127
/// and -128 count as clipped. Only the first 250 levels are searched, which bounds the work; fewer
/// than five give none.
QVector<Echo> findEchoes(const QVector<int> &levels, int start = 0);

/// One reflection of a trace.
struct Reflection
{
    int column = 0; ///< counts, 0 to 64000
    int level = 0; ///< sample steps, vertical shift included
    bool positive = true; ///< true: upwards, the impedance rises; false: downwards, it falls
};

/// The reflections, from left to right, of the trace with the samples \a points: x in counts and y
/// in sample steps, as splinePoints and splineDifference make them. Those outside of the axis are
/// left out. \a launch is the horizontal shift of the trace, the column of the launched pulse's
/// crest; \a offset is its vertical shift in sample steps.
QVector<Reflection> reflectionList(const QVector<QPointF> &points, double launch, int offset = 0);

/// The nearest of the ascending \a columns to the right of \a column; -1 when there is none.
int nextColumn(const QVector<int> &columns, int column);

/// The nearest of the ascending \a columns to the left of \a column; -1 when there is none.
int previousColumn(const QVector<int> &columns, int column);

} // namespace calc
