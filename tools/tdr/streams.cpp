// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tdr/streams.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#ifdef Q_OS_WIN
#include <fcntl.h>
#include <io.h>
#else
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#endif

namespace tdr {

namespace {

constexpr int standardInput = 0;
constexpr int standardOutput = 1;
constexpr qint64 pieceBytes = 64 << 10;

bool isStandard(const QString &name)
{
    return name == QLatin1String("-");
}

QString notReadable()
{
    return QStringLiteral("neither a regular file nor a pipe");
}

/// The reason not to open \a name for reading: opening a device can block or have side effects.
QString obstacle(const QString &name)
{
#ifdef Q_OS_WIN
    if (isStandard(name))
        return _isatty(standardInput) != 0 ? notReadable() : QString();
    const QFileInfo info(name);
    return info.exists() && !info.isFile() ? notReadable() : QString();
#else
    struct stat status = {};
    const int failed = isStandard(name) ? fstat(standardInput, &status)
                                        : stat(QFile::encodeName(name).constData(), &status);
    if (failed != 0)
        return QString::fromLocal8Bit(std::strerror(errno));
    if (S_ISDIR(status.st_mode))
        return QStringLiteral("is a folder");
    return S_ISREG(status.st_mode) || S_ISFIFO(status.st_mode) ? QString() : notReadable();
#endif
}

} // namespace

QString shownName(QString name)
{
    for (QChar &letter : name)
        if (!letter.isPrint() && !letter.isSurrogate())
            letter = QChar::ReplacementCharacter;
    return name;
}

void makeStreamsBinary()
{
#ifdef Q_OS_WIN
    _setmode(standardInput, _O_BINARY);
    _setmode(standardOutput, _O_BINARY);
#endif
}

QString readInput(const QString &name, qint64 limit, QByteArray &bytes)
{
    bytes.clear();
    QString reason = obstacle(name);
    if (!reason.isEmpty())
        return reason;
    QFile file(name);
    const bool isOpen = isStandard(name) ? file.open(standardInput, QIODevice::ReadOnly)
                                         : file.open(QIODevice::ReadOnly);
    if (!isOpen)
        return file.errorString();
    // Files in /proc report this size, and reading some of them blocks for ever.
    if (!file.isSequential() && file.size() == 0)
        return {};
    QByteArray piece;
    do {
        piece = file.read(qMin(limit + 1 - bytes.size(), pieceBytes));
        bytes += piece;
    } while (!piece.isEmpty() && bytes.size() <= limit);
    return file.error() == QFileDevice::NoError ? QString() : file.errorString();
}

QString writeOutput(const QString &name, const QByteArray &bytes, bool replace)
{
    if (isStandard(name)) {
        QFile file;
        const bool isWritten
            = file.open(standardOutput, QIODevice::WriteOnly | QIODevice::Unbuffered)
            && file.write(bytes) == bytes.size();
        return isWritten ? QString() : file.errorString();
    }
    const QFileInfo former(name);
    if (former.exists() && !former.isFile())
        return QStringLiteral("exists and is no regular file");
    if (former.exists() && !replace)
        return QStringLiteral("exists; --force replaces it");
    QSaveFile file(name);
    // `commit` alone would keep a truncated file on a full disk.
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()
        && file.flush() && file.commit();
    return isWritten ? QString() : file.errorString();
}

} // namespace tdr
