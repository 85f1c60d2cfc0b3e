// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "traces.h"

#include "base/constants.h"
#include "tracebuilder.h"

#include <cmath>

int traces::sample(int slot, int index)
{
    const double fall = 40.0 * std::exp(-index / 60.0);
    const double phase = 0.11 * (slot + 2) * index;
    const double echo = 35.0 * std::sin(phase) * std::exp(-(index % 83) / 25.0);
    return static_cast<int>(fall + echo) + 12 * slot - 30;
}

QStringList traces::write(const QString &folder)
{
    QStringList paths;
    for (int slot = 0; slot < constants::slotCount; ++slot)
        paths << TraceBuilder()
                     .samples([slot](int index) { return sample(slot, index); })
                     .write(QStringLiteral("%1/trace%2.tdr").arg(folder).arg(slot + 1));
    return paths;
}
