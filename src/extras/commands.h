// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

class MainWindow;

/// \file
/// What keys do, each as a hand with a mouse would: by the window's named operations where it has
/// them, else by pressing its buttons and choosing from its menus. What the mouse cannot do at this
/// moment (a disabled button, the menu of an empty slot) does nothing here either.

namespace extras {

/// Moves the active cursor by \a samples of the selected trace, to the right when positive; in
/// difference mode by the coarser ones of that trace and the master. A cursor that leaves the view
/// takes the view along.
void moveCursor(MainWindow &window, int samples);

/// Places the active cursor at \a column, as its ordinary operation does. A cursor that is then out
/// of view takes the view along. In delta mode, in which none is active, nothing happens.
void placeCursor(MainWindow &window, qint64 column);

/// Moves the active cursor to the first or, if \a last, the last drawn sample of the selected
/// trace; in an empty slot to the edge of the view.
void moveCursorToEnd(MainWindow &window, bool last);

/// Scrolls by \a steps steps of the scroll buttons, to the right when positive, and no farther than
/// to the end.
void scroll(MainWindow &window, int steps);

/// Selects the trace slot \a slot, 0 to 5.
void selectSlot(MainWindow &window, int slot);

/// Chooses from the menu of the selected slot.
void toggleVisibility(MainWindow &window);
void makeMaster(MainWindow &window);
void loadSelected(MainWindow &window);
void resetSelected(MainWindow &window);
void clearSelected(MainWindow &window);

/// Chooses the parameter of the number \a parameter, as its button has it.
void selectParameter(MainWindow &window, int parameter);

/// Opens the dialog in which the chosen parameter, or the active cursor's place, is typed in.
void enterParameter(MainWindow &window);
void enterCursor(MainWindow &window);

/// Lets the wheel over the plot change the scale instead of moving the cursor, or back.
void switchWheel(MainWindow &window);

} // namespace extras
