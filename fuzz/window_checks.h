// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mainwindowprobe.h"

namespace fuzz {

/// Fails unless everything holds in the window that holds whatever was loaded into it and whatever
/// was done to it.
void checkWindow(const MainWindowProbe &window);

} // namespace fuzz
