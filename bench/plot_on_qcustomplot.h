// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class PeerPlot;

/// The plot as one would build it on QCustomPlot: graphs and items, a default replot for every
/// change. A widget without owner, for a window to take over.
PeerPlot *plotOnQCustomPlot();
