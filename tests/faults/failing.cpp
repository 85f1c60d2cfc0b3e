// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "failing.h"

#include "viewerrun.h"

#include <QMap>

#include <cstdio>

namespace {

constexpr int shareUndisturbed = 20; ///< at most one run in this many may make no call fail

/// The kind of call that the library reports as failed: "open", "read" and so on.
QByteArray kindIn(const QByteArray &output)
{
    const auto from = output.indexOf("failed call ");
    return from < 0 ? QByteArray() : output.mid(output.indexOf(": ", from) + 2).split(' ').first();
}

/// True when calls of all kinds failed. Detects a library that is not loaded or that wraps a name
/// which the system does not use. \a every is as for failCalls; above 1 rare kinds may be missing.
/// A few runs may make fewer calls than the first one.
bool everythingFailed(const QMap<QByteArray, int> &kinds, int runs, int every)
{
    QByteArrayList missing{ "open", "read", "stat" };
    if (every == 1)
        missing += { "write", "rename", "fsync" };
    for (const QByteArray &kind : kinds.keys())
        missing.removeAll(kind);
    const int undisturbed = kinds.value(QByteArray());
    if (missing.isEmpty() && undisturbed * shareUndisturbed <= runs)
        return true;
    std::printf("no call failed in %d of %d runs; none ever of: %s\n", undisturbed, runs,
                missing.join(' ').constData());
    return false;
}

/// What is wrong with \a outcome or with the settings that it left in \a viewer; empty if nothing
/// is.
QString flawOf(const ViewerRun &viewer, const ViewerRun::Outcome &outcome)
{
    if (!outcome.ended)
        return QStringLiteral("hangs");
    if (outcome.crashed || outcome.code != 0)
        return QStringLiteral("crashes or ends with code %1").arg(outcome.code);
    const QByteArray left = viewer.settings();
    return left == viewer.oldSettings() ? QString() : ViewerRun::flawIn(left);
}

} // namespace

bool failCalls(int every)
{
    ViewerRun viewer;
    const QString flaw = flawOf(viewer, viewer.run());
    const int total = viewer.callsOfLastRun();
    if (!flaw.isEmpty() || total < 1 || viewer.settings() == viewer.oldSettings()) {
        std::printf("a run without a failing call does not save: %s\n", qPrintable(flaw));
        return false;
    }

    int runs = 0;
    int failures = 0;
    int keptOld = 0;
    QMap<QByteArray, int> kinds;
    for (int call = 1; call <= total; call += every) {
        viewer.tidy();
        const ViewerRun::Outcome outcome = viewer.run(call);
        ++runs;
        ++kinds[kindIn(outcome.output)];
        keptOld += viewer.settings() == viewer.oldSettings() ? 1 : 0;
        const QString found = flawOf(viewer, outcome);
        if (found.isEmpty())
            continue;
        ++failures;
        std::printf("call %d of %d: %s\n%s\n", call, total, qPrintable(found),
                    outcome.output.right(1500).constData());
        std::fflush(stdout);
    }
    std::printf("%d runs with a failing call of %d", runs, total);
    for (auto kind = kinds.cbegin(); kind != kinds.cend(); ++kind)
        std::printf(", %d %s", kind.value(),
                    kind.key().isEmpty() ? "not reached" : kind.key().constData());
    std::printf(": %d failures, %d times the old settings\n", failures, keptOld);
    return failures == 0 && everythingFailed(kinds, runs, every);
}
