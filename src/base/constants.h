// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QtGlobal>

#include <cstddef>

/// \file
/// Numbers and texts that more than one file or a test uses.
///
/// The horizontal unit of the chart is the *count*, 1.25 ns of echo time; the vertical one is one
/// raw sample step.

namespace constants {

/// A text whose length is counted at compile time. The constructor without a length calls a library
/// function, which only g++ accepts in a constant.
template <std::size_t size> constexpr QLatin1String latin1(const char (&text)[size])
{
    return QLatin1String(text, static_cast<int>(size) - 1);
}

// ---- Traces ----

constexpr int slotCount = 6; ///< trace slots 0..5, shown to the user as 1..6
constexpr int allSections = 63; ///< one bit per section of the settings
constexpr int drawnSamples = 250; ///< samples drawn of each trace, whatever the record holds
constexpr int lastSample = drawnSamples - 1; ///< highest sample index under a cursor
constexpr int stepPointCount = 2 * drawnSamples; ///< capacity for a trace drawn as steps
constexpr double nsPerCount = 1.25; ///< echo time of one count, ns
constexpr int noLevel = 129; ///< "no level here": above every signed byte, shown as an empty text
constexpr int noMaster = -1; ///< master slot before the first one is chosen
constexpr int centuryStart = 2000; ///< the record counts years from here

// ---- View range ----

constexpr int minScale = 0; ///< zoom exponent of the narrowest view
constexpr int maxScale = 8; ///< zoom exponent of the widest view
constexpr int xLength = drawnSamples << maxScale; ///< widest horizontal extent, counts
constexpr int levelMin = -128; ///< lower end of the vertical axis, sample steps
constexpr int levelMax = 128; ///< upper end of the vertical axis, sample steps
constexpr int verticalOffsetLimit = 256; ///< a trace is shifted up or down by at most this

// ---- KU: speed of light over speed in the cable ----

constexpr float minKU = 1.0F;
constexpr float maxKU = 10.0F;
constexpr float startKU = 1.49896229F; ///< makes one count 0.125 m, to the precision of a float
/// Metres per count at the speed of light, one way: 299792458 m/s x 1.25 ns / 2.
constexpr double distCoef0 = 0.18737028625;
constexpr float kuDialUnits = 1000.0F; ///< dial steps per unit of KU

// ---- Chart ----

constexpr int gridLines = 20; ///< interior grid lines; no range needs more
constexpr int gridEdges = 2; ///< lines at the left and right edge of the plot
constexpr double chartPosition = -10.25; ///< x and y of the chart in the scene
constexpr int tracePen = 2; ///< width of every trace at the start, then of the selected one
/// Pens of the six traces, 0xAARRGGBB as QColor takes them.
constexpr quint32 slotColours[slotCount] = {
    0xFF00FF00, 0xFF00FFFF, 0xFFFF00FF, 0xFFFF0000, 0xFFFFFF00, 0xFF0000FF,
};
constexpr quint32 normalBackground = 0xFF0B0C0D; ///< behind the traces

// ---- Cursors and dials ----

constexpr int dialSpeed = 100; ///< steps per turn of a dial unless the settings say otherwise
constexpr int scaleDialSpeed = 8; ///< steps per turn while the dial sets the scale

// ---- Files beside the program ----

constexpr QLatin1String settingsFile = latin1("settings_current.ini");
constexpr QLatin1String settingsBackupFile = latin1("settings_current_old.ini");
/// Environment variable: folder of the style sheet to watch. If unset, no sheet is watched.
constexpr char developerFolderVariable[] = "VELKOR_DEV_FOLDER";

// ---- Languages ----

/// The longest file name on common file systems. QTranslator tries every prefix of a name that ends
/// before an underscore or dot: a name of a million underscores would take half an hour.
constexpr int longestLanguageCode = 255;

static_assert(xLength == 64000, "the widest view is 250 samples of 256 counts");

} // namespace constants
