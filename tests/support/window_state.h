// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QRegion>
#include <QStringList>

class MainWindow;

/// State of \a window, one "name: value" a line: the chart's series in their drawing order, each
/// with visibility, points, pen and axes; the range; the texts of the scene and of every control.
QStringList stateOf(MainWindow &window);

/// One line for each widget of \a window and each entry of its menus. Only a change of language
/// changes these lines.
QStringList outfitOf(const MainWindow &window);

/// Content of the backing store of \a window on the offscreen platform, which is what a user sees.
/// The clock is blackened.
QImage screenOf(MainWindow &window);

/// \a window after a complete repaint. The clock is blackened. Also repaints stale pixels on the
/// screen, so take screenOf() first.
QImage freshPictureOf(MainWindow &window);

/// Which pixels of \a one and \a other differ, and how much; empty when they are equal. Small
/// differences within \a letters do not count. Saves both pictures beside the test program.
QString differenceOf(const QImage &one, const QImage &other, const QRegion &letters = QRegion());

/// How the screen differs from \a window after a complete repaint; empty when no pixel is stale.
/// Call it once, at the end of a test: it repaints the window.
QString staleOf(MainWindow &window);
