// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

class QApplication;

/// \file
/// The scale of the window on a screen with many pixels.
namespace screen_scale {

/// Creates the application so that it follows the scale of the desktop, fractions included. Qt's
/// environment variables have precedence; a QT_SCALE_FACTOR that is no number from 0.1 to 10 counts
/// as unset. \a argc and \a argv must outlive the application. Call it once, before any other use
/// of Qt's windows.
///
/// An X server without a scale reports the size of the screen in whole millimetres, so 96 dpi may
/// arrive as 96.1 dpi. The window would be one pixel wider and every line blurred. Such a scale is
/// ignored. It is known only after the application exists, so the application is created again,
/// which takes some milliseconds.
std::unique_ptr<QApplication> makeApplication(int &argc, char **argv);

} // namespace screen_scale
