// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPixmap>

class QString;

/// The picture \a path of the bundle; the suffix ".png" may be missing. Where the device pixel
/// ratio is above 1 and the bundle has the picture in double resolution, returns that one, with its
/// own device pixel ratio set. Null for a path that names no picture.
QPixmap bundledPicture(const QString &path);
