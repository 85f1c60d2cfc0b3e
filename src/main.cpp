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
    // The xcb plugin loads OpenGL for every window, which takes a third of the start-up time and
    // half of the memory; this program does not use it. A value set by the user is kept.
    constexpr auto integration = "QT_XCB_GL_INTEGRATION";
    const bool isOurs = !qEnvironmentVariableIsSet(integration);
    if (isOurs)
        qputenv(integration, "none");

    const auto application = screen_scale::makeApplication(argc, argv);
    // A Wayland compositor takes name and icon of the window from this desktop entry.
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
    // The plugin has read it by now, and a browser that opens a link must not inherit it.
    if (isOurs)
        qunsetenv(integration);
    return QApplication::exec();
}

// On Windows, qtmain has the entry point of a windowed program and calls qMain.
#ifndef QT_NEEDS_QMAIN
int main(int argc, char **argv)
{
    return qMain(argc, argv);
}
#endif
