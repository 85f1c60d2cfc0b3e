// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// The six traces that every subject shows: echoes on a line that falls off, one count a sample.
namespace traces {

/// Sample \a index, from 0, of the trace in \a slot, 0..5.
int sample(int slot, int index);

/// Writes the six as files into the folder \a folder and returns their paths.
QStringList write(const QString &folder);

} // namespace traces
