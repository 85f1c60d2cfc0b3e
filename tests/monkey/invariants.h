// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class MainWindow;

/// Checks the invariants of \a window, which hold between any two events. Returns one line with the
/// values found for each that is broken. Compares readouts with the bytes of the records.
QStringList brokenInvariants(MainWindow &window);
