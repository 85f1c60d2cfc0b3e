// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later

/// \file
/// Measures the viewer's window against peers of the same look and work, all in one process and
/// round by round, so that whatever else the machine does hits all of them. The tables go to the
/// standard output.

#include "measurements.h"
#include "painter_plot.h"
#include "peer_subject.h"
#include "plot_on_qcustomplot.h"
#include "plot_on_qwt.h"
#include "report.h"
#include "stopwatch.h"
#include "traces.h"
#include "viewer_subject.h"
#include "workload.h"

#include <QCommandLineParser>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>
#include <sys/resource.h>

namespace {

constexpr int warmUps = 4; ///< operations before each block, not counted
constexpr int settledSteps = 600; ///< cursor steps after which all caches are filled

/// One run as the command line asks for it.
struct Run
{
    QSize size = { 1280, 800 };
    int rounds = 10;
    int perBlock = 20; ///< operations that count, of each kind in each round
    double limitMs = 8.0;
    QString only; ///< name of the one operation to measure; empty for all
    QStringList files;
};

/// A window to measure, made anew in each round.
struct Candidate
{
    QString name;
    std::unique_ptr<Subject> (*make)(const Run &run);
};

PeerPlot *plotByPainter()
{
    return new PainterPlot;
}

PeerPlot *plotOnQwt()
{
    return new PlotOnQwt;
}

template <PeerPlot *(*makePlot)()> std::unique_ptr<Subject> makePeer(const Run &run)
{
    return std::make_unique<PeerSubject>(makePlot(), run.size, run.files);
}

std::unique_ptr<Subject> makeViewer(const Run &run)
{
    return std::make_unique<ViewerSubject>(run.size, run.files);
}

QVector<Candidate> candidates()
{
    QVector<Candidate> all{ { report::viewer, makeViewer } };
    all.append({ report::painter, makePeer<plotByPainter> });
    all.append({ report::qwt, makePeer<plotOnQwt> });
    all.append({ report::qCustomPlot, makePeer<plotOnQCustomPlot> });
    return all;
}

void measureBlock(Stopwatch &watch, Subject &subject, Operation operation, int count,
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
    for (int round = 0; round < run.rounds; ++round) {
        for (const Candidate &candidate : subjects) {
            const std::unique_ptr<Subject> subject = candidate.make(run);
            watch.settle();
            if (round == 0)
                std::fprintf(stderr, "%s: plot of %d x %d in %d x %d\n", qPrintable(candidate.name),
                             subject->plot().width(), subject->plot().height(),
                             subject->window().width(), subject->window().height());
            for (const Operation operation : wanted)
                measureBlock(watch, *subject, operation, run.perBlock,
                             measured[candidate.name][operation]);
        }
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

void print(const QStringList &lines)
{
    for (const QString &line : lines)
        std::printf("%s\n", qPrintable(line));
    std::printf("\n");
}

int compare(Stopwatch &watch, const Run &run, bool viewerAlone)
{
    QVector<Candidate> subjects = candidates();
    if (viewerAlone)
        subjects.resize(1);
    const Measurements measured = measure(watch, run, subjects, operationsCalled(run.only));
    const QString where = QStringLiteral("%1, %2 x %3, six traces, %4 operations of each kind")
                              .arg(QGuiApplication::platformName())
                              .arg(run.size.width())
                              .arg(run.size.height())
                              .arg(run.rounds * run.perBlock);
    if (!viewerAlone) {
        print({ QStringLiteral("### Plot's part: ") + where });
        print(report::plotTable(measured));
    }
    print({ QStringLiteral("### Whole window: ") + where });
    print(report::wholeTable(measured, run.limitMs));
    const QStringList broken = report::broken(measured);
    if (!broken.isEmpty())
        print(broken);
    return broken.isEmpty() ? 0 : 1;
}

int grow(Stopwatch &watch, Run run)
{
    const QVector<Candidate> viewer = { candidates().constFirst() };
    const QVector<Operation> wanted = { Operation::CursorStep, Operation::Pan };
    const Measurements six = measure(watch, run, viewer, wanted);
    run.files = run.files.mid(0, 1);
    const Measurements one = measure(watch, run, viewer, wanted);
    print({ QStringLiteral("### From one trace to six: ") + QGuiApplication::platformName() });
    print(report::growthTable(one, six));
    return 0;
}

double peakMegabytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024.0;
}

int endure(Stopwatch &watch, const Run &run, int steps)
{
    ViewerSubject viewer(run.size, run.files);
    watch.settle();
    double settled = 0.0;
    for (int step = 0; step < steps; ++step) {
        if (watch.measure(viewer, [&] { viewer.act(Operation::CursorStep, step); }).plotPaints == 0)
            qFatal("a cursor step painted nothing");
        if (step + 1 == settledSteps)
            settled = peakMegabytes();
    }
    const double last = peakMegabytes();
    print({ QStringLiteral("### Endurance: peak memory over %1 cursor steps").arg(steps), QString(),
            QStringLiteral("%1 MB after %2, %3 MB after %4: %5 (goal 1.03)")
                .arg(settled, 0, 'f', 1)
                .arg(settledSteps)
                .arg(last, 0, 'f', 1)
                .arg(steps)
                .arg(last / settled, 0, 'f', 3) });
    return 0;
}

/// How alike the subjects look, for the eye.
int takePictures(Stopwatch &watch, const Run &run)
{
    for (const Candidate &candidate : candidates()) {
        const std::unique_ptr<Subject> subject = candidate.make(run);
        watch.settle();
        const QString name = candidate.name + QStringLiteral(".png");
        if (!subject->window().grab().save(name))
            qFatal("cannot write %s", qPrintable(name));
    }
    return 0;
}

QSize sizeOf(const QString &text)
{
    const QStringList sides = text.split(QLatin1Char('x'));
    return { sides.value(0).toInt(), sides.value(1).toInt() };
}

} // namespace

int main(int argc, char **argv)
{
    // As the viewer does for itself.
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    // Three debug lines at each resize of the viewer would be measured with it.
    qputenv("QT_LOGGING_RULES", "default.debug=false");
    Stopwatch watch(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Measures the viewer's window and its peers."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("what"),
                                 QStringLiteral("compare, viewer, growth, endurance or pictures"));
    const QCommandLineOption size(QStringLiteral("size"), QStringLiteral("of the window"),
                                  QStringLiteral("WxH"), QStringLiteral("1280x800"));
    const QCommandLineOption rounds(QStringLiteral("rounds"), QStringLiteral("of all subjects"),
                                    QStringLiteral("n"), QStringLiteral("10"));
    const QCommandLineOption count(QStringLiteral("operations"),
                                   QStringLiteral("of each kind in each round"),
                                   QStringLiteral("n"), QStringLiteral("20"));
    const QCommandLineOption limit(QStringLiteral("limit"), QStringLiteral("for p99"),
                                   QStringLiteral("ms"), QStringLiteral("8"));
    const QCommandLineOption computing(
        QStringLiteral("computing"),
        QStringLiteral("count the time of computing, not all that passes; for a busy machine"));
    const QCommandLineOption only(QStringLiteral("only"),
                                  QStringLiteral("the operation of this name"),
                                  QStringLiteral("name"));
    parser.addOptions({ size, rounds, count, limit, computing, only });
    parser.process(watch);
    watch.setTime(parser.isSet(computing) ? Stopwatch::Computing : Stopwatch::Passing);

    const QTemporaryDir folder;
    Run run;
    run.size = sizeOf(parser.value(size));
    run.rounds = parser.value(rounds).toInt();
    run.perBlock = parser.value(count).toInt();
    run.limitMs = parser.value(limit).toDouble();
    run.only = parser.value(only);
    run.files = traces::write(folder.path());

    const QString what = parser.positionalArguments().value(0);
    if (what == QLatin1String("compare") || what == QLatin1String("viewer"))
        return compare(watch, run, what == QLatin1String("viewer"));
    if (what == QLatin1String("growth"))
        return grow(watch, run);
    if (what == QLatin1String("pictures"))
        return takePictures(watch, run);
    if (what == QLatin1String("endurance"))
        return endure(watch, run, run.rounds * run.perBlock);
    parser.showHelp(2);
}
