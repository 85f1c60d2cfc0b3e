// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

class MainWindow;
class QIODevice;

namespace extras {

/// Dots per inch of a picture.
constexpr int pictureResolution = 300;

/// The chart of \a window as it is shown, drawn anew at 300 dots per inch and as large on paper as
/// on the screen: lines and letters grow with the resolution, and no pixel of the screen is in it.
/// Null when there is no memory for so large a picture, or no chart to be seen.
QImage chartPicture(const MainWindow &window);

/// Writes the same as one page of PDF, of the chart's size and made of lines and letters, to
/// \a device. False when that fails.
bool writeChartPdf(const MainWindow &window, QIODevice &device);

} // namespace extras
