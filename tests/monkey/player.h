// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "event.h"
#include "popups.h"
#include "windowfixture.h"

#include <QList>
#include <QPoint>

class QAbstractButton;
class QDial;
class QWidget;

/// The simulated user: plays events at a real window, each as the input that Qt would deliver, and
/// answers the dialogs and menus that open. Has files of its own: good, damaged and missing traces
/// and settings, the same in each run.
class Player
{
public:
    /// Opens a window with default settings and, where they are built, the extras.
    Player();

    /// Does what \a event says and answers what opens. Repaints wait for a Settle.
    void play(const Event &event);

    MainWindow &window() const;
    const MainWindowProbe &probe() const;

    /// The files that dialogs and drops choose from; without a call those of the player.
    void chooseFrom(const QStringList &traces);

    /// Clears every slot and all modes, sets English and 800 x 500: a state in which two moments of
    /// a long run can be compared.
    void reset();

private:
    /// The widget at a place in the window, and that place in the widget.
    struct Target
    {
        QWidget *widget;
        QPoint position;
    };
    using Action = void (Player::*)(const Event &event);
    static const Action actions[Event::KindCount];

    void press(const Event &event);
    void move(const Event &event);
    void release(const Event &event);
    void drag(const Event &event);
    void click(const Event &event);
    void doubleClick(const Event &event);
    void wheelOnPlot(const Event &event);
    void wheelAnywhere(const Event &event);
    void turnDial(const Event &event);
    void dialKey(const Event &event);
    void key(const Event &event);
    void focus(const Event &event);
    void button(const Event &event);
    void chartMenu(const Event &event);
    void slotMenu(const Event &event);
    void slotAction(const Event &event);
    void entry(const Event &event);
    void files(const Event &event);
    void settings(const Event &event);
    void resize(const Event &event);
    void windowState(const Event &event);
    void drop(const Event &event);
    void language(const Event &event);
    void style(const Event &event);
    void pointer(const Event &event);
    void settle(const Event &event);
    void reopen(const Event &event);

    /// Opens the window as main does, after closing the one that was open.
    void open();
    void makeTraces();
    void makeSettings();
    QWidget *plot() const;
    QPoint onPlot(int x, int y) const;
    Target targetAt(int x, int y) const;
    QDial *dial(int which) const;
    QList<QAbstractButton *> openButtons() const;

    WindowFixture m_fixture;
    Choices m_choices;
    QStringList m_sheets;
};
