// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class MainWindow;

namespace extras {

/// The forms in which a window can be saved, in the order of the dialog.
enum class Format {
    Picture,
    PaperPicture, ///< white background
    Page, ///< PDF, A4
    Drawing, ///< SVG
    Table, ///< CSV
};

/// Copies the content of \a window to the clipboard, as a picture and as text, and shows a note.
void copyShown(MainWindow &window);

/// Asks for a file name and a format and saves the content of \a window. A note shows the path and
/// the outcome. The proposed name is that of the selected trace, in the folder of the traces that
/// were opened last. Saving does not change this folder.
void askAndSaveShown(MainWindow &window);

/// Writes the content of \a window to \a path. A former file is replaced only by a complete new
/// one, and never if it is read-only or no regular file. Returns the reason of a failure in the
/// window's language; empty on success.
QString saveShown(const MainWindow &window, const QString &path, Format format);

/// The format for the suffix of \a path: \a chosen if it has this suffix, otherwise the first
/// format with it. For an unknown suffix returns \a chosen and adds its suffix to \a path.
Format formatFor(QString &path, Format chosen);

} // namespace extras
