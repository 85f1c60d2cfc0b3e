// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Kills the viewer while it saves and makes system calls fail. The settings must be complete
// afterwards.
#include "failing.h"
#include "killing.h"

#include <QApplication>
#include <QRandomGenerator>

#include <cstdio>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The window writes a line at each resize.
    qputenv("QT_LOGGING_RULES", "default.debug=false");
    const QApplication application(argc, argv);
    const QByteArray command = argc > 2 ? argv[1] : "";
    const int count = argc > 2 ? QByteArray(argv[2]).toInt() : 0;
    if (command == "calls" && argc == 3 && count > 0)
        return failCalls(count) ? 0 : 1;
    if (command == "kills" && argc == 4 && count > 0) {
        const QByteArray text = argv[3];
        const unsigned seed
            = text == "new" ? QRandomGenerator::global()->generate() : text.toUInt();
        std::printf("seed %u\n", seed);
        return killSavingWindows(count, seed) ? 0 : 1;
    }
    std::fprintf(stderr,
                 "velkor-faults calls N        lets every N-th system call fail, each in a run of "
                 "its own\n"
                 "velkor-faults kills N SEED   kills N windows while they save; SEED may be "
                 "\"new\"\n");
    return 2;
}
