// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>

/// What a run of a program gave.
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
            const QString &folder = {}, const QString &locale = QStringLiteral("C.UTF-8"));

/// The same for velkor-tdr.
Outcome tdr(const QStringList &arguments, const QByteArray &input = {}, const QString &folder = {},
            const QString &locale = QStringLiteral("C.UTF-8"));

/// Paths of the six sample traces.
QStringList samplePaths();

/// Samples of the record \a bytes that are drawn.
QByteArray samplesOf(const QByteArray &bytes);
