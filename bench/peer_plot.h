// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "peer_model.h"

#include <QMargins>
#include <QWidget>

/// A way of drawing the plot. Each is a widget and paints itself once for every \c showModel.
class PeerPlot
{
public:
    /// What of the model changed; a library hands over to its plot no more than that.
    enum Change {
        Cursors = 1,
        Range = 2,
        Traces = 4,
        Selection = 8,
        Units = 16,
        Texts = 32,
        Everything = 63,
    };

    virtual ~PeerPlot() = default;

    /// The plot as a widget, owned by the window that takes it into its layout.
    virtual QWidget *widget() = 0;
    /// The part on which the traces are painted.
    virtual QWidget *canvas() = 0;
    /// Takes over the changes, a set of Change, and asks for one repaint. \a slot is the only trace
    /// that changed, or -1 for all of them.
    virtual void showModel(const PeerModel &model, int changes, int slot) = 0;

    /// Around the plot area, as the viewer's chart leaves them.
    static constexpr QMargins margins = { 57, 26, 23, 27 };
    static constexpr int levelStep = 32; ///< between two lines of the vertical axis
    static constexpr int labelPixels = 10; ///< of its labels
    static constexpr double markerSize = 8.0;
    static constexpr int markerInset = 4; ///< sample steps from the edge to a triangle's middle
};
