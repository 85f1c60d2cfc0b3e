// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class MainWindow;
class QHelpEvent;
class QWidget;

namespace extras {

/// Plain facts about \a control of \a window as they are at this moment, one a line, in the
/// window's language: of a slot's button the file's path, its size and the date of the test; of a
/// parameter's button and the parameter dial what the dial would do; of a reading its full
/// precision. Empty for every other control.
QString factsAbout(const MainWindow &window, const QWidget *control);

/// Answers the wish for a tooltip that \a event brings to \a window, at a place of the window.
/// False when there is nothing to say there.
bool showTooltip(MainWindow &window, const QHelpEvent &event);

} // namespace extras
