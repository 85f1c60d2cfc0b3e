// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// \file
/// What a window must show of a trace file, worked out anew from how the viewer is described and
/// with none of its code: the other half of a comparison.
///
/// The window is as after a run that had \c goodTrace in slot 1 as the master and \c secondTrace in
/// slot 3, cursor A at column 150.
namespace corpus {

constexpr char goodTrace[] = "samples=7,121,-60";
constexpr char secondTrace[]
    = "minstep=2.5 delay=2 shift_x=3 shift_y=7 ku=2.0 year=0x30 month=0x12 "
      "day=0x31 hours=0x23 minutes=0x59 seconds=0x58 samples=0,1,-20";
constexpr int cursorColumn = 150;

/// Seven lines on the file of \a recipe, each "what: values", for these steps in turn:
///   beside      loaded into the empty slot 2
///   selected    slot 2 selected, the cursor put to its column again
///   captions    what the parameter buttons then say
///   difference  the difference mode switched on, and off again
///   smooth      smoothing switched on, and off again
///   master      slot 2 made the master
///   over        loaded into slot 3, over the trace there
QStringList expectedOutcome(const QString &recipe);

} // namespace corpus
