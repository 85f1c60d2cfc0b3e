// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mainwindowprobe.h"

#include <QRandomGenerator>
#include <QStringList>
#include <QVector>

class WindowFixture;

/// Six traces of unlike steps, delays and shifts in the folder of \a fixture, so that grids meet in
/// some pairs only. The same ones each time.
QStringList sessionTraces(const WindowFixture &fixture);

/// A user at the window, the same one for the same seed: operations of every kind in a random
/// order, each through the events that a hand or a dialog would cause. All kinds come up once
/// before any comes up again.
class Session
{
public:
    /// \a window is shown and loaded or not; \a traces, at least six, are the files to choose from.
    Session(MainWindow &window, const QStringList &traces, quint32 seed);

    /// How many actions bring every kind up once.
    static int round();

    /// Does the next action, without waiting for its repaint, and says what it was.
    QString act();

private:
    struct Kind;
    static const Kind kinds[];

    QString cursorByWheel();
    QString cursorByDial();
    QString cursorByDialWheel();
    QString cursorByDrag();
    QString cursorByClick();
    QString pan();
    QString zoomByButton();
    QString zoomByWheel();
    QString scroll();
    QString chooseCursor();
    QString chooseCursorByMenu();
    QString chooseParameter();
    QString turnParameter();
    QString turnParameterWheel();
    QString enterNumber();
    QString selectTrace();
    QString toggleVisibility();
    QString makeMaster();
    QString resetTrace();
    QString clearTrace();
    QString loadOne();
    QString loadSeveral();
    QString loadSix();
    QString smooth();
    QString difference();
    QString resetAll();
    QString resize();
    QString changeLanguage();
    QString changeStyle();

    int below(int bound);
    int between(int low, int high);
    QPoint somewhereOnPlot();

    MainWindow &m_window;
    MainWindowProbe m_probe;
    QStringList m_traces;
    QRandomGenerator m_dice;
    QVector<int> m_deck; ///< kinds still to come in this round
};
