// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// \file
/// Bit sets and small number conversions.
///
/// A \c state_index is a plain 32-bit int used as a set: of trace slots (bit n is slot n) or of
/// settings sections. Only bits 0 to 5 carry meaning; the functions work on all 32. A position is
/// taken modulo 32: 32 acts as 0, and negative positions are defined.

/// A set of six bits: trace slots or settings sections.
using state_index = int;

/// True when bit \a position of \a value is 1; position 31 is the sign bit.
bool checkbit(int value, int position);

/// \a value with bit \a position set.
int setbit(int value, int position);

/// \a value with bit \a position cleared.
int unsetbit(int value, int position);

/// \a value with bit \a position inverted.
int switchbit(int value, int position);

/// Position of the lowest set bit, 0 to 31, or 100 when no bit is set.
char firstbit(int value);

/// 2 to the power \a n. The exponent is taken modulo 32: m_pow2(32) is 1 and m_pow2(31), which
/// reaches the sign bit of an int, is -2147483648. Negative exponents give fractions.
float m_pow2(int n);

/// 1, 0 or -1 by the sign of \a value.
int sign(int value);

/// Value of a packed BCD byte: 0x59 is 59. Digits are not checked: 0x1A is 20, 0xFF is 165.
int hexdec(quint8 hex);
