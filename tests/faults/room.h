// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

/// Runs the real viewer in a program folder of its own, with six traces and the settings of a
/// previous run that had them open. The viewer runs offscreen, loads the traces and is closed.
class Room
{
public:
    /// \a program is the viewer, \a library the preloaded one.
    Room(const QString &program, const QString &library);

    /// Restores the settings of the previous run and removes all other files that a run left.
    void tidy();

    struct Outcome
    {
        bool ended = false; ///< within the time that a run may take
        bool crashed = false;
        int code = 0; ///< of the viewer
        QByteArray said;
    };
    /// A whole run; \a failing is the number of the call that fails, 0 for none.
    Outcome run(int failing = 0);
    /// The end of a run that was begun with \c prepare.
    static Outcome endOf(QProcess &viewer);

    /// The command that starts the viewer, for a run under other rights or limits; it gets the
    /// viewer's path as its last argument. Empty again, the viewer is started directly.
    void startBy(const QStringList &command);

    /// The process before its start, for further changes.
    void prepare(QProcess &viewer, int failing = 0) const;

    /// How many calls the last run had that could have failed; -1 when it did not say.
    int callsOfLastRun() const;

    QString path(const QString &name) const;
    QString settingsFile() const;
    /// What the former run left.
    QByteArray oldSettings() const;
    /// What lies there now; null when there is no such file.
    QByteArray settings() const;
    /// Files in the program folder that no finished run leaves there.
    QStringList strays() const;
    /// Empty when \a settings are complete settings that some closing window wrote; else why not.
    static QString flawIn(const QByteArray &settings);

private:
    QTemporaryDir m_folder;
    QStringList m_command;
    QByteArray m_old;
};
