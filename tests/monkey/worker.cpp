// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "worker.h"

#include "footprint.h"
#include "invariants.h"
#include "player.h"
#include "watchdog.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int lapLength = 500;
constexpr int warmUpLaps = 12;
// Caches of fonts, pictures and glyphs grow for a while whatever one does, and the pictures that
// a window keeps of itself are as large as it last was: that is up to 20 MiB, up and down.
constexpr qint64 heapGrowth = 32 << 20;
constexpr qint64 residentGrowth = 64 << 20;
constexpr int descriptorGrowth = 2;

int failed(const QStringList &broken)
{
    for (const QString &line : broken)
        std::printf("broken: %s\n", qUtf8Printable(line));
    std::fflush(stdout);
    return 1;
}

/// Says nothing of what the window notes for support, nor of what the offscreen platform cannot do;
/// everything else is passed on.
void quietMessages(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    const bool platform = text.startsWith(QLatin1String("This plugin does not support"));
    if (type != QtDebugMsg && type != QtInfoMsg && !platform)
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    if (type == QtFatalMsg)
        std::abort();
}

/// Growth of \a now over the largest of \a warmUp.
QStringList grown(const Footprint &now, const QVector<Footprint> &warmUp)
{
    const auto most = [&](auto member) {
        auto largest = warmUp.first().*member;
        for (const Footprint &footprint : warmUp)
            largest = std::max(largest, footprint.*member);
        return largest;
    };
    QStringList broken;
    const auto compare = [&](const char *what, auto member, auto bound) {
        if (now.*member > most(member) + bound)
            broken.append(QStringLiteral("%1 grew from %2 to %3")
                              .arg(QLatin1String(what))
                              .arg(most(member))
                              .arg(now.*member));
    };
    compare("heap", &Footprint::heap, heapGrowth);
    compare("resident memory", &Footprint::resident, residentGrowth);
    compare("descriptors", &Footprint::descriptors, descriptorGrowth);
    return broken;
}

void tell(int lap, const Footprint &now)
{
    const auto mebibytes = [](qint64 bytes) { return static_cast<double>(bytes) / (1 << 20); };
    std::printf("lap %d: heap %.1f MiB, resident %.1f MiB, %d descriptors\n", lap,
                mebibytes(now.heap), mebibytes(now.resident), now.descriptors);
    std::fflush(stdout);
}

/// One lap after the other at one player: those that fill the caches, then \a wanted more, after
/// each of which it must not hold more of the machine than then.
QStringList laps(unsigned seed, int wanted)
{
    QElapsedTimer clock;
    clock.start();
    Player player;
    Watchdog watchdog(Watchdog::usualLimit());
    QVector<Footprint> warmUp;
    int lap = 0;
    for (; lap < warmUpLaps + wanted; ++lap) {
        const Script script = dealtScript(seed + static_cast<unsigned>(lap), lapLength);
        for (int i = 0; i < script.size(); ++i) {
            watchdog.begin(script[i], lap * lapLength + i);
            player.play(script[i]);
        }
        watchdog.rest();
        player.comeToRest();
        QStringList broken = brokenInvariants(player.fixture().window());
        const Footprint now = Footprint::taken();
        if (lap < warmUpLaps)
            warmUp.append(now);
        if (lap % 10 == 9)
            tell(lap, now);
        broken += grown(now, warmUp);
        if (!broken.isEmpty())
            return broken + QStringList(QStringLiteral("in lap %1").arg(lap));
    }
    std::printf("%d events in %lld s\n", lap * lapLength,
                static_cast<long long>(clock.elapsed() / 1000));
    return {};
}

} // namespace

QStringList playedThrough(const Script &script, const std::function<void(int)> &progress)
{
    Player player;
    Watchdog watchdog(Watchdog::usualLimit());
    for (int i = 0; i < script.size(); ++i) {
        progress(i);
        watchdog.begin(script[i], i);
        player.play(script[i]);
        watchdog.rest();
        const QStringList broken = brokenInvariants(player.fixture().window());
        if (broken.isEmpty())
            continue;
        return broken
            + QStringList(QStringLiteral("after event %1: %2")
                              .arg(i)
                              .arg(QString::fromLatin1(lineOf(script[i]))));
    }
    if (watchdog.longest() > watchdog.usualLimit() / 4)
        std::printf("slowest: %lld ms on %s\n", static_cast<long long>(watchdog.longest().count()),
                    watchdog.slowest().constData());
    return {};
}

int runWorker(const QStringList &arguments)
{
    qInstallMessageHandler(quietMessages);
    QCommandLineParser parser;
    for (const char *name : { "seed", "events", "script", "laps", "progress" })
        parser.addOption({ QLatin1String(name), QString(), QStringLiteral("value") });
    parser.addOption({ QStringLiteral("worker"), QString() });
    parser.process(arguments);
    const auto numberOf
        = [&parser](const char *name) { return parser.value(QLatin1String(name)).toInt(); };
    const auto seed = static_cast<unsigned>(numberOf("seed"));
    if (parser.isSet(QStringLiteral("laps"))) {
        const QStringList broken = laps(seed, numberOf("laps"));
        return broken.isEmpty() ? 0 : failed(broken);
    }

    Script script;
    if (parser.isSet(QStringLiteral("script"))) {
        QFile file(parser.value(QStringLiteral("script")));
        QString error = QStringLiteral("cannot be read");
        if (file.open(QIODevice::ReadOnly))
            script = parsedScript(file.readAll(), &error);
        if (script.isEmpty())
            return failed({ file.fileName() + QLatin1Char(' ') + error });
    } else {
        script = dealtScript(seed, numberOf("events"));
    }

    QFile progress(parser.value(QStringLiteral("progress")));
    const bool notes = progress.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    const QStringList broken = playedThrough(script, [&](int number) {
        if (notes) {
            progress.seek(0);
            progress.write(QByteArray::number(number).rightJustified(10));
        }
    });
    return broken.isEmpty() ? 0 : failed(broken);
}
