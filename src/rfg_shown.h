// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol_vx840.h"

#include <QDate>
#include <QString>
#include <QTime>

/// One of the six trace slots: the file as read and what the viewer keeps beside it. Whether a
/// slot holds a trace is not said here but by its bit in the window's mask; an emptied slot keeps
/// everything it had.
struct rfg_SHOWN
{
    Protocol_VX840::TDR_FILE_t f_p_840 = {}; ///< the file image, exactly as read; zeros before that
    int offset = 0; ///< vertical shift in sample units, -256..256 once the user has changed it
    int scroll = 0; ///< horizontal shift in counts
    /// Counts per sample as the file gives them, 0 for a step below 1.25 ns. Draw, divide and snap
    /// with at least 1.
    int coef_from_min = 1;
    QString file_name; ///< base name: no folder, no extension
    QString dir_name; ///< last element of the folder's path
    QString full_path; ///< the path that was given to the reader
    QString name; ///< the word for a trace, a blank and the slot number 1..6
    int cable_id = 0; ///< not filled by loading
    QString location; ///< not filled by loading
    QString meta_data; ///< not filled by loading
    QDate date; ///< of the test; invalid when the record holds no date
    QTime time; ///< of the test; invalid when the record holds no time
};
