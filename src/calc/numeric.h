// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace calc {

/// \a value truncated toward zero: 2.9 is 2, -2.9 is -2. NaN gives 0; values and infinities beyond
/// the range of int saturate.
int truncated(double value);

/// The same for single precision.
int truncated(float value);

/// \a value saturated to the range of int.
int saturated(qint64 value);

} // namespace calc
