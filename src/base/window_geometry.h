// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSize>

namespace calc {

/// True when \a record, a window geometry as the toolkit stores it (versions 1 to 3), can be given
/// back to the toolkit: its rectangles have their edges the right way round and none is wider or
/// higher than \a desktop, in pixels; the frame may overhang it by its borders. The toolkit itself
/// believes any number: one damaged byte makes it ask for more memory than there is. An empty or
/// cut record is not plausible.
bool isPlausibleGeometry(const QByteArray &record, const QSize &desktop);

/// True when \a record, the state of a main window as the toolkit stores it, is one that this
/// window can have saved: neither docks nor tool bars, the four corners each given to a side,
/// nothing after them. The toolkit counts and indexes by whatever numbers stand in it: a damaged
/// byte keeps it busy for minutes, a few of them make it write outside its arrays.
bool isPlausibleState(const QByteArray &record);

} // namespace calc
