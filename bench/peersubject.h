// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "peerplot.h"
#include "viewersubject.h"

/// A peer: the viewer's window with another plot in place of its own. It does not use the window's
/// operations; it changes the model, shows it, and writes the readouts that the viewer writes.
class PeerSubject : public ViewerSubject
{
public:
    /// Takes \a plot over. \a files are the six traces.
    PeerSubject(PeerPlot *plot, QSize size, const QStringList &files);

    QWidget &plot() override;
    QWidget &canvas() override;
    void begin(Operation operation) override;
    void act(Operation operation, int number) override;
    void takeBack(Operation operation) override;
    void end(Operation operation) override;

private:
    void show(bool pointsChanged);
    void showParameter(QAbstractButton *button, double value);
    void set(bool PeerModel::*mode, bool on);

    PeerPlot &m_plot;
    PeerModel m_model;
};
