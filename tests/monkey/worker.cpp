// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "worker.h"

#include "footprint.h"
#include "invariants.h"
#include "player.h"
#include "watchdog.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr int roundLength = 500;
constexpr int warmUpRounds = 12;
// Caches of fonts, pixmaps and glyphs fill for some rounds, and backing stores are as large as the
// window last was: up to 20 MiB, up and down.
constexpr qint64 heapGrowth = 32 << 20;
constexpr qint64 residentGrowth = 64 << 20;
constexpr int descriptorGrowth = 2;

/// Growth of \a now over the largest of \a warmUp.
QStringList grown(const Footprint &now, const QVector<Footprint> &warmUp)
{
    QStringList broken;
    const auto compare = [&](const char *what, auto member, auto limit) {
        auto largest = warmUp.first().*member;
        for (const Footprint &footprint : warmUp)
            largest = std::max(largest, footprint.*member);
        if (now.*member > largest + limit)
            broken.append(QStringLiteral("%1 grew from %2 to %3")
                              .arg(QLatin1String(what))
                              .arg(largest)
                              .arg(now.*member));
    };
    compare("heap", &Footprint::heap, heapGrowth);
    compare("resident memory", &Footprint::resident, residentGrowth);
    compare("descriptors", &Footprint::descriptors, descriptorGrowth);
    return broken;
}

void print(int round, const Footprint &now)
{
    const auto mebibytes = [](qint64 bytes) { return static_cast<double>(bytes) / (1 << 20); };
    std::printf("round %d: heap %.1f MiB, resident %.1f MiB, %d descriptors\n", round,
                mebibytes(now.heap), mebibytes(now.resident), now.descriptors);
    std::fflush(stdout);
}

} // namespace

QStringList brokenBy(const Script &script, const std::function<void(int)> &progress)
{
    Player player;
    Watchdog watchdog;
    for (int i = 0; i < script.size(); ++i) {
        progress(i);
        watchdog.begin(script[i], i);
        player.play(script[i]);
        watchdog.rest();
        const QStringList broken = brokenInvariants(player.window());
        if (!broken.isEmpty())
            return broken
                + QStringList(QStringLiteral("after event %1: %2")
                                  .arg(i)
                                  .arg(QString::fromLatin1(lineOf(script[i]))));
    }
    return {};
}

QStringList brokenInRounds(unsigned seed, int wanted)
{
    Player player;
    Watchdog watchdog;
    QVector<Footprint> warmUp;
    for (int round = 0; round < warmUpRounds + wanted; ++round) {
        const Script script = randomScript(seed + static_cast<unsigned>(round), roundLength);
        for (int i = 0; i < script.size(); ++i) {
            watchdog.begin(script[i], round * roundLength + i);
            player.play(script[i]);
        }
        watchdog.rest();
        player.reset();
        WindowFixture::settle();
        const Footprint now = Footprint::taken();
        if (round < warmUpRounds)
            warmUp.append(now);
        if (round % 10 == 9)
            print(round, now);
        const QStringList broken = brokenInvariants(player.window()) + grown(now, warmUp);
        if (!broken.isEmpty())
            return broken + QStringList(QStringLiteral("in round %1").arg(round));
    }
    return {};
}
