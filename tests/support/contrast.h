// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRgb>

/// Contrast ratio of two colours: 1 for equal colours, 21 for black and white. Texts need at least
/// 4.5, shapes 3.
double contrast(QRgb one, QRgb other);

/// Largest difference of one channel of two colours, 0 to 255.
int apart(QRgb one, QRgb other);
