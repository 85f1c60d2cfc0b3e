// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace calc {

/// \a value without its fraction, toward zero: 2.9 is 2, -2.9 is -2. NaN gives 0, and what an int
/// cannot hold gives the nearest int that there is, infinities included.
int truncated(double value);

/// The same for single precision; the value is widened, which changes nothing.
int truncated(float value);

/// \a value when an int can hold it, else the nearest int.
int saturated(qint64 value);

} // namespace calc
