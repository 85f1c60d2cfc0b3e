// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEvent>
#include <QPoint>
#include <Qt>

class MainWindowProbe;
class QDial;
class QWidget;

/// Mouse and wheel events as Qt delivers them, sent at once and without running the event loop.
/// They go through the application, so event filters see them first. Positions are the widget's
/// own, in pixels. QTest lacks moves with buttons held, presses with several, and wheel events.
namespace input {

/// A mouse event of \a type at \a position in \a widget. \a button caused it, \a buttons are held
/// after it. Returns true if the widget accepted the event.
bool mouse(QWidget *widget, QEvent::Type type, QPoint position, Qt::MouseButton button,
           Qt::MouseButtons buttons);

/// Press, with \a button alone held.
void press(QWidget *widget, QPoint position, Qt::MouseButton button = Qt::LeftButton);
/// Move with \a buttons held; Qt::NoButton for none.
void move(QWidget *widget, QPoint position, Qt::MouseButtons buttons);
/// Release of \a button, none held after it.
void release(QWidget *widget, QPoint position, Qt::MouseButton button = Qt::LeftButton);

/// Presses and releases in the middle of \a widget.
void click(QWidget *widget, Qt::MouseButton button = Qt::LeftButton);
/// Presses and releases at \a position.
void clickAt(QWidget *widget, QPoint position, Qt::MouseButton button = Qt::LeftButton);
/// Presses at \a from, moves to \a to in \a moves equal steps (1 or more), releases there.
void drag(QWidget *widget, QPoint from, QPoint to, Qt::MouseButton button, int moves);

/// One wheel event over the middle of \a widget by \a delta eighths of a degree, 120 to a notch;
/// positive is away from the user.
void wheel(QWidget *widget, int delta);
/// \a notches wheel events of one notch each; negative towards the user.
void turnWheel(QWidget *widget, int notches);

/// Presses \a dial near its rim and turns it by \a degrees clockwise (negative: back) in \a moves
/// equal steps (1 or more). \a start is where it is pressed, in degrees clockwise from the top.
void turnDial(QDial *dial, double start, double degrees, int moves);
/// Turns \a dial by \a degrees from its left edge, in steps of three degrees.
void turn(QDial *dial, int degrees);

/// Pixel of the chart view at \a count counts and the height of level 0.
QPoint pixelOf(const MainWindowProbe &probe, int count);
/// Count under the pixel column \a x of the chart view, worked out from the plot area.
int countAt(const MainWindowProbe &probe, int x);

} // namespace input
