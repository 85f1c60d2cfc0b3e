// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

/// Runs the real viewer in a program folder of its own, with six traces and the settings of a
/// previous run that had them open. The viewer runs offscreen, loads the traces and is closed.
class ViewerRun
{
public:
    ViewerRun();

    /// Restores the settings of the previous run and removes all other files that a run left.
    void tidy();

    struct Outcome
    {
        bool ended = false; ///< within the time that a run may take
        bool crashed = false;
        int code = 0; ///< of the viewer
        QByteArray output;
    };
    /// A whole run; \a failing is the number of the system call that fails, 0 for none.
    Outcome run(int failing = 0);

    /// Sets the command that starts the viewer, for a run under other rights or limits. Its last
    /// argument is the viewer's path. An empty command starts the viewer directly.
    void startBy(const QStringList &command);
    /// Sets a variable of the viewer's environment for all further runs.
    void setVariable(const char *name, const QString &value);

    /// Number of calls of the last run that could have failed; -1 without a report.
    int callsOfLastRun() const;

    /// Path of \a name in the program folder.
    QString path(const QString &name = QString()) const;
    QString settingsFile() const;
    /// Settings of the previous run.
    QByteArray oldSettings() const;
    /// The current settings; null when there is no such file.
    QByteArray settings() const;
    /// Files in the program folder that no finished run leaves there.
    QStringList strays() const;
    /// Why \a settings are not the complete settings of a closing window; empty if they are.
    static QString flawIn(const QByteArray &settings);

private:
    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    QStringList m_command;
    QByteArray m_old;
};
