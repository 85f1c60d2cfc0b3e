// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class MainWindow;
class QKeyEvent;

namespace extras {

/// Does what the key of \a event stands for. True when it stands for something; the event is used
/// up then. \a onPlot says that the plot has the focus: there the arrows move the cursor,
/// everywhere else they are the focused control's own.
///
/// A letter counts by its place on the keyboard: on a Russian layout the key that says Т is N.
/// While a dialog or a menu is open no key stands for anything.
bool keyPressed(MainWindow &window, const QKeyEvent &event, bool onPlot);

} // namespace extras
