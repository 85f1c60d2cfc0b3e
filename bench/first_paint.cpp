// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later

/// \file
/// Linked beside a program's own main. When its first window is painted, prints the milliseconds
/// since the moment in VELKOR_STARTED, in seconds since 1970, and the peak memory in MB. Then it
/// ends the program, closing nothing.

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <cstdio>
#include <sys/resource.h>

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
        // The window is painted when the display has received it.
        QGuiApplication::sync();
        const std::chrono::duration<double> now
            = std::chrono::system_clock::now().time_since_epoch();
        rusage usage = {};
        getrusage(RUSAGE_SELF, &usage);
        std::printf("%.1f %.1f\n", (now.count() - qgetenv("VELKOR_STARTED").toDouble()) * 1000.0,
                    static_cast<double>(usage.ru_maxrss) / 1024.0);
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
