// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzzer.h"

#include <QByteArray>
#include <QDir>
#include <QFile>

#include <cstdio>

/// \file
/// Regression test of the findings: runs the inputs of a folder once, in the order of their names.
/// Builds with any compiler.

// A replay mutates nothing; this definition lets the mutators of the fuzzers link.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *, std::size_t size, std::size_t)
{
    return size;
}

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    const QDir folder(QFile::decodeName(argv[1]));
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    if (names.isEmpty()) {
        std::fprintf(stderr, "no inputs in %s\n", argv[1]);
        return 1;
    }
    fuzz::replaying = true;
    LLVMFuzzerInitialize(&argc, &argv);
    for (const QString &name : names) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "cannot read %s\n", qPrintable(file.fileName()));
            return 1;
        }
        const QByteArray bytes = file.readAll();
        // Printed before the run, so the last line names the input that failed.
        std::fprintf(stderr, "%s, %d bytes\n", qPrintable(name), static_cast<int>(bytes.size()));
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
    }
    return 0;
}
