// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "trace_rows.h"

#include <QDir>
#include <QFile>

#include <cstdio>

/// Writes the tables of the trace corpus into the folder that the one argument names.
int main(int argc, char **argv)
{
    if (argc != 2 || !QDir().mkpath(QFile::decodeName(argv[1]))) {
        std::fputs("usage: make_corpus FOLDER\n", stderr);
        return 2;
    }
    const QDir folder(QFile::decodeName(argv[1]));
    int files = 0;
    const auto families = corpus::traceFamilies();
    for (const corpus::Family &family : families) {
        const QByteArray table = corpus::tableOf(family).toUtf8();
        QFile file(folder.filePath(family.name + QStringLiteral(".txt")));
        if (!file.open(QIODevice::WriteOnly) || file.write(table) != table.size()) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file.fileName()));
            return 1;
        }
        files += static_cast<int>(family.recipes.size());
    }
    std::printf("%d trace files in %d tables\n", files, static_cast<int>(families.size()));
    return 0;
}
