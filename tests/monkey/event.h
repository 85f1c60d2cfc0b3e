// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <array>

/// One thing that a monkey does at the window. It says the same whatever happened before it, so
/// that a script stays playable when events are taken out of it: numbers are shares of what is
/// there when it is played.
struct Event
{
    enum Kind {
        Press, ///< on the plot: x, y in thousandths, buttons
        Move, ///< over the plot: x, y, buttons held
        Release, ///< on the plot: x, y, button
        Drag, ///< on the plot: from x, y to x, y; button from the answer
        Click, ///< anywhere in the window: x, y, button
        DoubleClick, ///< anywhere in the window: x, y
        WheelOnPlot, ///< x, y, turn
        WheelAnywhere, ///< x, y, turn
        TurnDial, ///< which, start, degrees, moves
        DialKey, ///< which, key
        Key, ///< to the focus: key, modifier, for a control or for what is attached to the window
        Focus, ///< which of the widgets that take it
        Button, ///< which of the buttons that can be pressed
        ChartMenu, ///< x, y; the answer chooses
        SlotMenu, ///< slot; the answer chooses
        SlotAction, ///< slot, action
        Entry, ///< which of the six numbers; the answer types
        Files, ///< the answer chooses
        Settings, ///< the answer does what it likes in the dialog
        Resize, ///< width, height
        WindowState, ///< normal, maximised, minimised, full screen, hidden
        Drop, ///< x, y, first file, how many
        Language, ///< which
        Style, ///< which sheet
        Pointer, ///< enters or leaves: x, y
        Settle, ///< all that waits happens now, repaints included
        Reopen, ///< closes the window and opens it again
        KindCount
    };

    Kind kind = Settle;
    std::array<int, 4> numbers = {}; ///< 0 to 999 each
    unsigned answer = 0; ///< seed of what is done to dialogs and menus that come up

    bool operator==(const Event &other) const
    {
        return kind == other.kind && numbers == other.numbers && answer == other.answer;
    }
};

using Script = QVector<Event>;

/// How many events \a script has, in the plain numbers that events are counted in.
inline int lengthOf(const Script &script)
{
    return static_cast<int>(script.size());
}

/// The name of \a kind as it stands in a script.
QByteArray nameOf(Event::Kind kind);

/// "drag 12 500 900 500 4711"
QByteArray lineOf(const Event &event);

/// The script of \a seed: \a length events, the same on every machine. A longer script of the same
/// seed begins with the shorter one.
Script dealtScript(unsigned seed, int length);

/// Reads a script from \a text, one event a line; empty lines and those that begin with # are
/// left out. \a error takes what is wrong with the first line that cannot be read, and the result
/// is empty then.
Script parsedScript(const QByteArray &text, QString *error);

/// \a script as text, after \a comment, which may have several lines.
QByteArray textOf(const Script &script, const QByteArray &comment);
