// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>

namespace tdr {

/// What is wrong with the trace file that holds \a bytes, a line each; empty for a sound one. A
/// file that ends before the last drawn sample is reported for its size only.
QStringList findings(const QByteArray &bytes);

} // namespace tdr
