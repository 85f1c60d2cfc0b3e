// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QVector>

#include <array>
#include <iterator>

/// One action of a user. Its numbers select from the objects that exist when it is played, so it is
/// valid after any other events, and a script stays valid when events are removed from it.
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
        Key, ///< to the focus: key, modifier, for a control or for the extras
        Focus, ///< which of the widgets that take it
        Button, ///< which of the enabled buttons
        ChartMenu, ///< x, y; the answer chooses
        SlotMenu, ///< slot; the answer chooses
        SlotAction, ///< slot, action
        Entry, ///< which of the six numbers; the answer types
        Files, ///< the answer chooses
        Settings, ///< the answer operates the dialog
        Resize, ///< width, height
        WindowState, ///< normal, maximised, minimised, full screen
        Drop, ///< x, y, first file, how many
        Language, ///< which
        Style, ///< which sheet
        Pointer, ///< moves without buttons: x, y
        Settle, ///< runs pending events, repaints included
        Reopen, ///< closes the window and opens it again
        KindCount
    };

    /// Numbers are 0 to \c bound - 1.
    static constexpr int bound = 1000;

    Kind kind = Settle;
    std::array<int, 4> numbers = {};
    unsigned answer = 0; ///< seed of the answers to dialogs and menus that open

    int operator[](std::size_t place) const
    {
        return numbers[place];
    }

    bool operator==(const Event &other) const
    {
        return kind == other.kind && numbers == other.numbers && answer == other.answer;
    }
};

using Script = QVector<Event>;

/// The element of \a choices that the number of an event selects.
template <typename List> auto pick(const List &choices, int number)
{
    return choices[number % static_cast<int>(std::size(choices))];
}

/// \a event as a line of a script: "drag 12 500 900 500 4711"
QByteArray lineOf(const Event &event);

/// \a length random events from \a seed, the same on every machine. A longer script of the same
/// seed begins with the shorter one.
Script randomScript(unsigned seed, int length);

/// Reads a script from \a text, one event a line; empty lines and those that begin with # are
/// skipped. An invalid line ends the program.
Script parsedScript(const QByteArray &text);

/// \a script as text, after a line with \a comment.
QByteArray textOf(const Script &script, const QByteArray &comment);
