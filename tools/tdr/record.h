// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/constants.h"
#include "calc/reflections.h"
#include "calc/trace_points.h"
#include "protocol_vx840.h"

#include <QByteArray>

#include <cstddef>

namespace tdr {

constexpr int recordBytes = sizeof(Protocol_VX840::TDR_FILE_t);
/// A file with fewer bytes ends before the last sample that is drawn.
constexpr int traceBytes
    = static_cast<int>(offsetof(Protocol_VX840::TDR_FILE_t, samples)) + constants::drawnSamples;

/// The record whose file holds \a bytes. Missing bytes are 0, further ones are ignored.
Protocol_VX840::TDR_FILE_t recordOf(const QByteArray &bytes);

/// Number of drawn samples at the ends of the converter's range, 127, -127 and -128.
int clippedSamples(const Protocol_VX840::TDR_FILE_t &record);

/// The reflections of \a trace that lie on the viewer's axis.
QVector<calc::Reflection> reflectionsOf(const calc::TraceRef &trace);

} // namespace tdr
