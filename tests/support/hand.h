// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <Qt>

class QDial;
class QWidget;

/// The user's hand on a widget: the events that the toolkit would deliver, sent at once and without
/// turning the event loop, so that the caller decides when the program may answer. Positions are
/// the widget's own, in pixels.
namespace hand {

void press(QWidget *widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);
/// Moves the pointer to \a to while \a held is down; Qt::NoButton for a free pointer.
void move(QWidget *widget, QPoint to, Qt::MouseButton held);
void release(QWidget *widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);

/// Presses and releases in the middle of \a widget.
void click(QWidget *widget, Qt::MouseButton button = Qt::LeftButton);

/// Presses at \a from, moves to \a to in \a moves equal steps (1 or more), releases there.
void drag(QWidget *widget, QPoint from, QPoint to, Qt::MouseButton button, int moves);

/// Turns the wheel over the middle of \a widget by \a notches one by one; positive is away from
/// the user.
void turnWheel(QWidget *widget, int notches);

/// Grips \a dial at its rim and turns it clockwise by \a degrees in \a moves equal steps (1 or
/// more); negative degrees turn it back. \a start is where it is gripped, clockwise from the top.
void turnDial(QDial *dial, double start, double degrees, int moves);

} // namespace hand
