// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>

/// The result of a run of a program.
struct Outcome
{
    int code = -1; ///< exit status; -1 when the program crashed or did not end
    QByteArray output;
    QByteArray errors;

    QStringList lines() const;
    QStringList errorLines() const;
};

/// Runs \a program with \a arguments and \a input in the folder \a folder, in the locale \a locale.
Outcome run(const QString &program, const QStringList &arguments, const QByteArray &input = {},
            const QString &folder = {}, const char *locale = "C.UTF-8");

/// The same for velkor-tdr with the words of \a command, then \a files.
Outcome tdr(const char *command, const QStringList &files = {}, const QByteArray &input = {},
            const QString &folder = {}, const char *locale = "C.UTF-8");

/// The words of \a text.
QStringList wordsOf(const char *text);

/// Paths of the six sample traces.
QStringList samplePaths();

/// Samples of the record \a bytes that are drawn.
QByteArray samplesOf(const QByteArray &bytes);
