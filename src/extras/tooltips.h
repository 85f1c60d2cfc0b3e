// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class MainWindow;
class QHelpEvent;
class QWidget;

namespace extras {

/// The tooltip of \a control in the language of \a window, with one fact in each line: the purpose
/// of the control, its key, whether a right click asks for a value, and present values, for example
/// the file of a slot or a reading with all its digits. Empty for any other widget.
QString tooltipOf(const MainWindow &window, const QWidget *control);

/// Shows the tooltip that \a event asks for at its place in \a window, in the font size of the
/// window. False when there is none.
bool showTooltip(MainWindow &window, const QHelpEvent &event);

} // namespace extras
