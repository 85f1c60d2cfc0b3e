// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSize>

namespace calc {

/// True when \a record, a window geometry as the toolkit stores it (versions 1 to 3), can be given
/// back to the toolkit: its rectangles have their edges the right way round and none is wider or
/// higher than \a desktop, in pixels. The toolkit itself believes any number: one damaged byte
/// makes it ask for more memory than there is. An empty or cut record is not plausible.
bool isPlausibleGeometry(const QByteArray &record, const QSize &desktop);

} // namespace calc
