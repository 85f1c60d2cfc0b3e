// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPixmap>

class QString;

/// The picture \a path of the bundle, with or without its ending. On a screen that has more than
/// one pixel for a unit it is the drawing in twice as many pixels, where there is one; it then says
/// so itself and takes the same room. Null for a path that names no picture.
QPixmap bundledPicture(const QString &path);
