// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// What this process holds of the machine.
struct Footprint
{
    /// Memory in use as the system counts it, bytes. 0 where the heap is a sanitizer's, which keeps
    /// what was freed to catch its users: there it grows and says nothing.
    qint64 resident = 0;
    qint64 heap = 0; ///< bytes that were asked for and not given back
    int descriptors = 0; ///< open files, sockets, pipes

    /// Now, after what is free was given back to the system.
    static Footprint taken();
};
