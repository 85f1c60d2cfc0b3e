// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runs.h"

#include "invariants.h"
#include "player.h"
#include "watchdog.h"

#include <QDir>

#include <algorithm>
#include <cstdio>
#include <malloc.h>

#ifdef VELKOR_SANITIZED_HEAP
// Declared here because only one of the compilers has its header.
extern "C" size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace {

#ifdef VELKOR_SANITIZED_HEAP
constexpr std::chrono::seconds workLimit(3);
#else
constexpr std::chrono::seconds workLimit(1);
#endif
constexpr std::chrono::seconds waitLimit(60);

constexpr int roundLength = 500;
constexpr int warmUpRounds = 12;
// Caches of fonts, pixmaps and glyphs grow for some rounds, and the backing store follows the size
// of the window: the heap varies by up to 20 MiB.
constexpr double heapGrowth = 32.0; ///< MiB
constexpr int descriptorGrowth = 2;

/// Memory that was allocated and not freed, in MiB.
double heapInUse()
{
#ifdef VELKOR_SANITIZED_HEAP
    const size_t bytes = __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 info = mallinfo2();
    const size_t bytes = info.uordblks + info.hblkhd;
#endif
    return static_cast<double>(bytes) / (1 << 20);
}

/// Open files, sockets and pipes.
int descriptorsInUse()
{
    const QDir open(QStringLiteral("/proc/self/fd"));
    return static_cast<int>(
        open.entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size());
}

void playInTime(Player &player, const Event &event)
{
    const Watchdog watchdog(workLimit, waitLimit);
    player.play(event);
}

} // namespace

QStringList brokenBy(const Script &script, int &progress)
{
    Player player;
    for (progress = 0; progress < script.size(); ++progress) {
        playInTime(player, script[progress]);
        QStringList broken = brokenInvariants(player.window());
        if (!broken.isEmpty())
            return broken;
    }
    return {};
}

QStringList brokenInRounds(unsigned seed, int wanted)
{
    Player player;
    double mostHeap = 0.0;
    int mostDescriptors = 0;
    for (int round = 0; round < warmUpRounds + wanted; ++round) {
        const Script script = randomScript(seed + static_cast<unsigned>(round), roundLength);
        for (const Event &event : script)
            playInTime(player, event);
        player.reset();
        WindowFixture::settle();
        const double heap = heapInUse();
        const int descriptors = descriptorsInUse();
        if (round < warmUpRounds) {
            mostHeap = std::max(mostHeap, heap);
            mostDescriptors = std::max(mostDescriptors, descriptors);
        }
        if (round % 10 == 9)
            std::printf("round %d: heap %.1f MiB, %d descriptors\n", round, heap, descriptors);
        QStringList broken = brokenInvariants(player.window());
        if (heap > mostHeap + heapGrowth)
            broken.append(QStringLiteral("heap grew from %1 to %2 MiB").arg(mostHeap).arg(heap));
        if (descriptors > mostDescriptors + descriptorGrowth)
            broken.append(
                QStringLiteral("%1 descriptors became %2").arg(mostDescriptors).arg(descriptors));
        if (!broken.isEmpty())
            return broken + QStringList(QStringLiteral("in round %1").arg(round));
    }
    return {};
}
