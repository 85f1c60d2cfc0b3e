// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/program_files.h"

#include "base/constants.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#ifdef Q_OS_WIN
// While it is 0, QFileInfo looks at the read-only attribute only and calls every folder writable.
extern Q_CORE_EXPORT int qt_ntfs_permission_lookup;
#endif

namespace {

bool isWritableFolder(const QString &folder)
{
#ifdef Q_OS_WIN
    ++qt_ntfs_permission_lookup;
    const bool writable = QFileInfo(folder).isWritable();
    --qt_ntfs_permission_lookup;
    return writable;
#else
    return QFileInfo(folder).isWritable();
#endif
}

QString inFolder(const QString &folder, QLatin1String name)
{
#ifdef Q_OS_WIN
    return folder + QLatin1Char('\\') + name;
#else
    return folder + QLatin1Char('/') + name;
#endif
}

QString userFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}

QString pathToWrite(QLatin1String name)
{
    const QString folder = program_files::programFolder();
    return inFolder(isWritableFolder(folder) ? folder : userFolder(), name);
}

} // namespace

QString program_files::programFolder()
{
    return QCoreApplication::applicationDirPath();
}

QString program_files::settingsFile()
{
    return pathToWrite(constants::settingsFile);
}

QString program_files::settingsFileToRead()
{
    QString beside = inFolder(programFolder(), constants::settingsFile);
    if (isWritableFolder(programFolder()))
        return beside;
    const QString own = inFolder(userFolder(), constants::settingsFile);
    return isRegularFile(own) || !isRegularFile(beside) ? own : beside;
}

QString program_files::settingsBackupFile()
{
    return pathToWrite(constants::settingsBackupFile);
}

void program_files::backUpSettings()
{
    const QFileInfo settings(settingsFile());
    // QFile::copy never overwrites.
    if (settings.isFile() && settings.size() <= maxSettingsBytes)
        QFile::copy(settings.filePath(), settingsBackupFile());
}

bool program_files::isRegularFile(const QString &path)
{
    return QFileInfo(path).isFile();
}

bool program_files::openRegularFile(QFile &file)
{
    return isRegularFile(file.fileName()) && file.open(QIODevice::ReadOnly);
}

qint64 program_files::lengthToRead(const QFile &file, qint64 wanted)
{
    return file.size() == 0 ? 0 : wanted;
}

QByteArray program_files::readRegularFile(const QString &path, qint64 limit)
{
    QFile file(path);
    if (!openRegularFile(file))
        return {};
    // One byte more than the limit shows that the file is larger.
    QByteArray bytes = file.read(lengthToRead(file, limit + 1));
    if (bytes.size() > limit)
        bytes.clear();
    return bytes;
}

bool program_files::replaceFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return replaceFile(file, bytes);
}

bool program_files::replaceFile(QSaveFile &file, const QByteArray &bytes)
{
    const QString path = file.fileName();
    const QFileInfo former(path);
    if (path.isEmpty() || (former.exists() && !former.isFile()))
        return false;
    former.dir().mkpath(QStringLiteral("."));
    // A buffer would hide an error until `commit`, which would still replace the old file.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    // When the disk gets full, a write stores a part without an error; only the next write fails.
    for (qint64 written = 0; written < bytes.size();) {
        const qint64 part = file.write(bytes.constData() + written, bytes.size() - written);
        if (part <= 0)
            return false;
        written += part;
    }
    return file.commit();
}
