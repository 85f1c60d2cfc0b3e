// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tdr.h"

#include <QDir>
#include <QProcess>

namespace {

QStringList linesOf(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

QStringList Outcome::lines() const
{
    return linesOf(output);
}

QStringList Outcome::errorLines() const
{
    return linesOf(errors);
}

Outcome run(const QString &program, const QStringList &arguments, const QByteArray &input,
            const QString &folder, const char *locale)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QString::fromLatin1(locale));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    const bool hasEnded
        = process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit;
    return { hasEnded ? process.exitCode() : -1, process.readAllStandardOutput(),
             process.readAllStandardError() };
}

Outcome tdr(const char *command, const QStringList &files, const QByteArray &input,
            const QString &folder, const char *locale)
{
    return run(QStringLiteral(VELKOR_TDR), wordsOf(command) + files, input, folder, locale);
}

QStringList wordsOf(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QStringList samplePaths()
{
    const QDir folder(QStringLiteral(VELKOR_SAMPLES_DIR));
    QStringList paths;
    for (const QString &name : folder.entryList({ QStringLiteral("*.tdr") }, QDir::Files))
        paths.append(folder.filePath(name));
    return paths;
}

QByteArray samplesOf(const QByteArray &bytes)
{
    return bytes.mid(261, 250);
}
