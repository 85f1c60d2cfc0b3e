// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class MainWindow;

namespace extras {

/// Shows \a lines at the lower edge of the plot of \a window for some seconds, in the place of a
/// former note. A line that is wider than the plot is shortened in the middle. The note takes
/// neither the focus nor the mouse, and screen readers announce it.
void showNote(const MainWindow &window, const QStringList &lines);

} // namespace extras
