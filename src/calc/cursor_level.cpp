// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/cursor_level.h"

#include "base/constants.h"
#include "calc/numeric.h"
#include "calc/tdr_record.h"

namespace calc {

int clampedColumn(int column)
{
    return qBound(0, column, constants::xLength);
}

int snapped(int column, int step)
{
    const int usable = usableStep(step);
    return clampedColumn(column) / usable * usable;
}

int levelUnder(int column, const TraceRef &trace)
{
    const qint64 counts = qint64{ column } - trace.scroll;
    const qint64 index = counts / boundedStep(trace) - trace.delay;
    if (index < 0 || index > constants::lastSample)
        return constants::noLevel;
    return saturated(qint64{ trace.offset } + trace.samples[index]);
}

CursorPoint cursorOn(int column, const TraceRef &trace)
{
    const int position = snapped(column, trace.step);
    return { position, levelUnder(position, trace) };
}

CursorPoint cursorOnDifference(int column, const TraceRef &master, const TraceRef &trace)
{
    const qint64 own = snapped(column, trace.step);
    const qint64 masters = qint64{ snapped(column, master.step) } - master.delay;
    // A difference has no level on purpose; the level line at 129 lies just outside the plot.
    return { saturated(qMax(qint64{ 0 }, qMin(own, masters))), constants::noLevel };
}

} // namespace calc
