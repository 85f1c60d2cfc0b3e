// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "operations.h"
#include "stopwatch.h"

#include <QMap>
#include <QString>
#include <QVector>

/// All costs of one operation on one subject.
class Sample
{
public:
    void add(const Cost &cost);

    /// Microseconds.
    double medianPlot() const;
    double medianWhole() const;
    /// What 99 of 100 operations stay below, microseconds; the largest when there are fewer.
    double p99Plot() const;
    double p99Whole() const;
    /// Paint events of the plot: fewest and most of any one operation. 0 and 0 when none was done.
    int fewestPaints() const;
    int mostPaints() const;
    int count() const;

private:
    QVector<double> m_plot;
    QVector<double> m_whole;
    int m_fewest = 0;
    int m_most = 0;
};

/// Costs by subject and operation.
using Measurements = QMap<QString, QMap<Operation, Sample>>;
