// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzzer.h"

#include <QByteArray>
#include <QString>
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

void fuzz::runOffscreen()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

void fuzz::fail(const char *promise)
{
    std::fprintf(stderr, "\n==== broken promise: %s\n", promise);
    std::fflush(stderr);
    std::abort();
}
