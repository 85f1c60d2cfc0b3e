// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "operations.h"
#include "stopwatch.h"

#include <QMap>
#include <QStringList>
#include <QVector>

/// All costs of one operation on one subject, microseconds.
struct Sample
{
    QVector<double> plot; ///< the plot's part
    QVector<double> whole; ///< the whole window
    int fewestPaints = 0; ///< paint events of the plot during one operation
    int mostPaints = 0;

    void add(const Cost &cost);
};

/// Costs by subject and operation.
using Measurements = QMap<QString, QMap<Operation, Sample>>;

/// Tables in Markdown, one line of text each.
namespace report {

/// Names of the subjects, as Measurements knows them.
extern const QString viewer;
extern const QString painter;
extern const QString qwt;
extern const QString qCustomPlot;

/// One row for each operation: the plot's part as a ratio to the bare painter's beside its goal,
/// and the time of the whole window, of which p99 has to stay below \a limitMs.
QStringList table(const Measurements &measured, double limitMs);

/// What six traces cost compared with one.
QStringList growthTable(const Measurements &one, const Measurements &six);

} // namespace report
