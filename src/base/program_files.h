// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

class QFile;
class QSaveFile;

/// \file
/// The folders of the settings file, and safe reading and replacing of files. Nothing else in the
/// program decides either.
///
/// Settings lie beside the program. Where that folder cannot be written (an installed package) they
/// lie in the user's configuration folder, which the first save creates.
namespace program_files {

/// A larger settings file is neither read nor written nor backed up. This size is read in half a
/// second.
constexpr qint64 maxSettingsBytes = 4 << 20;

/// Folder of the executable, without a separator at its end.
QString programFolder();

/// Path of the settings file to write. The folder need not exist.
QString settingsFile();

/// Path of the settings file to read: \c settingsFile, or the file beside the program while the
/// user's folder has none. The file need not exist.
QString settingsFileToRead();

/// Path of the backup of the settings, in the folder of \c settingsFile.
QString settingsBackupFile();

/// Copies the settings file to the backup. Never overwrites: the backup keeps the settings from
/// before the first close, however often the program is closed after that. Does nothing when the
/// settings file is no regular file or larger than \c maxSettingsBytes.
void backUpSettings();

/// True when \a path, all links followed, is a regular file. Opening anything else, such as a pipe
/// or a device, may block for ever.
bool isRegularFile(const QString &path);

/// Opens \a file for reading; false when it is no regular file or cannot be opened.
bool openRegularFile(QFile &file);

/// Number of bytes to request from the open \a file when \a wanted are of use: 0 when its size is
/// 0. Files in /proc report that size, and reading some of them blocks for ever.
qint64 lengthToRead(const QFile &file, qint64 wanted);

/// All bytes of the file at \a path; empty when it cannot be opened or holds more than \a limit
/// bytes.
QByteArray readRegularFile(const QString &path, qint64 limit);

/// Replaces the file at \a path by \a bytes and creates its folder when needed. Links are followed.
/// False, and the former file unchanged, when \a path is taken by anything but a regular file or
/// the bytes cannot all be written.
bool replaceFile(const QString &path, const QByteArray &bytes);

/// The same for the path of \a file, which is not open yet. After a failure to open, write or
/// rename \a file has the reason; it has none when the path is empty or taken by anything else.
bool replaceFile(QSaveFile &file, const QByteArray &bytes);

} // namespace program_files
