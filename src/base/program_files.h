// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

class QFile;
class QSaveFile;

/// \file
/// The paths of the settings file, and safe reading and replacing of files.
///
/// The settings file is in the folder of the program. Where that folder cannot be written (an
/// installed package) it is in the user's configuration folder, which the first save creates.
namespace program_files {

/// A larger settings file is neither read, written nor backed up. Reading this size takes half a
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

/// Copies the settings file to the backup, unless there is one: the backup keeps the settings from
/// before the first close. Does nothing when the settings file is no regular file or larger than
/// \c maxSettingsBytes.
void backUpSettings();

/// True when \a path, all links followed, is a regular file. Opening anything else, such as a pipe
/// or a device, may block for ever.
bool isRegularFile(const QString &path);

/// Opens \a file for reading; false when it is no regular file or cannot be opened.
bool openRegularFile(QFile &file);

/// Number of bytes to request from the open \a file: \a wanted, or 0 when its size is 0. Files in
/// /proc report a size of 0, and reading some of them blocks for ever.
qint64 lengthToRead(const QFile &file, qint64 wanted);

/// All bytes of the file at \a path; empty when it cannot be opened or holds more than \a limit
/// bytes.
QByteArray readRegularFile(const QString &path, qint64 limit);

/// Replaces the file at \a path by \a bytes and creates its folder when needed. Links are followed.
/// False, and the former file unchanged, when something other than a regular file is at \a path or
/// the bytes cannot all be written.
bool replaceFile(const QString &path, const QByteArray &bytes);

/// The same for the path of \a file, which is not open yet. After a failure to open, write or
/// rename, \a file has the error; for an empty or refused path it has none.
bool replaceFile(QSaveFile &file, const QByteArray &bytes);

} // namespace program_files
