// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

class QFile;

/// \file
/// Where the files of the program lie, and how files from outside are opened. Nothing else in the
/// program knows either.
///
/// Settings lie beside the program. Where that folder cannot be written (an installed package) they
/// lie in the user's own configuration folder, which is made when it is first written to.
namespace program_files {

/// The folder of the executable, without a separator at its end.
QString programFolder();

/// Where the settings are written. Makes the user's folder when that is the place.
QString settingsFile();

/// Where the settings are read: as \c settingsFile, but the file beside the program still counts
/// while the user's folder has none. Makes nothing; the file need not exist.
QString settingsFileToRead();

/// Where the one backup of the settings lies: in the folder of \c settingsFile, made as there.
QString settingsBackupFile();

/// True when \a path, all links followed, is a regular file. Pipes, devices and folders are not:
/// opening one may never return.
bool isRegularFile(const QString &path);

/// Opens \a file for reading; false when it is no regular file or cannot be opened.
bool openRegularFile(QFile &file);

/// How many bytes to ask the open \a file for when \a wanted are of use: none when it says that it
/// holds none. The system has files that call themselves regular and empty and yet wait, for ever
/// if need be, until there is something to read.
qint64 lengthToRead(const QFile &file, qint64 wanted);

/// All bytes of the file at \a path; empty when it cannot be opened or holds more than \a limit
/// bytes.
QByteArray readRegularFile(const QString &path, qint64 limit);

/// Puts \a bytes in the place of the file at \a path, whole or not at all: false says that whatever
/// lay there lies there still. Links are followed. A place that is taken by anything but a regular
/// file is left alone.
bool replaceFile(const QString &path, const QByteArray &bytes);

} // namespace program_files
