// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol_vx840.h"

#include <QDate>
#include <QTime>

/// \file
/// Values that the viewer derives from a trace record. Every function is defined for any 37775
/// bytes: the format has no magic number, and the viewer does not check the last byte.

namespace calc {

/// Copies the first \a size bytes of a file over \a record. Bytes beyond the record are ignored. A
/// short file fills only its length; the rest of \a record keeps its former bytes. A negative
/// \a size counts as 0.
void fillRecord(const char *bytes, qint64 size, Protocol_VX840::TDR_FILE_t &record);

/// Horizontal step of a trace in counts for \a minstep ns between two samples, truncated toward
/// zero: 2 for 2.5 and 3.7, 0 for 1.0, -4 for -5. Saturates at the ends of int; 0 for NaN.
int countsPerSample(float minstep);

/// \a counts bounded to 1..64000, the step to draw, divide and snap with. A trace whose step is
/// shorter than one count is drawn with one count per sample.
int usableStep(int counts);

/// Initial horizontal shift of a trace in counts: \a shiftX times \a step modulo 2^32, read as
/// signed. A shift to the left is stored in two's complement: 0xFFFFFFFF steps of 4 counts are -4.
int initialScroll(quint32 shiftX, int step);

/// Date of the measurement. Invalid when the bytes are no date.
QDate measurementDate(const Protocol_VX840::TDR_FILE_t &record);

/// Time of the measurement to the second. Invalid when the bytes are no time.
QTime measurementTime(const Protocol_VX840::TDR_FILE_t &record);

} // namespace calc
