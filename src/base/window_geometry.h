// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSize>

namespace window_geometry {

/// True when \a record, a geometry as QWidget::saveGeometry makes it (versions 1 to 3), can be
/// given to restoreGeometry: it is complete, and each of its rectangles has its edges in order and
/// is at most four times as wide and high as \a desktop, in pixels, and at most 32767.
/// restoreGeometry itself accepts any size: one damaged byte can exhaust the memory.
bool isPlausibleGeometry(const QByteArray &record, const QSize &desktop);

/// True when \a record is a state that QMainWindow::saveState can make of this window, which has no
/// docks, no tool bars and Qt's default corners. restoreState uses the numbers of a record as loop
/// bounds and array indices: a damaged byte blocks it for minutes or makes it write outside its
/// arrays.
bool isPlausibleState(const QByteArray &record);

} // namespace window_geometry
