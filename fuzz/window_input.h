// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "input.h"

#include <QTemporaryDir>
#include <QVector>

#include <cstdint>

/// \file
/// What a fuzzer does to a window: how it is set out, a list of things that a user does, and the
/// trace files that he has.

namespace fuzz {

/// One thing that a user does; \c kind modulo their number says which, \c with modulo what there is
/// to choose from says with what.
struct Step
{
    quint8 kind = 0;
    quint8 with = 0;
};

constexpr std::size_t stepCount = 4; ///< steps of one execution
constexpr std::size_t windowPreamble = 4 + 2 * stepCount; ///< bytes before the records
constexpr std::size_t windowRecords = 6;

/// An input taken apart.
struct WindowInput
{
    WindowInput(const std::uint8_t *data, std::size_t size);

    bool russian = false;
    bool sweeps = false; ///< one that may go through all scales, which takes long
    bool shortFiles = false; ///< the files end with their last interpreted byte
    quint8 sparse = 0; ///< slots that stay empty although there is a file
    int master = 0; ///< as the settings name it, -128..127
    Step steps[stepCount];
    QVector<QByteArray> heads; ///< one to six records, as far as they are interpreted
};

/// Trace files in a folder that lasts as long as this; in memory where the system offers it.
class TraceFolder
{
public:
    TraceFolder();

    /// Replaces the files by one for each of \a heads, filled up with zeros to the size of a record
    /// unless they are to be short.
    void fill(const QVector<QByteArray> &heads, bool shortFiles);

    /// Path of file \a number, counted from 0 and taken modulo how many there are.
    QString file(int number) const;
    int fileCount() const;

    /// Path of a file with a good record.
    QString goodFile() const;

private:
    QTemporaryDir m_folder;
    int m_fileCount = 0;
};

} // namespace fuzz
