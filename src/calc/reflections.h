// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

/// \file
/// Where a trace turns because something on the cable threw the pulse back.
///
/// An echo is a bell: it leaves the quiet line, turns, and comes back, upwards where the impedance
/// rises and downwards where it falls. Its crest stands at the echo time of the place it comes
/// from. So a reflection is a crest or a dip that
///
/// - stands out: it differs from the quiet line, and from its own two sides, by several times the
///   noise. The quiet line is the median of the trace, which echoes hardly move as long as they
///   fill less than half of it, or a straight line of the median slope where the trace as a whole
///   is far nearer to that. The noise is the median of how far a sample lies off the middle of its
///   two neighbours, on which echoes have as little influence, because they are slow. Below two
///   sample steps nothing stands out: the converter itself rounds by half a step.
/// - rises and falls within the trace. The launched pulse, whose crest passed before the first
///   sample, only falls, and what is cut off at the end of the trace has not turned yet.
/// - says something new. Part of an echo on its way back is thrown forward again by a place in
///   front of the one it comes from, and returns late once more: after i and k, there may be an
///   echo of echoes at i + k - j for every place j before both, and no place on the cable there.
///   Its height is at most the product of the three reflections, taken as shares of the tallest one
///   seen, and twice that where i and k differ, for the pulse can meet them in both orders. What
///   stands where such an echo would stand and is not taller is taken for it.
///
/// There is nothing to set: all bounds are in units of the trace's own noise and echoes.

namespace calc {

/// Indices of the samples at which \a levels turns, ascending. Levels are sample steps, one for
/// each sample from left to right; only the first 250 are looked at, which bounds the work for any
/// input. A trace of fewer than five samples, a flat one and pure noise give none.
QVector<int> reflections(const QVector<int> &levels);

/// The noise of \a levels: standard deviation in sample steps of a single sample about the true
/// level, 0 for fewer than three samples. Whole numbers are taken as rounded, so that the result
/// grows evenly with noise of less than a step.
double noiseOf(const QVector<int> &levels);

/// The nearest of \a columns, ascending, that lies right of \a column; -1 where there is none.
int nextColumn(const QVector<int> &columns, int column);

/// The nearest of \a columns, ascending, that lies left of \a column; -1 where there is none.
int previousColumn(const QVector<int> &columns, int column);

} // namespace calc
