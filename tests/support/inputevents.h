// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEvent>
#include <QPoint>
#include <Qt>

class MainWindowProbe;
class QDial;
class QWidget;

/// Events that the test library cannot make: moves with buttons held, presses with several, wheel
/// notches. All go through the application, so that event filters see them first.
namespace input {

/// A mouse event of \a type at \a position in \a widget. \a button caused it, \a buttons are held
/// after it. The result is what the widget said: true when it accepted the event.
bool mouse(QWidget *widget, QEvent::Type type, QPoint position, Qt::MouseButton button,
           Qt::MouseButtons buttons);

/// Press, with \a button alone held.
void press(QWidget *widget, QPoint position, Qt::MouseButton button);
/// Move with \a buttons held.
void move(QWidget *widget, QPoint position, Qt::MouseButtons buttons);
/// Release of \a button, none held after it.
void release(QWidget *widget, QPoint position, Qt::MouseButton button);

/// One turn of the wheel over the middle of \a widget by \a delta eighths of a degree, 120 to a
/// notch; positive is away from the user.
void wheel(QWidget *widget, int delta);

/// Turns \a dial by hand: pressed at its left edge, moved \a degrees clockwise (negative: back) in
/// steps of three degrees, let go.
void turn(QDial *dial, int degrees);

/// Pixel of the chart view at \a count counts and the height of level 0.
QPoint pixelOf(const MainWindowProbe &probe, int count);
/// Count under the pixel column \a x of the chart view, worked out from the plot area.
int countAt(const MainWindowProbe &probe, int x);

} // namespace input
