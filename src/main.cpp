// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibility/accessibility.h"
#include "base/process.h"
#include "base/screen_scale.h"
#include "mainwindow.h"
#include "settingsdata.h"
#ifdef VELKOR_EXTRAS
#include "extras/extras.h"
#endif

#include <QApplication>

/// Runs the viewer: one window, one event loop. Returns the loop's exit code.
int qMain(int argc, char **argv)
{
    process::guardStandardStreams();
    // The xcb platform loads OpenGL for a window of any kind, which costs a third of the start and
    // half of the memory, and nothing here draws with it. Somebody who set the variable meant it.
    constexpr auto integration = "QT_XCB_GL_INTEGRATION";
    const bool isOurs = !qEnvironmentVariableIsSet(integration);
    if (isOurs)
        qputenv(integration, "none");

    const auto application = screen_scale::makeApplication(argc, argv);
    // The desktop entry of this window: a Wayland compositor takes name and icon from there.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.velkor.Velkor"));
    process::closeWindowsOnSignals(application.get());
    MainWindow window;
    window.settings()->curAppPointer = application.get();
    accessibility::attach(window);
#ifdef VELKOR_EXTRAS
    extras::attach(window);
#endif
    window.show();
    window.reportSizes();
    // By now the platform has read it, and the browser that shows the manual is to have its own.
    if (isOurs)
        qunsetenv(integration);
    return QApplication::exec();
}

// Where the toolkit brings an entry of its own (windowed programs on Windows) it calls qMain
// itself.
#ifndef QT_NEEDS_QMAIN
int main(int argc, char **argv)
{
    return qMain(argc, argv);
}
#endif
