// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Plays random events on the viewer's window and checks its invariants after each.
#include "child_run.h"
#include "runs.h"
#include "shrink.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>
#include <sys/wait.h>

namespace {

constexpr int longestOutput = 6000; ///< characters that are printed of a failed run
constexpr int tries = 400; ///< runs that shorten one script

/// Prints the \a broken invariants and returns the exit code.
int report(const QStringList &broken)
{
    for (const QString &line : broken)
        std::printf("broken: %s\n", qUtf8Printable(line));
    return broken.isEmpty() ? 0 : 1;
}

/// Plays \a script in a process of its own, so that a crash can be repeated.
Ending endingOf(const Script &script)
{
    // A crash leaves files behind, and Qt saves settings that the next run would read.
    const QTemporaryDir folder;
    return runInChild([&](int &progress) {
        qputenv("TMPDIR", folder.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
        char name[] = "velkor-monkey";
        char *arguments[] = { name, nullptr };
        int count = 1;
        const QApplication application(count, arguments);
        return report(brokenBy(script, progress));
    });
}

/// What failed, without its numbers: equal for two runs that fail in the same way. Empty for a run
/// that passed.
QByteArray verdictOf(const Ending &ending)
{
    if (ending.status == 0)
        return {};
    const QList<QByteArray> lines = ending.output.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("broken: "))
            return line.left(line.indexOf(':', 8));
        if (line.startsWith("stall: "))
            return "stall";
        if (line.contains("runtime error: "))
            return line.left(line.indexOf(':'));
        if (line.contains("ERROR: AddressSanitizer: ") || line.contains("ERROR: LeakSanitizer: "))
            return line.mid(line.indexOf("ERROR: ")).split(' ').mid(0, 3).join(' ');
    }
    return WIFSIGNALED(ending.status) ? "signal " + QByteArray::number(WTERMSIG(ending.status))
                                      : "code " + QByteArray::number(WEXITSTATUS(ending.status));
}

/// Plays \a events random events. After a failure prints it, and saves a shortened script in
/// \a folder.
bool playSeed(unsigned seed, int events, const QDir &folder)
{
    const Script script = randomScript(seed, events);
    const Ending ending = endingOf(script);
    const QByteArray verdict = verdictOf(ending);
    std::printf("seed %u, %d events: %s\n", seed, events,
                verdict.isEmpty() ? "passed" : verdict.constData());
    if (verdict.isEmpty())
        return true;
    std::printf("at event %d:\n%s\n", ending.progress,
                ending.output.right(longestOutput).constData());
    std::fflush(stdout);
    const auto failsAlike
        = [&](const Script &shorter) { return verdictOf(endingOf(shorter)) == verdict; };
    Script failing = script.mid(0, ending.progress + 1);
    if (failsAlike(failing))
        failing = shrunk(failing, failsAlike, tries);
    else
        std::printf("it does not fail again\n");
    QFile file(folder.filePath(QStringLiteral("seed-%1.monkey").arg(seed)));
    const QByteArray comment = "Seed " + QByteArray::number(seed) + " failed with: " + verdict;
    if (file.open(QIODevice::WriteOnly) && file.write(textOf(failing, comment)) > 0)
        std::printf("the script is in %s\n", qUtf8Printable(file.fileName()));
    return false;
}

unsigned seedFrom(const QByteArray &text)
{
    return text == "new" ? QRandomGenerator::global()->generate() : text.toUInt();
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The window writes a line at each resize.
    qputenv("QT_LOGGING_RULES", "default.debug=false");
    const QByteArray command = argc > 1 ? argv[1] : "";
    const unsigned first = argc > 2 ? seedFrom(argv[2]) : 0;
    const int count = argc > 3 ? QByteArray(argv[3]).toInt() : 0;
    const int events = argc > 4 ? QByteArray(argv[4]).toInt() : 0;
    if (command == "seeds" && argc == 6 && count > 0 && events > 0) {
        const QDir folder(QFile::decodeName(argv[5]));
        bool passed = true;
        for (int i = 0; i < count; ++i)
            passed = playSeed(first + static_cast<unsigned>(i), events, folder) && passed;
        return passed ? 0 : 1;
    }
    if (command == "rounds" && argc == 4 && count > 0) {
        std::printf("seed %u\n", first);
        std::fflush(stdout);
        const QApplication application(argc, argv);
        return report(brokenInRounds(first, count));
    }
    std::fprintf(
        stderr,
        "velkor-monkey seeds FIRST COUNT EVENTS FOLDER\n"
        "    plays COUNT scripts of EVENTS random events, saves those that fail in FOLDER\n"
        "velkor-monkey rounds FIRST COUNT\n"
        "    plays COUNT rounds in one window and checks memory and descriptors\n"
        "FIRST is the first seed, a number or \"new\"\n");
    return 2;
}
