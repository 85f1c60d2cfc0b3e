// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "measurements.h"

#include <QStringList>

/// Tables in Markdown, one line of text each.
namespace report {

/// Names of the subjects, as Measurements knows them.
extern const QString viewer;
extern const QString painter;
extern const QString qwt;
extern const QString qCustomPlot;

/// Each operation's part on the plot, as a ratio to the bare painter's, beside its goal.
QStringList plotTable(const Measurements &measured);

/// Each operation of the whole window: times, and the ratio to the bare painter's window.
/// \a limitMs is what p99 has to stay below.
QStringList wholeTable(const Measurements &measured, double limitMs);

/// What six traces cost compared with one.
QStringList growthTable(const Measurements &one, const Measurements &six);

/// A line for every operation that painted nothing, and so was not measured but broken.
QStringList broken(const Measurements &measured);

} // namespace report
