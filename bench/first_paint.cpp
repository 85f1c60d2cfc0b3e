// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later

/// \file
/// Linked beside a program's own main, reports when its first window is painted: the monotonic
/// clock in nanoseconds, on the standard output. Then it ends the program, closing nothing.

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <ctime>

namespace {

/// Sees every event of the program until the one that it waits for.
class FirstPaint : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType()
            && static_cast<QWidget *>(watched)->window()->isVisible()) {
            QCoreApplication::instance()->removeEventFilter(this);
            // All widgets of the window are painted together, before the event loop goes on.
            QTimer::singleShot(0, this, &FirstPaint::report);
        }
        return false;
    }

private:
    void report()
    {
        // Painted is what the display has got.
        QGuiApplication::sync();
        timespec moment = {};
        clock_gettime(CLOCK_MONOTONIC, &moment);
        std::printf("%lld\n", moment.tv_sec * 1000000000LL + moment.tv_nsec);
        QCoreApplication::quit();
    }
};

void watch()
{
    auto *application = QCoreApplication::instance();
    application->installEventFilter(new FirstPaint(application));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(watch)
