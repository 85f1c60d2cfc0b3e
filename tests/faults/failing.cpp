// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "failing.h"

#include "room.h"

#include <QMap>

#include <cstdio>

namespace {

/// "open", "read" and so on: the kind of call that the library says it let fail.
QByteArray kindIn(const QByteArray &said)
{
    const auto from = said.indexOf("failed call ");
    return from < 0 ? QByteArray() : said.mid(said.indexOf(": ", from) + 2).split(' ').first();
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
    return failures == 0;
}
