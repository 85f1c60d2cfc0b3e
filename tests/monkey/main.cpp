// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Plays random events at the viewer's window. Each run is a process of its own, so that a crash can
// be reported, repeated and shortened.
#include "supervisor.h"
#include "worker.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QRandomGenerator>

#include <cstdio>
#include <cstring>

namespace {

const QString seedsOption = QStringLiteral("seeds");
const QString newSeedsOption = QStringLiteral("new-seeds");
const QString eventsOption = QStringLiteral("events");
const QString scriptOption = QStringLiteral("script");
const QString roundsOption = QStringLiteral("rounds");
const QString keepOption = QStringLiteral("keep");
const QString progressOption = QStringLiteral("progress");

void parse(QCommandLineParser &parser, const QStringList &arguments)
{
    parser.setApplicationDescription(QStringLiteral(
        "Plays random events at the viewer's window and checks its invariants after each."));
    parser.addHelpOption();
    parser.addOptions({
        { seedsOption, QStringLiteral("Seeds to play."), QStringLiteral("A..B"),
          QStringLiteral("1..3") },
        { newSeedsOption, QStringLiteral("Plays N new seeds instead."), QStringLiteral("N") },
        { eventsOption, QStringLiteral("Events per seed."), QStringLiteral("N"),
          QStringLiteral("1000") },
        { scriptOption, QStringLiteral("Plays this script instead."), QStringLiteral("FILE") },
        { roundsOption,
          QStringLiteral("Plays N rounds of 500 events in one window and checks memory and "
                         "descriptors after each."),
          QStringLiteral("N") },
        { keepOption, QStringLiteral("Where the script of a failure is saved."),
          QStringLiteral("FOLDER"), QStringLiteral(".") },
        { QStringLiteral("worker"), QStringLiteral("Plays in this process.") },
        { progressOption, QStringLiteral("Where a worker writes the number of its event."),
          QStringLiteral("FILE") },
    });
    parser.process(arguments);
}

/// "3" or "1..100"; false when \a text is neither.
bool readRange(const QString &text, int &first, int &last)
{
    bool good = false;
    bool alsoGood = false;
    first = text.section(QLatin1String(".."), 0, 0).toInt(&good);
    last = text.section(QLatin1String(".."), -1).toInt(&alsoGood);
    return good && alsoGood && first >= 0 && first <= last;
}

int supervise(const QCommandLineParser &parser)
{
    int first = 0;
    int last = 0;
    if (parser.isSet(newSeedsOption)) {
        first = QRandomGenerator::global()->bounded(1 << 30);
        last = first + parser.value(newSeedsOption).toInt() - 1;
    } else if (!readRange(parser.value(seedsOption), first, last)) {
        std::fprintf(stderr, "the seeds are a number or two: 7 or 1..100\n");
        return 2;
    }
    const Supervisor supervisor(parser.value(keepOption));
    if (parser.isSet(scriptOption))
        return supervisor.playScript(parser.value(scriptOption)) ? 0 : 1;
    if (parser.isSet(roundsOption))
        return supervisor.playRounds(first, parser.value(roundsOption).toInt()) ? 0 : 1;
    bool passed = true;
    for (int seed = first; seed <= last; ++seed)
        passed = supervisor.playSeed(seed, parser.value(eventsOption).toInt()) && passed;
    return passed ? 0 : 1;
}

/// Drops what the window logs for support and what the offscreen platform cannot do.
void filterMessages(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    const bool platform = text.startsWith(QLatin1String("This plugin does not support"));
    if (type != QtDebugMsg && type != QtInfoMsg && !platform)
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    if (type == QtFatalMsg)
        std::abort();
}

QStringList brokenByFile(const QString &path, const QString &progressPath)
{
    QFile file(path);
    QString error = QStringLiteral("cannot be read");
    Script script;
    if (file.open(QIODevice::ReadOnly))
        script = parsedScript(file.readAll(), &error);
    if (script.isEmpty())
        return { path + QLatin1Char(' ') + error };
    QFile progress(progressPath);
    const bool notes = progress.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    return brokenBy(script, [&](int number) {
        if (notes) {
            progress.seek(0);
            progress.write(QByteArray::number(number).rightJustified(10));
        }
    });
}

int work(const QCommandLineParser &parser)
{
    qInstallMessageHandler(filterMessages);
    const QStringList broken = parser.isSet(roundsOption)
        ? brokenInRounds(parser.value(seedsOption).toUInt(), parser.value(roundsOption).toInt())
        : brokenByFile(parser.value(scriptOption), parser.value(progressOption));
    for (const QString &line : broken)
        std::printf("broken: %s\n", qUtf8Printable(line));
    std::fflush(stdout);
    return broken.isEmpty() ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    QCommandLineParser parser;
    if (argc > 1 && std::strcmp(argv[1], "--worker") == 0) {
        const QApplication application(argc, argv);
        parse(parser, QCoreApplication::arguments());
        return work(parser);
    }
    const QCoreApplication application(argc, argv);
    parse(parser, QCoreApplication::arguments());
    return supervise(parser);
}
