// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtTest>

/// \file
/// Precompiled, so every test source begins with it. One program holds all tests of a folder: the
/// \c main that QTEST_MAIN and its variants define becomes a function of that source and an entry
/// in the list of the program's tests.

/// A test, named after its source file.
struct TestEntry
{
    TestEntry(const char *sourceFile, int (*run)(int argc, char **argv));
};

#define main                                                                                       \
    static testMain(int argc, char **argv);                                                        \
    static const TestEntry testEntry(__FILE__, testMain);                                          \
    int static testMain
