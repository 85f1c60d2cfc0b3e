// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>

namespace tdr {

/// The faults of the trace file with the content \a bytes, one in each line; empty for a file
/// without faults. For a file that ends before the last drawn sample, reports only the size.
QStringList findings(const QByteArray &bytes);

} // namespace tdr
