// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "extras/exporting_chart.h"

#include <QByteArray>
#include <QImage>

class MainWindow;

/// \file
/// The chart of a window with a caption strip under it, drawn from the data of the window, which
/// does not change.

namespace extras {

/// A picture in the proportions of the plot, at 300 dots per inch of a page no wider than A4. Null
/// when there is not enough memory.
QImage chartPicture(const MainWindow &window, Background background);

/// A page of A4 in landscape format as PDF, on white.
QByteArray chartPage(const MainWindow &window);

/// A drawing as SVG, on white, in the proportions of the plot.
QByteArray chartDrawing(const MainWindow &window);

} // namespace extras
