// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later

/// \file
/// Measures the viewer's plot against peers that draw the same. All run alternately in one process,
/// so the load of the machine affects all of them equally. The table goes to standard output.

#include "peersubject.h"
#include "report.h"
#include "stopwatch.h"
#include "tracebuilder.h"
#include "viewersubject.h"

#include <QTemporaryDir>

#include <cmath>
#include <cstdio>
#include <memory>

namespace {

constexpr int warmUps = 4; ///< operations before each block, not counted

/// Echoes on a decaying baseline.
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

/// A new window of \a size with \a files in its slots.
std::unique_ptr<ViewerSubject> make(Subject subject, QSize size, const QStringList &files)
{
    switch (subject) {
    case Viewer:
        break;
    case Painter:
        return std::make_unique<PeerSubject>(makePainterPlot(), size, files);
    case Qwt:
        return std::make_unique<PeerSubject>(makeQwtPlot(), size, files);
    case QCustom:
        return std::make_unique<PeerSubject>(makeQCustomPlot(), size, files);
    }
    return std::make_unique<ViewerSubject>(size, files);
}

void measureBlock(Stopwatch &watch, ViewerSubject &subject, Operation operation, int count,
                  Sample &sample)
{
    subject.begin(operation);
    watch.settle();
    for (int number = 0; number < warmUps + count; ++number) {
        const Cost cost = watch.measure(subject, [&] { subject.act(operation, number); });
        if (cost.plotPaints == 0)
            qFatal("operation %d painted nothing", static_cast<int>(operation));
        if (number >= warmUps) {
            sample.plot.append(cost.plotUs);
            sample.whole.append(cost.wholeUs);
            sample.plotPaints = qMax(sample.plotPaints, cost.plotPaints);
        }
        subject.takeBack(operation);
        watch.settle();
    }
    subject.end(operation);
    watch.settle();
}

} // namespace

int main(int argc, char **argv)
{
    // The viewer's main does the same.
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    // Otherwise the viewer's debug lines at each resize are measured as well.
    qputenv("QT_LOGGING_RULES", "default.debug=false");
    Stopwatch watch(argc, argv);
    const QStringList words = QApplication::arguments();
    const QSize size(words.value(1).toInt(), words.value(2).toInt());
    const double limitMs = words.value(3).toDouble();
    const int rounds = words.value(4).toInt();
    const int count = words.value(5).toInt();
    if (size.isEmpty() || limitMs <= 0.0 || rounds < 1 || count < 1) {
        std::fprintf(stderr,
                     "usage: velkor-bench WIDTH HEIGHT LIMIT ROUNDS OPERATIONS\n"
                     "  LIMIT       of the 99th percentile, in ms\n"
                     "  OPERATIONS  of each kind in each round\n");
        return 2;
    }

    const QTemporaryDir folder;
    const QStringList files = writeTraces(folder.path());
    Measurements measured;
    for (int round = 0; round < rounds; ++round)
        for (const Subject subject : { Viewer, Painter, Qwt, QCustom }) {
            const std::unique_ptr<ViewerSubject> window = make(subject, size, files);
            watch.settle();
            for (const OperationGoal &entry : operations)
                if (subject == Viewer || entry.goal > 0.0)
                    measureBlock(watch, *window, entry.operation, count,
                                 measured[subject][entry.operation]);
        }
    std::printf("### %s, %d x %d, six traces, %d operations of each kind\n\n",
                qPrintable(QGuiApplication::platformName()), size.width(), size.height(),
                rounds * count);
    printTable(measured, limitMs);
    return 0;
}
