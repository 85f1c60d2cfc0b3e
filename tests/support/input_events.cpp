// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "input_events.h"

#include "mainwindowprobe.h"

#include <QApplication>
#include <QDial>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QtMath>

namespace {

constexpr int eighthsPerNotch = 120;
constexpr double leftEdge = 270; ///< degrees clockwise from the top

QPoint onRim(const QDial *dial, double degrees)
{
    const double radius = qMin(dial->width(), dial->height()) * 0.4;
    const double radians = qDegreesToRadians(degrees);
    return (QPointF(dial->rect().center()) + radius * QPointF(qSin(radians), -qCos(radians)))
        .toPoint();
}

} // namespace

namespace input {

bool mouse(QWidget *widget, QEvent::Type type, QPoint position, Qt::MouseButton button,
           Qt::MouseButtons buttons)
{
    QMouseEvent event(type, position, widget->mapToGlobal(position), button, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

void press(QWidget *widget, QPoint position, Qt::MouseButton button)
{
    mouse(widget, QEvent::MouseButtonPress, position, button, button);
}

void move(QWidget *widget, QPoint position, Qt::MouseButtons buttons)
{
    mouse(widget, QEvent::MouseMove, position, Qt::NoButton, buttons);
}

void release(QWidget *widget, QPoint position, Qt::MouseButton button)
{
    mouse(widget, QEvent::MouseButtonRelease, position, button, Qt::NoButton);
}

void click(QWidget *widget, Qt::MouseButton button)
{
    clickAt(widget, widget->rect().center(), button);
}

void clickAt(QWidget *widget, QPoint position, Qt::MouseButton button)
{
    press(widget, position, button);
    release(widget, position, button);
}

void drag(QWidget *widget, QPoint from, QPoint to, Qt::MouseButton button, int moves)
{
    press(widget, from, button);
    for (int i = 1; i <= moves; ++i)
        move(widget, from + (to - from) * i / moves, button);
    release(widget, to, button);
}

void wheel(QWidget *widget, int delta)
{
    const QPoint middle = widget->rect().center();
    QWheelEvent event(middle, widget->mapToGlobal(middle), QPoint(), QPoint(0, delta), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

void turnWheel(QWidget *widget, int notches)
{
    for (int i = 0; i < qAbs(notches); ++i)
        wheel(widget, notches > 0 ? eighthsPerNotch : -eighthsPerNotch);
}

void turnDial(QDial *dial, double start, double degrees, int moves)
{
    press(dial, onRim(dial, start));
    for (int i = 1; i <= moves; ++i)
        move(dial, onRim(dial, start + degrees * i / moves), Qt::LeftButton);
    release(dial, onRim(dial, start + degrees));
}

void turn(QDial *dial, int degrees)
{
    constexpr int degreesPerMove = 3;
    turnDial(dial, leftEdge, degrees, qMax(1, qAbs(degrees) / degreesPerMove));
}

QPoint pixelOf(const MainWindowProbe &probe, int count)
{
    QtCharts::QChart *chart = probe.Plot_Chart();
    return chart->mapToParent(chart->mapToPosition(QPointF(count, 0))).toPoint();
}

int countAt(const MainWindowProbe &probe, int x)
{
    const QRectF plot = probe.Plot_Chart()->plotArea();
    const double share = (x - probe.Plot_Chart()->pos().x() - plot.left()) / plot.width();
    const QtCharts::QValueAxis *axis = probe.cust_axisX();
    return static_cast<int>(axis->min() + share * (axis->max() - axis->min()));
}

} // namespace input
