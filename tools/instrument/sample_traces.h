// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record.h"

#include <QString>

#include <vector>

namespace instrument {

/// One of the traces in samples/: which cable, how measured, what noted.
struct SampleTrace
{
    QString fileName; ///< without a folder
    Cable cable;
    Settings settings;
    Survey survey;
};

/// The six traces, in the order of their file names. The first, as the master of the other five,
/// shows 125 m; each keeps to its own band of levels there, except the pair of the same cable.
std::vector<SampleTrace> sampleTraces();

} // namespace instrument
