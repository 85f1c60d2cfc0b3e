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
/// 1. Samples that stick out alone are replaced: a pulse is sampled more than once.
/// 2. The baseline is a running median, which keeps ramps, droops and steps as they are, and is
///    drawn straight beneath the launched pulse and, in the second of two passes, beneath the
///    echoes that the first one found.
/// 3. The pulse width is that of the matched filter under which the trace stands out most from its
///    own noise. The trace is smoothed with half of that width.
/// 4. Candidates are the extremes of the smoothed trace that lie beyond the baseline.
/// 5. The noise is measured on what the candidates leave of the trace, at the scale of the pulse,
///    so that it may be of any colour. A candidate is an echo when its distance from the baseline
///    and from both its feet is several times the noise.
/// 6. The valley between two echoes of one sign and multiple reflections are dropped.
///
/// There is nothing to set. docs/reflections.md has the error rates on simulated traces.

namespace calc {

/// One reflection among levels.
struct Echo
{
    /// Index of the highest of the smoothed crest and its two neighbours; in a dip the lowest.
    int sample = 0;
    double height = 0.0; ///< sample steps above the baseline, negative for a dip
};

/// The reflections in \a levels from left to right. \a levels are sample steps, the first of them
/// taken \a start samples, 0 or more, after the crest of the launched pulse. Levels of 127, -127
/// and -128 count as clipped. Only the first 250 levels are searched, which bounds the work; fewer
/// than five give none.
QVector<Echo> findEchoes(const QVector<int> &levels, int start = 0);

/// One reflection of a trace.
struct Reflection
{
    int column = 0; ///< counts, 0 to 64000
    int level = 0; ///< sample steps, vertical shift included
    bool positive = true; ///< true: a crest (the impedance rises); false: a dip (it falls)
};

/// The reflections of the trace whose samples are \a points, x in counts and y in sample steps, as
/// splinePoints and splineDifference make them. Ascending. Each is at a sample that findEchoes()
/// finds and that lies on the axis. \a launch is the column of the launched pulse's crest and \a
/// offset the level of zero, in sample steps: the horizontal and the vertical shift of the trace.
QVector<Reflection> reflectionList(const QVector<QPointF> &points, double launch, int offset = 0);

/// The nearest of \a columns, ascending, that lies right of \a column; -1 where there is none.
int nextColumn(const QVector<int> &columns, int column);

/// The nearest of \a columns, ascending, that lies left of \a column; -1 where there is none.
int previousColumn(const QVector<int> &columns, int column);

} // namespace calc
