// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "event.h"
#include "popups.h"
#include "windowfixture.h"

/// The simulated user: plays events on a real window, each as the input that Qt would deliver, and
/// answers the dialogs and menus that open. Its files are valid, damaged and missing traces and
/// settings, the same in each run.
class Player
{
public:
    /// Opens a window with default settings and, where they are built, the extras.
    Player();

    /// Plays \a event and answers dialogs and menus that open (user_actions.cpp). Repaints wait for
    /// a Settle.
    void play(const Event &event);

    MainWindow &window() const;
    const MainWindowProbe &probe() const;
    const Choices &choices() const;

    /// Sets the files that dialogs and drops choose from; the default is the player's own files.
    void chooseFrom(const QStringList &traces);

    /// Clears every slot and all modes, sets English and 800 x 500, so two moments of a long run
    /// can be compared.
    void reset();

    /// Opens the window as main does, after closing the one that was open.
    void open();

private:
    void makeTraces();
    void makeSettings();

    WindowFixture m_fixture;
    Choices m_choices;
};
