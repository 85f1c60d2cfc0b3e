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

/// Puts what \a window shows on the clipboard, as a picture and as text, and says so in a note.
void copyShown(MainWindow &window);

/// Asks for a file name and a format and saves what \a window shows; a note says where, or why it
/// could not be written. The proposed name is that of the selected trace, in the folder from which
/// traces were opened last; that folder stays the same.
void askAndSaveShown(MainWindow &window);

/// Writes what \a window shows to \a path. A former file is replaced only by a complete new one;
/// what is no regular file, or read-only, is left alone. Returns why it could not be written, in
/// the window's language; empty on success.
QString saveShown(const MainWindow &window, const QString &path, Format format);

/// The format that \a path asks for by its suffix: \a chosen if that has the suffix, else the first
/// one with it. For any other suffix \a chosen; its own suffix is then added to \a path.
Format formatFor(QString &path, Format chosen);

} // namespace extras
