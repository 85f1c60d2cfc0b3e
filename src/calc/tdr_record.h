// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol_vx840.h"

#include <QDate>
#include <QTime>

/// \file
/// What the viewer makes of a trace record. All of it is defined for any 37775 bytes: the format
/// has nothing by which a wrong file could be told from a right one.

namespace calc {

/// Copies the first \a size bytes of a file over \a record. Bytes beyond the record are ignored; a
/// short file fills only its length, and the rest of \a record keeps what it held. A negative
/// \a size counts as 0.
void fillRecord(const char *bytes, qint64 size, Protocol_VX840::TDR_FILE_t &record);

/// Horizontal step of a trace in counts, from the time between two samples in ns: 2.5 is 2, and so
/// is 3.7. 0 below 1.25 ns and for NaN, never above 64000, which is the whole axis.
int countsPerSample(float minstep);

/// The step to draw, divide and snap with: \a counts, but at least 1. A trace whose step is shorter
/// than one count is drawn one count per sample.
int usableStep(int counts);

/// Horizontal shift in counts that a record asks for: \a shiftX steps of \a step counts, modulo
/// 2^32 and read as signed, because shifts to the left are stored in two's complement: 0xFFFFFFFF
/// steps of 4 counts are -4.
int initialScroll(quint32 shiftX, int step);

/// Day of the test. Invalid when the bytes are no date, which the viewer shows as nothing.
QDate measurementDate(const Protocol_VX840::TDR_FILE_t &record);

/// Time of the test to the second. Invalid when the bytes are no time.
QTime measurementTime(const Protocol_VX840::TDR_FILE_t &record);

} // namespace calc
