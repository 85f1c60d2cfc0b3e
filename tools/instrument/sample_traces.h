// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record.h"

#include <QString>

#include <vector>

namespace instrument {

/// One of the traces in samples/: cable, settings and notes.
struct SampleTrace
{
    QString fileName; ///< without a folder
    Cable cable;
    Settings settings;
    Survey survey;
};

/// The six traces, in the order of their file names. With the first as the master the view is 125 m
/// wide, and each trace has its own band of levels, except the two of the same pair.
std::vector<SampleTrace> sampleTraces();

} // namespace instrument
