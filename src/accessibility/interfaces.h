// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Cont_dial;
class QGraphicsSimpleTextItem;
class QWidget;

/// Accessible interfaces of the two controls that Qt describes wrongly: it takes a dial for its
/// knob and a graphics view for its scroll area. The accessible name is the text shown, as for a
/// button.
namespace accessibility {

/// Reports the caption and the counter of \a dial. Setting the counter works like a turn by the
/// user, limits included.
void installDialInterface(Cont_dial *dial);

/// Reports \a plot as a chart without children that shows \a title and \a step. The two must
/// outlive the plot.
void installPlotInterface(QWidget *plot, const QGraphicsSimpleTextItem &title,
                          const QGraphicsSimpleTextItem &step);

} // namespace accessibility
