// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "operations.h"
#include "stopwatch.h"

#include <QMap>
#include <QVector>

/// The windows that are measured.
enum Subject {
    Viewer,
    Painter,
    Qwt,
    QCustom
};

/// All costs of one operation on one subject.
struct Sample
{
    QVector<double> plot; ///< the plot's part, microseconds
    QVector<double> whole; ///< the whole window, microseconds
    int plotPaints = 0; ///< most paint events of the plot during one operation
};

using Measurements = QMap<Subject, QMap<Operation, Sample>>;

/// Prints a table in Markdown, a row for each operation: the plot's part as a ratio to the bare
/// painter's beside its goal, and the time of the whole window, of which the 99th percentile must
/// not exceed \a limitMs.
void printTable(const Measurements &measured, double limitMs);
