// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The monkey. Started by hand or by a script it only looks on: each run has a process of its own,
// so that one that ends badly is told of, repeated and made shorter.
#include "supervisor.h"
#include "worker.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>
#include <cstring>

namespace {

/// "3" or "1..100"; false when \a text is neither.
bool readRange(const QString &text, int &first, int &last)
{
    bool good = false;
    bool alsoGood = false;
    first = text.section(QLatin1String(".."), 0, 0).toInt(&good);
    last = text.section(QLatin1String(".."), -1).toInt(&alsoGood);
    return good && alsoGood && first >= 0 && first <= last;
}

int supervise(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Plays random events at the viewer's window and checks what must always hold."));
    parser.addHelpOption();
    const QCommandLineOption seeds(QStringLiteral("seeds"), QStringLiteral("Seeds to play."),
                                   QStringLiteral("A..B"), QStringLiteral("1..3"));
    const QCommandLineOption events(QStringLiteral("events"), QStringLiteral("Events per seed."),
                                    QStringLiteral("N"), QStringLiteral("1000"));
    const QCommandLineOption script(QStringLiteral("script"),
                                    QStringLiteral("Plays the script in FILE instead."),
                                    QStringLiteral("FILE"));
    const QCommandLineOption watch(
        QStringLiteral("watch"),
        QStringLiteral("Plays so many times 500 events in one window, with memory and descriptors "
                       "watched."),
        QStringLiteral("N"));
    const QCommandLineOption keep(QStringLiteral("keep"),
                                  QStringLiteral("Where the script of a failure is put."),
                                  QStringLiteral("FOLDER"), QStringLiteral("."));
    const QCommandLineOption tries(QStringLiteral("tries"),
                                   QStringLiteral("How often a failing script is tried shorter."),
                                   QStringLiteral("N"), QStringLiteral("400"));
    parser.addOptions({ seeds, events, script, watch, keep, tries });
    parser.process(application);

    int first = 0;
    int last = 0;
    if (!readRange(parser.value(seeds), first, last)) {
        std::fprintf(stderr, "the seeds are a number or two: 7 or 1..100\n");
        return 2;
    }
    Supervisor supervisor(parser.value(keep), parser.value(tries).toInt());
    if (parser.isSet(script))
        return supervisor.playScript(parser.value(script)) ? 0 : 1;
    if (parser.isSet(watch))
        return supervisor.watchLaps(first, parser.value(watch).toInt()) ? 0 : 1;
    bool well = true;
    for (int seed = first; seed <= last; ++seed)
        well = supervisor.playSeed(seed, parser.value(events).toInt()) && well;
    return well ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1 && std::strcmp(argv[1], "--worker") == 0) {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        const QApplication application(argc, argv);
        return runWorker(QCoreApplication::arguments());
    }
    const QCoreApplication application(argc, argv);
    return supervise(application);
}
