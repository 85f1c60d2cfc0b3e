// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzzer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtGlobal>

#include <cstdio>
#include <cstdlib>

namespace {

void onlyFatal(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg)
        fuzz::fail(qPrintable(text));
}

} // namespace

void fuzz::silenceLog()
{
    qInstallMessageHandler(onlyFatal);
}

bool fuzz::replaying = false;

QString fuzz::folderTemplate()
{
    const QString memory = QStringLiteral("/dev/shm");
    const bool there = QFileInfo(memory).isWritable();
    return QDir(there ? memory : QDir::tempPath()).filePath(QStringLiteral("velkor-fuzz-XXXXXX"));
}

void fuzz::writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        fail("the fuzzer can write its files");
}

bool fuzz::slowPartIsDue(unsigned every)
{
    static unsigned calls = 0;
    return calls++ % every == 0 || replaying;
}

void fuzz::fail(const char *promise)
{
    std::fprintf(stderr, "\n==== broken promise: %s\n", promise);
    std::fflush(stderr);
    std::abort();
}
