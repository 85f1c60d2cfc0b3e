// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later

/// \file
/// Measures the viewer's plot against peers that draw the same. All run in one process and by
/// turns, so that the load of the machine affects all of them alike. The tables go to standard
/// output.

#include "peer_subject.h"
#include "report.h"
#include "stopwatch.h"
#include "tracebuilder.h"
#include "viewer_subject.h"

#include <QCommandLineParser>
#include <QTemporaryDir>

#include <cmath>
#include <cstdio>
#include <memory>
#include <sys/resource.h>

namespace {

constexpr int warmUps = 4; ///< operations before each block, not counted
constexpr int settledSteps = 600; ///< cursor steps after which all caches are filled

struct Run
{
    QSize size;
    int rounds = 0;
    int perBlock = 0; ///< counted operations of each kind in each round
    double limitMs = 0.0;
    QString only; ///< name of the one operation to measure; empty for all
    QStringList files;
};

/// Echoes on a falling line.
int sampleOf(int slot, int index)
{
    const double fall = 40.0 * std::exp(-index / 60.0);
    const double phase = 0.11 * (slot + 2) * index;
    const double echo = 35.0 * std::sin(phase) * std::exp(-(index % 83) / 25.0);
    return static_cast<int>(fall + echo) + 12 * slot - 30;
}

/// Writes six traces, one count a sample, into \a folder and returns their paths.
QStringList writeTraces(const QString &folder)
{
    QStringList paths;
    for (int slot = 0; slot < constants::slotCount; ++slot)
        paths << TraceBuilder()
                     .samples([slot](int index) { return sampleOf(slot, index); })
                     .write(QStringLiteral("%1/trace%2.tdr").arg(folder).arg(slot + 1));
    return paths;
}

/// A window to measure, created again in each round.
struct Candidate
{
    QString name;
    PeerPlot *(*makePlot)(); ///< null for the viewer

    std::unique_ptr<ViewerSubject> make(const Run &run) const
    {
        if (makePlot == nullptr)
            return std::make_unique<ViewerSubject>(run.size, run.files);
        return std::make_unique<PeerSubject>(makePlot(), run.size, run.files);
    }
    bool can(Operation operation) const
    {
        return makePlot == nullptr
            || (operation != Operation::Language && operation != Operation::StyleSheet);
    }
};

const Candidate &viewer()
{
    static const Candidate candidate{ report::viewer, nullptr };
    return candidate;
}

void measureBlock(Stopwatch &watch, ViewerSubject &subject, Operation operation, int count,
                  Sample &sample)
{
    subject.begin(operation);
    watch.settle();
    for (int number = 0; number < warmUps + count; ++number) {
        const QVector<double> before = subject.state();
        const Cost cost = watch.measure(subject, [&] { subject.act(operation, number); });
        if (subject.state() == before && operation != Operation::LoadSix
            && operation != Operation::StyleSheet)
            qFatal("operation %d was refused", static_cast<int>(operation));
        if (cost.plotPaints == 0)
            qFatal("operation %d painted nothing", static_cast<int>(operation));
        if (number >= warmUps)
            sample.add(cost);
        subject.takeBack(operation);
        watch.settle();
    }
    subject.end(operation);
    watch.settle();
}

Measurements measure(Stopwatch &watch, const Run &run, const QVector<Candidate> &subjects,
                     const QVector<Operation> &wanted)
{
    Measurements measured;
    for (int round = 0; round < run.rounds; ++round)
        for (const Candidate &candidate : subjects) {
            const std::unique_ptr<ViewerSubject> subject = candidate.make(run);
            watch.settle();
            if (round == 0)
                std::fprintf(stderr, "%s: plot of %d x %d in %d x %d\n", qPrintable(candidate.name),
                             subject->plot().width(), subject->plot().height(),
                             subject->window().width(), subject->window().height());
            for (const Operation operation : wanted)
                if (candidate.can(operation))
                    measureBlock(watch, *subject, operation, run.perBlock,
                                 measured[candidate.name][operation]);
        }
    return measured;
}

QVector<Operation> operationsCalled(const QString &name)
{
    QVector<Operation> found;
    for (const OperationGoal &entry : operations)
        if (name.isEmpty() || name == QLatin1String(entry.name))
            found.append(entry.operation);
    if (found.isEmpty())
        qFatal("no operation is called \"%s\"", qPrintable(name));
    return found;
}

void print(const QString &title, const QStringList &lines)
{
    std::printf("### %s\n\n", qPrintable(title));
    for (const QString &line : lines)
        std::printf("%s\n", qPrintable(line));
    std::printf("\n");
}

void compare(Stopwatch &watch, const Run &run)
{
    const QVector<Candidate> subjects{ viewer(),
                                       { report::painter, makePainterPlot },
                                       { report::qwt, makeQwtPlot },
                                       { report::qCustomPlot, makeQCustomPlot } };
    const Measurements measured = measure(watch, run, subjects, operationsCalled(run.only));
    print(QStringLiteral("%1, %2 x %3, six traces, %4 operations of each kind")
              .arg(QGuiApplication::platformName())
              .arg(run.size.width())
              .arg(run.size.height())
              .arg(run.rounds * run.perBlock),
          report::table(measured, run.limitMs));
}

void grow(Stopwatch &watch, Run run)
{
    const QVector<Operation> wanted = { Operation::CursorStep, Operation::Pan };
    const Measurements six = measure(watch, run, { viewer() }, wanted);
    run.files = run.files.mid(0, 1);
    const Measurements one = measure(watch, run, { viewer() }, wanted);
    print(QStringLiteral("From one trace to six: ") + QGuiApplication::platformName(),
          report::growthTable(one, six));
}

double peakMegabytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024.0;
}

void endure(Stopwatch &watch, const Run &run)
{
    const int steps = run.rounds * run.perBlock;
    ViewerSubject subject(run.size, run.files);
    watch.settle();
    double settled = 0.0;
    for (int step = 0; step < steps; ++step) {
        watch.measure(subject, [&] { subject.act(Operation::CursorStep, step); });
        if (step + 1 == settledSteps)
            settled = peakMegabytes();
    }
    const double last = peakMegabytes();
    print(QStringLiteral("Endurance: peak memory over %1 cursor steps").arg(steps),
          { QStringLiteral("%1 MB after %2, %3 MB after %4: %5 (goal 1.03)")
                .arg(settled, 0, 'f', 1)
                .arg(settledSteps)
                .arg(last, 0, 'f', 1)
                .arg(steps)
                .arg(last / settled, 0, 'f', 3) });
}

QSize sizeOf(const QString &text)
{
    const QStringList sides = text.split(QLatin1Char('x'));
    return { sides.value(0).toInt(), sides.value(1).toInt() };
}

QCommandLineOption option(const char *name, const char *meaning, const char *value = nullptr,
                          const char *preset = nullptr)
{
    return { QString::fromLatin1(name), QString::fromLatin1(meaning), QString::fromLatin1(value),
             QString::fromLatin1(preset) };
}

} // namespace

int main(int argc, char **argv)
{
    // As the viewer does for itself.
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    // Otherwise the viewer's debug lines at each resize are measured as well.
    qputenv("QT_LOGGING_RULES", "default.debug=false");
    Stopwatch watch(argc, argv);

    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("what"),
                                 QStringLiteral("compare, growth or endurance"));
    const QCommandLineOption size = option("size", "of the window", "WxH", "1280x800");
    const QCommandLineOption rounds = option("rounds", "of all subjects", "n", "10");
    const QCommandLineOption count = option("operations", "of each kind in each round", "n", "20");
    const QCommandLineOption limit = option("limit", "for p99", "ms", "8");
    const QCommandLineOption only = option("only", "the operation of this name", "name");
    const QCommandLineOption computing
        = option("computing", "count CPU time instead of elapsed time; for a busy machine");
    parser.addOptions({ size, rounds, count, limit, only, computing });
    parser.process(watch);
    watch.setTime(parser.isSet(computing) ? Stopwatch::Computing : Stopwatch::Passing);

    const QTemporaryDir folder;
    const Run run{ sizeOf(parser.value(size)),  parser.value(rounds).toInt(),
                   parser.value(count).toInt(), parser.value(limit).toDouble(),
                   parser.value(only),          writeTraces(folder.path()) };
    const QString what = parser.positionalArguments().value(0);
    if (what == QLatin1String("compare"))
        compare(watch, run);
    else if (what == QLatin1String("growth"))
        grow(watch, run);
    else if (what == QLatin1String("endurance"))
        endure(watch, run);
    else
        parser.showHelp(2);
    return 0;
}
