// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "failing.h"

#include "room.h"

#include <QMap>

#include <cstdio>

namespace {

constexpr int shareUndisturbed = 20; ///< one run in so many may make too few calls

/// The kind of call that the library reports as failed: "open", "read" and so on.
QByteArray kindIn(const QByteArray &said)
{
    const auto from = said.indexOf("failed call ");
    return from < 0 ? QByteArray() : said.mid(said.indexOf(": ", from) + 2).split(' ').first();
}

/// True when calls did fail: a library that is not loaded, or that wraps a name which the system
/// does not use, makes none fail. A few runs may make fewer calls than the first one; when only
/// every n-th call is tried, rare kinds may be missing.
bool everythingFailed(const QMap<QByteArray, int> &kinds, int runs, int every)
{
    QByteArrayList wanted{ "open", "read", "stat" };
    if (every == 1)
        wanted += { "write", "rename", "fsync" };
    QByteArrayList missing;
    for (const QByteArray &kind : wanted)
        if (!kinds.contains(kind))
            missing.append(kind);
    const int undisturbed = kinds.value(QByteArray());
    const bool enough = undisturbed * shareUndisturbed <= runs;
    if (!missing.isEmpty())
        std::printf("none failed of: %s\n", missing.join(' ').constData());
    if (!enough)
        std::printf("no call failed in %d of %d runs\n", undisturbed, runs);
    return missing.isEmpty() && enough;
}

} // namespace

bool failCalls(int every)
{
    Room room(QStringLiteral(VELKOR_PROGRAM), QStringLiteral(VELKOR_FAILCALLS));
    const Room::Outcome undisturbed = room.run();
    const int total = room.callsOfLastRun();
    const QByteArray written = room.settings();
    if (undisturbed.crashed || undisturbed.code != 0 || total < 1 || written == room.oldSettings()
        || !Room::flawIn(written).isEmpty()) {
        std::printf("a run that nothing disturbs does not save: code %d, %d calls, %s\n%s\n",
                    undisturbed.code, total, qPrintable(Room::flawIn(written)),
                    undisturbed.said.constData());
        return false;
    }

    int runs = 0;
    int failures = 0;
    int keptOld = 0;
    QMap<QByteArray, int> kinds;
    for (int call = 1; call <= total; call += every) {
        room.tidy();
        const Room::Outcome outcome = room.run(call);
        ++runs;
        ++kinds[kindIn(outcome.said)];
        const QByteArray left = room.settings();
        const bool old = left == room.oldSettings();
        keptOld += old ? 1 : 0;
        const QString flaw = old ? QString() : Room::flawIn(left);
        if (outcome.ended && !outcome.crashed && outcome.code == 0 && flaw.isEmpty())
            continue;
        ++failures;
        std::printf("call %d of %d: %s, code %d, settings %s\n%s\n", call, total,
                    !outcome.ended        ? "HANGS"
                        : outcome.crashed ? "CRASHES"
                                          : "ended",
                    outcome.code, flaw.isEmpty() ? "whole" : qPrintable(flaw),
                    outcome.said.right(1500).constData());
        std::fflush(stdout);
    }
    QByteArray shares;
    for (auto kind = kinds.cbegin(); kind != kinds.cend(); ++kind)
        shares += ", " + QByteArray::number(kind.value()) + ' '
            + (kind.key().isEmpty() ? "not reached" : kind.key());
    std::printf("%d runs with a failing call of %d%s: %d failures, %d times the old settings\n",
                runs, total, shares.constData(), failures, keptOld);
    return failures == 0 && everythingFailed(kinds, runs, every);
}
