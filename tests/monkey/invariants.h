// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class MainWindow;

/// Checks what must hold of \a window between any two events. Returns one line for each condition
/// that does not, with the values found; an empty list if all hold. Readouts are compared with the
/// bytes of the records.
QStringList brokenInvariants(MainWindow &window);
