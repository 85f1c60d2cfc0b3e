// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRgb>

/// How far the luminances of two colours are apart to the eye: 1 for the same, 21 for black and
/// white. Texts need 4.5 at least, shapes 3.
double contrast(QRgb one, QRgb other);

/// How far two colours are apart to the computer: the largest difference of a channel, 0 to 255.
int apart(QRgb one, QRgb other);
