// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "inputevents.h"

#include "mainwindowprobe.h"

#include <QApplication>
#include <QDial>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QtMath>

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

void wheel(QWidget *widget, int delta)
{
    const QPoint middle = widget->rect().center();
    QWheelEvent event(middle, widget->mapToGlobal(middle), QPoint(), QPoint(0, delta), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

void turn(QDial *dial, int degrees)
{
    const auto pointAt = [dial](int angle) {
        const double radius = qMin(dial->width(), dial->height()) * 0.4;
        const double radians = qDegreesToRadians(180.0 + angle);
        return (QPointF(dial->rect().center()) + radius * QPointF(qCos(radians), qSin(radians)))
            .toPoint();
    };
    press(dial, pointAt(0), Qt::LeftButton);
    const int stride = degrees < 0 ? -3 : 3;
    for (int angle = stride; qAbs(angle) <= qAbs(degrees); angle += stride)
        move(dial, pointAt(angle), Qt::LeftButton);
    release(dial, pointAt(degrees), Qt::LeftButton);
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
