// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class MainWindow;

/// What holds of a window at every moment between two events, whatever the user did: each sentence
/// that is not true of \a window, with what was found; none when all is well. Readouts are worked
/// out anew from the raw bytes of the records.
QStringList brokenInvariants(MainWindow &window);
