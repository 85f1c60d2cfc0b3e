// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "event.h"

#include <QStringList>
#include <QTemporaryDir>

/// Runs the worker, each time in a new process with a program folder of its own, and shortens the
/// script of a run that failed.
class Supervisor
{
public:
    /// Scripts of failures are saved in \a keep.
    explicit Supervisor(const QString &keep);

    /// Plays \a events random events. True when all invariants held. Prints a line, or the failure
    /// with the seed, the worker's output and the path of the shortened script.
    bool playSeed(int seed, int events) const;
    bool playScript(const QString &file) const;
    /// Plays \a rounds of events in one process and checks its growth.
    bool playRounds(int seed, int rounds) const;

private:
    struct Outcome
    {
        QByteArray verdict; ///< what failed, without numbers; empty for success
        QByteArray output;
        int event = 0; ///< the one that was being played
        double seconds = 0;
    };

    Outcome run(const QStringList &arguments) const;
    Outcome runScript(const Script &script) const;
    void save(const Script &script, int seed, const QByteArray &verdict) const;
    QString program() const;

    QTemporaryDir m_folder;
    QString m_keep;
};
