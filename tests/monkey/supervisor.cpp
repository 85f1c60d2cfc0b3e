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
#include <system_error>

namespace {

constexpr int longestTail = 6000;

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
    // The stack of every allocation is a third of the work; a failure can be played again with it.
    preset("ASAN_OPTIONS", QStringLiteral("handle_abort=1:malloc_context_size=2"));
    // A run must not depend on where it runs, nor on what the run before left to the toolkit.
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("TZ"), QStringLiteral("UTC"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder + QStringLiteral("/config"));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder);
    return environment;
}

/// The first line of \a output that says what is wrong, without its numbers: two runs that fail
/// alike have the same.
QByteArray verdictIn(const QByteArray &output)
{
    const QList<QByteArray> lines = output.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("broken: "))
            return line.left(line.indexOf(':', 8));
        if (line.startsWith("stall: "))
            return "stall";
        const auto error = line.indexOf("runtime error: ");
        if (error >= 0)
            return line.left(line.indexOf(':'));
        if (line.contains("ERROR: AddressSanitizer: ") || line.contains("ERROR: LeakSanitizer: "))
            return line.mid(line.indexOf("ERROR: ")).split(' ').mid(0, 3).join(' ');
    }
    return {};
}

} // namespace

Supervisor::Supervisor(const QString &keep, int tries)
    : m_keep(keep)
    , m_tries(tries)
{
    // The settings lie beside the program, and several monkeys may be about.
    std::error_code failed;
    const auto from = QCoreApplication::applicationFilePath().toStdString();
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
    // The worker's own watchdog sees to it that it ends.
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
    if (!file.open(QIODevice::WriteOnly) || file.write(textOf(script, "being shrunk")) < 0)
        qFatal("cannot write a script");
    file.close();
    return run({ QStringLiteral("--script"), path });
}

void Supervisor::tell(const Outcome &outcome) const
{
    if (outcome.output.size() > longestTail)
        std::printf("...\n");
    std::printf("%s\n", outcome.output.right(longestTail).constData());
    std::fflush(stdout);
}

bool Supervisor::playSeed(int seed, int events)
{
    Outcome outcome = run({ QStringLiteral("--seed"), QString::number(seed),
                            QStringLiteral("--events"), QString::number(events) });
    // A worker that leaves early with a smile has not played them.
    if (outcome.verdict.isEmpty() && outcome.event != events - 1)
        outcome.verdict = "ended before the last event";
    if (outcome.verdict.isEmpty()) {
        std::printf("seed %d: %d events in %.1f s\n%s", seed, events, outcome.seconds,
                    outcome.output.constData());
        std::fflush(stdout);
        return true;
    }
    std::printf("seed %d FAILED at event %d of %d: %s\n", seed, outcome.event, events,
                outcome.verdict.constData());
    tell(outcome);

    const Script played = dealtScript(static_cast<unsigned>(seed), outcome.event + 1);
    const Outcome again = runScript(played);
    Script script = played;
    if (again.verdict == outcome.verdict)
        script = shrunk(
            played,
            [&](const Script &shorter) { return runScript(shorter).verdict == outcome.verdict; },
            m_tries);
    else
        std::printf("it does not fail again: '%s'\n", again.verdict.constData());
    const QString path = QDir(m_keep).filePath(QStringLiteral("seed-%1.monkey").arg(seed));
    QFile file(path);
    const QByteArray comment
        = "Seed " + QByteArray::number(seed) + ". It failed with: " + outcome.verdict;
    if (file.open(QIODevice::WriteOnly) && file.write(textOf(script, comment)) > 0)
        std::printf("seed %d: %d events lie in %s\n", seed, lengthOf(script), qUtf8Printable(path));
    std::fflush(stdout);
    return false;
}

bool Supervisor::playScript(const QString &file)
{
    const Outcome outcome = run({ QStringLiteral("--script"), QDir().absoluteFilePath(file) });
    const bool well = outcome.verdict.isEmpty();
    std::printf("%s: %s\n", qUtf8Printable(file),
                well ? "all is well" : outcome.verdict.constData());
    tell(outcome);
    return well;
}

bool Supervisor::watchLaps(int seed, int laps)
{
    const Outcome outcome = run({ QStringLiteral("--seed"), QString::number(seed),
                                  QStringLiteral("--laps"), QString::number(laps) });
    tell(outcome);
    return outcome.verdict.isEmpty();
}
