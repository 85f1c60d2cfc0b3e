// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "supervisor.h"

#include "shrink.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <cstdio>
#include <filesystem>

namespace {

constexpr int longestTail = 6000;
constexpr int tries = 400; ///< runs that shorten one script

QProcessEnvironment workerEnvironment(const QString &folder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const auto preset = [&](const char *name, const QString &value) {
        if (!environment.contains(QLatin1String(name)))
            environment.insert(QLatin1String(name), value);
    };
    preset("QT_QPA_PLATFORM", QStringLiteral("offscreen"));
    preset("LSAN_OPTIONS",
           QStringLiteral("suppressions=" VELKOR_LSAN_SUPPRESSIONS ":print_suppressions=0"));
    preset("UBSAN_OPTIONS", QStringLiteral("print_stacktrace=1"));
    // Stacks of allocations take a third of the time; a saved script can be played again with them.
    preset("ASAN_OPTIONS", QStringLiteral("handle_abort=1:malloc_context_size=2"));
    // A run must not depend on where it runs, nor on what Qt saved in the run before.
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("TZ"), QStringLiteral("UTC"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder + QStringLiteral("/config"));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder);
    return environment;
}

/// The first line of \a output that says what failed, without its numbers: equal for two runs that
/// fail in the same way.
QByteArray verdictIn(const QByteArray &output)
{
    const QList<QByteArray> lines = output.split('\n');
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
    return {};
}

void print(const QByteArray &output)
{
    if (output.size() > longestTail)
        std::printf("...\n");
    std::printf("%s\n", output.right(longestTail).constData());
    std::fflush(stdout);
}

} // namespace

Supervisor::Supervisor(const QString &keep)
    : m_keep(keep)
{
    // The settings lie beside the program, and several monkeys may run at a time.
    const auto from = QCoreApplication::applicationFilePath().toStdString();
    std::error_code failed;
    std::filesystem::create_hard_link(from, program().toStdString(), failed);
    if (failed)
        std::filesystem::copy_file(from, program().toStdString());
}

QString Supervisor::program() const
{
    return m_folder.filePath(QStringLiteral("velkor-monkey"));
}

Supervisor::Outcome Supervisor::run(const QStringList &arguments) const
{
    const QString progress = m_folder.filePath(QStringLiteral("progress"));
    QFile::remove(progress);
    QDir(m_folder.filePath(QStringLiteral("config"))).removeRecursively();
    QProcess worker;
    worker.setProcessEnvironment(workerEnvironment(m_folder.path()));
    worker.setProcessChannelMode(QProcess::MergedChannels);
    QElapsedTimer clock;
    clock.start();
    worker.start(program(),
                 QStringList{ QStringLiteral("--worker"), QStringLiteral("--progress"), progress }
                     + arguments);
    // The worker's watchdog ends it.
    worker.waitForFinished(-1);

    Outcome outcome;
    outcome.seconds = static_cast<double>(clock.elapsed()) / 1000.0;
    outcome.output = worker.readAll();
    QFile noted(progress);
    if (noted.open(QIODevice::ReadOnly))
        outcome.event = noted.readAll().trimmed().toInt();
    const bool crashed = worker.exitStatus() != QProcess::NormalExit;
    if (!crashed && worker.exitCode() == 0)
        return outcome;
    outcome.verdict = verdictIn(outcome.output);
    if (outcome.verdict.isEmpty())
        outcome.verdict = (crashed ? "ended by signal " : "ended with code ")
            + QByteArray::number(worker.exitCode());
    return outcome;
}

Supervisor::Outcome Supervisor::runScript(const Script &script) const
{
    const QString path = m_folder.filePath(QStringLiteral("script"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(textOf(script, "being played")) < 0)
        qFatal("cannot write a script");
    file.close();
    Outcome outcome = run({ QStringLiteral("--script"), path });
    // A worker that exits early with code 0 has failed as well.
    if (outcome.verdict.isEmpty() && outcome.event != lengthOf(script) - 1)
        outcome.verdict = "ended before the last event";
    return outcome;
}

bool Supervisor::playSeed(int seed, int events) const
{
    const Script script = randomScript(static_cast<unsigned>(seed), events);
    const Outcome outcome = runScript(script);
    if (outcome.verdict.isEmpty()) {
        std::printf("seed %d: %d events in %.1f s\n%s", seed, events, outcome.seconds,
                    outcome.output.constData());
        std::fflush(stdout);
        return true;
    }
    std::printf("seed %d FAILED at event %d of %d: %s\n", seed, outcome.event, events,
                outcome.verdict.constData());
    print(outcome.output);
    const auto failsAlike
        = [&](const Script &shorter) { return runScript(shorter).verdict == outcome.verdict; };
    const Script played = script.mid(0, outcome.event + 1);
    if (failsAlike(played)) {
        save(shrunk(played, failsAlike, tries), seed, outcome.verdict);
    } else {
        std::printf("it does not fail again\n");
        save(played, seed, outcome.verdict);
    }
    return false;
}

void Supervisor::save(const Script &script, int seed, const QByteArray &verdict) const
{
    const QString path = QDir(m_keep).filePath(QStringLiteral("seed-%1.monkey").arg(seed));
    const QByteArray comment = "Seed " + QByteArray::number(seed) + ". It failed with: " + verdict;
    QFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(textOf(script, comment)) > 0)
        std::printf("seed %d: %d events are in %s\n", seed, lengthOf(script), qUtf8Printable(path));
    std::fflush(stdout);
}

bool Supervisor::playScript(const QString &file) const
{
    const Outcome outcome = run({ QStringLiteral("--script"), QDir().absoluteFilePath(file) });
    const bool passed = outcome.verdict.isEmpty();
    std::printf("%s: %s\n", qUtf8Printable(file), passed ? "passed" : outcome.verdict.constData());
    print(outcome.output);
    return passed;
}

bool Supervisor::playRounds(int seed, int rounds) const
{
    const Outcome outcome = run({ QStringLiteral("--seeds"), QString::number(seed),
                                  QStringLiteral("--rounds"), QString::number(rounds) });
    print(outcome.output);
    return outcome.verdict.isEmpty();
}
