// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "hand.h"

#include <QCoreApplication>
#include <QDial>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr int notch = 120; ///< what a wheel reports for one click of it

void send(QWidget *widget, QEvent::Type type, QPoint at, Qt::MouseButton button,
          Qt::MouseButtons held)
{
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

QPoint onRim(const QDial *dial, double degrees)
{
    constexpr double radiansPerDegree = 3.14159265358979323846 / 180.0;
    const double radius = std::min(dial->width(), dial->height()) / 2.5;
    const QPoint middle = dial->rect().center();
    return middle
        + QPoint(static_cast<int>(std::lround(radius * std::sin(degrees * radiansPerDegree))),
                 static_cast<int>(std::lround(-radius * std::cos(degrees * radiansPerDegree))));
}

} // namespace

void hand::press(QWidget *widget, QPoint at, Qt::MouseButton button)
{
    send(widget, QEvent::MouseButtonPress, at, button, button);
}

void hand::move(QWidget *widget, QPoint to, Qt::MouseButton held)
{
    send(widget, QEvent::MouseMove, to, Qt::NoButton, held);
}

void hand::release(QWidget *widget, QPoint at, Qt::MouseButton button)
{
    send(widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton);
}

void hand::click(QWidget *widget, Qt::MouseButton button)
{
    const QPoint middle = widget->rect().center();
    press(widget, middle, button);
    release(widget, middle, button);
}

void hand::drag(QWidget *widget, QPoint from, QPoint to, Qt::MouseButton button, int moves)
{
    press(widget, from, button);
    for (int i = 1; i <= moves; ++i)
        move(widget, from + (to - from) * i / moves, button);
    release(widget, to, button);
}

void hand::turnWheel(QWidget *widget, int notches)
{
    const QPointF middle = widget->rect().center();
    for (int i = 0; i < std::abs(notches); ++i) {
        QWheelEvent event(middle, widget->mapToGlobal(middle.toPoint()), QPoint(),
                          QPoint(0, notches > 0 ? notch : -notch), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(widget, &event);
    }
}

void hand::turnDial(QDial *dial, double start, double degrees, int moves)
{
    press(dial, onRim(dial, start));
    for (int i = 1; i <= moves; ++i)
        move(dial, onRim(dial, start + degrees * i / moves), Qt::LeftButton);
    release(dial, onRim(dial, start + degrees));
}
