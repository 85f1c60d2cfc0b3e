// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "measurements.h"

#include <algorithm>

namespace {

/// The value below or at which \a share of \a values lie; 0 of none.
double quantile(QVector<double> values, double share)
{
    if (values.isEmpty())
        return 0.0;
    const int place = std::min(values.size() - 1, static_cast<int>(values.size() * share));
    std::nth_element(values.begin(), values.begin() + place, values.end());
    return values[place];
}

} // namespace

void Sample::add(const Cost &cost)
{
    m_fewest = m_plot.isEmpty() ? cost.plotPaints : std::min(m_fewest, cost.plotPaints);
    m_most = std::max(m_most, cost.plotPaints);
    m_plot.append(cost.plotUs);
    m_whole.append(cost.wholeUs);
}

double Sample::medianPlot() const
{
    return quantile(m_plot, 0.5);
}

double Sample::medianWhole() const
{
    return quantile(m_whole, 0.5);
}

double Sample::p99Plot() const
{
    return quantile(m_plot, 0.99);
}

double Sample::p99Whole() const
{
    return quantile(m_whole, 0.99);
}

int Sample::fewestPaints() const
{
    return m_fewest;
}

int Sample::mostPaints() const
{
    return m_most;
}

int Sample::count() const
{
    return m_plot.size();
}
