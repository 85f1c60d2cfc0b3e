// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol_vx840.h"

#include <QDate>
#include <QString>
#include <QTime>

/// One of the six trace slots: the file record and the viewer's own values. The window's
/// \c rfg_read_index has a bit for each loaded slot. An emptied slot keeps its values except
/// \c coef_from_min.
struct rfg_SHOWN
{
    Protocol_VX840::TDR_FILE_t f_p_840 = {}; ///< file image as read; zeros before
    int offset = 0; ///< vertical shift in sample steps, -256..256 once the user has changed it
    int scroll = 0; ///< horizontal shift in counts
    /// Counts per sample as the file gives them, 0 for a step below 1.25 ns; those of the master in
    /// an empty slot. Draw, divide and snap with at least 1.
    int coef_from_min = 1;
    QString file_name; ///< base name: no folder, no extension
    QString dir_name; ///< last element of the folder's path
    QString full_path; ///< path passed to \c read_rfg_DATA
    QString name; ///< "RFG", a blank and the slot number 1..6
    int cable_id = 0; ///< not filled by loading
    QString location; ///< not filled by loading
    QString meta_data; ///< not filled by loading
    QDate date; ///< of the measurement; invalid when the record has none
    QTime time; ///< of the measurement; invalid when the record has none
};
