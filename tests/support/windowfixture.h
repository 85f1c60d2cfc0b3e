// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mainwindowprobe.h"
#include "tracebuilder.h"

#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// A real window on real files: a folder for traces that lasts as long as the fixture, no settings
/// file left over from another test, Qt's own dialogs, and the window at its default 800 x 500.
class WindowFixture
{
public:
    WindowFixture();
    ~WindowFixture();
    Q_DISABLE_COPY(WindowFixture)

    /// Opens the window; settings written with \c writeSettings before are the previous run's. A
    /// window that is already open is closed and destroyed first.
    MainWindow &open();
    /// Closes the window as a user would, which saves the settings, and destroys it.
    void close();
    MainWindow &window() const;
    const MainWindowProbe &probe() const;

    /// Path of \a name in the folder for traces; the file need not exist.
    QString path(const QString &name) const;
    /// Writes \a builder's record to \a name in the folder for traces and returns its path.
    QString trace(const QString &name, const TraceBuilder &builder) const;
    /// The window's settings file, which is beside the test program.
    static QString settingsFile();
    static void writeSettings(const QByteArray &bytes);
    /// Settings of a previous run that had \a traces open from slot 1 on, with master \a master.
    static void writePreviousRun(const QStringList &traces, int master = 0);
    /// Removes settings file and backup.
    static void removeSettings();
    /// Runs pending events and deferred deletes: the old item of a raised series exists until then.
    static void settle();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<MainWindowProbe> m_probe;
};
