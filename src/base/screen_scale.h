// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

class QApplication;

/// \file
/// How large the window is on a screen of many pixels. The desktop's scale is followed as it is,
/// fractions included; what the user's environment says of it comes first.
namespace screen_scale {

/// The application, following the desktop's scale; \a argc and \a argv have to outlive it. To be
/// called once, before anything else of the toolkit is in use.
///
/// A scale that is no wish but a rounding is left at 1: without a scale of its own, an X server is
/// asked for the size of its screen in whole millimetres, and 96 dots to the inch come out as 96.1.
/// All lines would be blurred for a window one pixel wider. That is only seen once the application
/// is there, so in that case another one is made, which takes some milliseconds.
std::unique_ptr<QApplication> makeApplication(int &argc, char **argv);

} // namespace screen_scale
