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

/// Plays events at a real window, each through what the toolkit would deliver. Brings its own
/// files: a folder with good, odd and missing traces and settings, the same each time.
class Player
{
public:
    /// Opens a window without settings of a former run. The dialogs must be the toolkit's own: set
    /// Qt::AA_DontUseNativeDialogs before.
    Player();

    /// Does what \a event says and answers what comes up. Repaints wait for a Settle.
    void play(const Event &event);

    const WindowFixture &fixture() const;

    /// Empties every slot, leaves all modes, speaks English, at 800 x 500: what two moments of a
    /// long run are compared in.
    void comeToRest();

private:
    struct Act;
    static const Act acts[];

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

    /// Opens the window, as the program does, after closing the one that was open.
    void open();
    void makeTraces();
    void makeSettings();
    QWidget *plot() const;
    QPoint onPlot(int x, int y) const;
    QPoint inWindow(int x, int y) const;
    QWidget *widgetAt(QPoint position) const;
    QDial *dial(int which) const;
    QList<QAbstractButton *> openButtons() const;

    WindowFixture m_fixture;
    Choices m_choices;
    QStringList m_sheets;
};
