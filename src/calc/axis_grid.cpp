// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/axis_grid.h"

#include <cmath>

namespace calc {

namespace {

constexpr double minGridIntervals = 7.0; ///< least number of grid steps across the plot
constexpr double maxGridIntervals = 20.0; ///< greatest number of grid steps across the plot
/// Grid steps are one of these times a power of ten of metres; the largest that fits is taken.
constexpr double gridSteps[] = { 1.25, 2.5, 5.0 };
/// The left edge is drawn only when the last grid value before it is nearer than this part of a
/// step.
constexpr double leftEdgeShare = 0.3;
/// The right edge is drawn only when the last interior line is farther than this part of a step.
constexpr double rightEdgeShare = 0.75;
/// Greatest edge label, as a power of ten of metres, for a step that is a whole number.
constexpr double integralEdgeDigits = 3.0;
/// The same for a fractional step, whose labels are longer by the decimal.
constexpr double fractionalEdgeDigits = 2.0;

// A step of 2.5 needs its decimal, one of 25 does not.
bool isIntegral(double step)
{
    return std::floor(step) == step;
}

QString labelText(double metres, bool integral)
{
    return QString::number(metres, 'f', integral ? 0 : 1);
}

// Empty for a negative distance, and for a large one, whose long label would overlap the next one.
QString edgeText(double metres, bool integral)
{
    if (metres < 0.0)
        return QString();
    const double digits = integral ? integralEdgeDigits : fractionalEdgeDigits;
    // log10(0) is minus infinity, so 0 is always labelled.
    if (std::log10(metres) > digits)
        return QString();
    return labelText(metres, integral);
}

} // namespace

double gridStep(double span)
{
    if (!(span > 0.0) || !std::isfinite(span))
        return 0.0;
    const double level = std::pow(10.0, std::floor(std::log10(span)) - 1.0);
    double step = 0.0;
    for (const double factor : gridSteps) {
        const double candidate = factor * level;
        if (minGridIntervals * candidate <= span && span <= maxGridIntervals * candidate)
            step = candidate;
    }
    return step;
}

GridPlan planGrid(const Range &range, double metresPerCount, float plotWidth)
{
    GridPlan plan;
    const double first = range.min * metresPerCount;
    const double last = range.max * metresPerCount;
    const double span = last - first;
    const double step = gridStep(span);
    if (!(step > 0.0))
        return plan;

    // Pixels per metre are used: metres per pixel would divide by a width of 0.
    const bool hasWidth = plotWidth > 0.0F && std::isfinite(plotWidth);
    const double width = hasWidth ? static_cast<double>(plotWidth) : 0.0;
    const double stepPixels = step * (width / span);
    const double gridStart = step * std::floor(first / step); // at or left of the left edge
    const double startPixels = (first - gridStart) * (width / span);
    const bool integral = isIntegral(step);

    if (first - gridStart < leftEdgeShare * step)
        plan.edges[0] = { true, 0.0, edgeText(first, integral) };

    // A visible range needs at most gridLines lines; the bound guards against rounding errors.
    int count = 0;
    while (count < constants::gridLines && count < (last - gridStart) / step - 1.0) {
        const int line = count + 1;
        plan.interior[count] = { true, line * stepPixels - startPixels,
                                 labelText(gridStart + line * step, integral) };
        count = line;
    }

    // The right edge has a line of its own unless the last interior line is too close.
    if (last - (count * step + gridStart) > rightEdgeShare * step)
        plan.edges[1] = { true, width, edgeText(last, integral) };
    return plan;
}

} // namespace calc
