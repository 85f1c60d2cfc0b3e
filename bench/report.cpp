// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "report.h"

#include <algorithm>
#include <cstdio>

namespace {

/// The quantile \a share, 0 to 1, of \a values; 0 when there are none.
double quantile(QVector<double> values, double share)
{
    if (values.isEmpty())
        return 0.0;
    const int place = std::min(values.size() - 1, static_cast<int>(values.size() * share));
    std::nth_element(values.begin(), values.begin() + place, values.end());
    return values[place];
}

/// \a value as text; a dash when it was not measured.
QByteArray number(double value, int decimals)
{
    return value > 0.0 ? QByteArray::number(value, 'f', decimals) : "-";
}

const char *verdict(bool reached)
{
    return reached ? "reached" : "**missed**";
}

void printRow(const OperationGoal &entry, const Measurements &measured, double limitMs)
{
    const auto plot = [&](Subject subject) {
        return quantile(measured.value(subject).value(entry.operation).plot, 0.5);
    };
    const double bare = plot(Painter);
    const auto ratio
        = [&](Subject subject) { return number(bare > 0.0 ? plot(subject) / bare : 0.0, 2); };
    const Sample sample = measured[Viewer][entry.operation];
    const double own = plot(Viewer);
    const bool ahead = !entry.ahead || (own < plot(Qwt) && own < plot(QCustom));
    const bool reached = own <= entry.goal * bare && ahead;
    const double p99 = quantile(sample.whole, 0.99) / 1000.0;
    const QByteArrayList cells{ entry.name,
                                number(bare, 0),
                                number(entry.goal, 2) + (entry.ahead ? ", ahead" : ""),
                                "**" + ratio(Viewer) + "**",
                                ratio(Qwt),
                                ratio(QCustom),
                                entry.goal > 0.0 ? verdict(reached) : "-",
                                QByteArray::number(sample.plotPaints),
                                number(quantile(sample.whole, 0.5) / 1000.0, 2),
                                number(p99, 2),
                                verdict(p99 <= limitMs) };
    std::printf("| %s |\n", cells.join(" | ").constData());
}

} // namespace

void printTable(const Measurements &measured, double limitMs)
{
    std::printf("| operation | bare, us | goal | viewer | Qwt | QCustomPlot |  | plot paints "
                "| window, ms | p99, ms | p99 <= %.0f ms |\n|%s\n",
                limitMs, QByteArray(" --- |").repeated(11).constData());
    for (const OperationGoal &entry : operations)
        printRow(entry, measured, limitMs);
    std::printf("\n");
}
