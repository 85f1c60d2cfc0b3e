// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class MainWindow;

namespace extras {

/// Puts what \a window shows on the clipboard, for programs that take pictures as a picture of the
/// chart and for all others as its readings.
void copyShown(MainWindow &window);

/// Asks for a file name and saves what \a window shows there. The name proposed is that of the
/// selected trace, in the folder from which traces were opened last; that folder is not changed.
/// A failure is not reported.
void askAndSaveShown(MainWindow &window);

/// Saves what \a window shows as \a path says by its ending: .png is a picture, .pdf a page, .csv a
/// table of the levels. The file is there whole or not at all, and what was there before stays
/// until it is. False when it cannot be written, for any other ending, and where something lies
/// that is no file.
bool saveShown(const MainWindow &window, const QString &path);

/// \a path with an ending that saveShown knows: its own, in capitals or not, or \a ending added.
QString withKnownEnding(const QString &path, const QString &ending);

} // namespace extras
