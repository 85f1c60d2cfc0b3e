// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tdr/table.h"

#include "calc/tdr_record.h"
#include "calc/view_range.h"
#include "tdr/record.h"

#include <QFileInfo>

namespace tdr {

QByteArray table(const std::deque<NamedRecord> &records, calc::Decimals decimals)
{
    calc::TraceTable table;
    for (const auto &[file, record] : records)
        table.traces.append({ static_cast<int>(table.traces.size()), QFileInfo(file).fileName(),
                              calc::measurementDate(record), calc::measurementTime(record),
                              record.ch.params, calc::traceOf(record) });
    if (!records.empty()) {
        const float ku = records.front().record.ch.params.KU;
        table.selected = 0;
        table.master = 0;
        table.ku = calc::clampedKU(double{ ku });
        table.metresPerCount = calc::metresPerCount(ku);
        table.reflections = reflectionsOf(table.traces.constFirst().trace);
    }
    table.decimals = decimals;
    return calc::tableFile(table);
}

} // namespace tdr
