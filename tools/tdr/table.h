// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "calc/trace_table.h"

#include <QByteArray>
#include <QString>

#include <deque>

namespace tdr {

/// A record and the name of its file.
struct NamedRecord
{
    QString file;
    Protocol_VX840::TDR_FILE_t record;
};

/// The table that the viewer would export of \a records, without its cursors. The first record is
/// the master, whose KU is used for all distances, and the selected trace, whose reflections are
/// listed.
QByteArray table(const std::deque<NamedRecord> &records, calc::Decimals decimals);

} // namespace tdr
