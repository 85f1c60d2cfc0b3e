// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_program.h"

#include <QFileInfo>

#include <cstdio>
#include <map>
#undef main

namespace {

using Run = int (*)(int, char **);

std::map<QString, Run> &tests()
{
    static std::map<QString, Run> all;
    return all;
}

} // namespace

TestEntry::TestEntry(const char *sourceFile, Run run)
{
    tests()[QFileInfo(QString::fromUtf8(sourceFile)).baseName()] = run;
}

// The name of the executable selects the test, else the first argument.
int main(int argc, char **argv)
{
    for (int i = 0; i < qMin(argc, 2); ++i) {
        const auto test = tests().find(QFileInfo(QString::fromLocal8Bit(argv[i])).baseName());
        if (test != tests().end())
            return test->second(argc - i, argv + i);
    }
    std::fprintf(stderr, "usage: %s TEST [options of QtTest]\n", argv[0]);
    for (const auto &test : tests())
        std::fprintf(stderr, "  %s\n", qPrintable(test.first));
    return 2;
}
