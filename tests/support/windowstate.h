// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QRegion>
#include <QStringList>

class MainWindow;

/// What is behind the picture of \a window, one "name: value" a line: the chart's series in their
/// drawing order, each with visibility, points, pen and axes; the range; the texts of the scene and
/// of every control. Two windows with equal lines will go on alike.
QStringList stateOf(MainWindow &window);

/// What \a window is made of and offers, a line for each widget and each entry of its menus. No use
/// of the window changes these lines, but a change of language does.
QStringList outfitOf(const MainWindow &window);

/// What a user sees: \a window as the offscreen platform last had it from the program, without the
/// clock, which shows another second each time. Only what was painted by itself is in it.
QImage screenOf(MainWindow &window);

/// \a window painted anew on a fresh picture, without the clock.
QImage freshPictureOf(MainWindow &window);

/// Where the letters of the cursor markers stand in both pictures. They are painted as outlines,
/// whose edges the toolkit rounds one way or another from one time to the next.
QRegion lettersOf(MainWindow &window);
