// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class MainWindow;
class QKeyEvent;
class QObject;

namespace extras {

/// True while a dialog or a menu is open. Only the key of the manual works then.
bool isBlocked();

/// Runs the action of the key in \a event, which arrived at \a receiver: the window, the plot, one
/// of the dials, or a control of a dialog or menu. The plot and the dials have keys of their own
/// besides those of the window. Returns true when \a receiver must not get the event.
///
/// A letter counts by its place on the keyboard: on a Russian layout the key that types Т is N.
bool keyPressed(MainWindow &window, const QKeyEvent &event, const QObject *receiver);

} // namespace extras
