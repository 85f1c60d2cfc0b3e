// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "event.h"

#include <QStringList>
#include <QTemporaryDir>

/// Runs the monkey's worker, each time in a new process with a program folder of its own, and
/// makes the script of a run that failed as short as it can.
class Supervisor
{
public:
    /// Scripts of failures are put into \a keep; each is tried shorter at most \a tries times.
    Supervisor(const QString &keep, int tries);

    /// True when all was well, which is said in a line on standard output. So is a failure, with
    /// its seed, what the worker said and where the script lies.
    bool playSeed(int seed, int events);
    bool playScript(const QString &file);
    /// Plays \a laps of events in one process, with what it holds of the machine watched.
    bool watchLaps(int seed, int laps);

private:
    struct Outcome
    {
        QByteArray verdict; ///< what went wrong, without numbers; empty when nothing did
        QByteArray output;
        int event = 0; ///< the one that was being played
        double seconds = 0;
    };

    Outcome run(const QStringList &arguments) const;
    Outcome runScript(const Script &script) const;
    QString program() const;
    void tell(const Outcome &outcome) const;

    QTemporaryDir m_folder;
    QString m_keep;
    int m_tries;
};
