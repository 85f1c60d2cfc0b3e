// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "report.h"

const QString report::viewer = QStringLiteral("viewer");
const QString report::painter = QStringLiteral("bare QPainter");
const QString report::qwt = QStringLiteral("Qwt");
const QString report::qCustomPlot = QStringLiteral("QCustomPlot");

namespace {

QString row(const QStringList &cells)
{
    return QStringLiteral("| ") + cells.join(QStringLiteral(" | ")) + QStringLiteral(" |");
}

QStringList head(const QStringList &titles)
{
    QStringList rule;
    for (int i = 0; i < titles.size(); ++i)
        rule << QStringLiteral("---");
    return { row(titles), row(rule) };
}

QString times(double value)
{
    return value > 0.0 ? QString::number(value, 'f', 2) : QStringLiteral("-");
}

QString microseconds(double value)
{
    return QString::number(value, 'f', 0);
}

double ratio(double value, double reference)
{
    return reference > 0.0 ? value / reference : 0.0;
}

QString paints(const Sample &sample)
{
    if (sample.fewestPaints() == sample.mostPaints())
        return QString::number(sample.mostPaints());
    return QStringLiteral("%1 to %2").arg(sample.fewestPaints()).arg(sample.mostPaints());
}

bool mustBeAhead(Operation operation)
{
    return operation == Operation::CursorStep || operation == Operation::CursorDrag
        || operation == Operation::CursorStepSmoothed;
}

QString verdict(bool reached)
{
    return reached ? QStringLiteral("reached") : QStringLiteral("**missed**");
}

} // namespace

QStringList report::plotTable(const Measurements &measured)
{
    QStringList lines
        = head({ QStringLiteral("operation"), QStringLiteral("bare, us (p99)"),
                 QStringLiteral("goal"), viewer, qwt, qCustomPlot, QStringLiteral("plot paints"),
                 QStringLiteral("ratio"), QStringLiteral("paints") });
    for (const OperationGoal &entry : operations) {
        const auto sample = [&](const QString &subject) {
            return measured.value(subject).value(entry.operation);
        };
        if (sample(viewer).count() == 0)
            continue;
        const double bare = sample(painter).medianPlot();
        const auto toBare
            = [&](const QString &subject) { return ratio(sample(subject).medianPlot(), bare); };
        const double own = toBare(viewer);
        const bool ahead
            = !mustBeAhead(entry.operation) || (own < toBare(qwt) && own < toBare(qCustomPlot));
        const Sample viewed = sample(viewer);
        lines << row(
            { QLatin1String(entry.name),
              QStringLiteral("%1 (%2)").arg(microseconds(bare),
                                            microseconds(sample(painter).p99Plot())),
              times(entry.goal)
                  + (mustBeAhead(entry.operation) ? QStringLiteral(", ahead") : QString()),
              QStringLiteral("**%1**").arg(times(own)), times(toBare(qwt)),
              times(toBare(qCustomPlot)), paints(viewed),
              entry.goal > 0.0 ? verdict(own <= entry.goal && ahead) : QStringLiteral("no goal"),
              verdict(viewed.fewestPaints() == 1 && viewed.mostPaints() == 1) });
    }
    return lines;
}

QStringList report::wholeTable(const Measurements &measured, double limitMs)
{
    // Measured alone, the viewer has nothing beside it.
    const bool compared = measured.contains(painter);
    const QStringList subjects = compared ? QStringList{ viewer, qwt, qCustomPlot } : QStringList();
    QStringList titles{ QStringLiteral("operation"), QStringLiteral("median, us"),
                        QStringLiteral("p99, us"), QStringLiteral("p99 <= %1 ms").arg(limitMs) };
    for (const QString &subject : subjects)
        titles << subject + QStringLiteral(" to bare");
    QStringList lines = head(titles);
    for (const OperationGoal &entry : operations) {
        const auto median = [&](const QString &subject) {
            return measured.value(subject).value(entry.operation).medianWhole();
        };
        const Sample viewed = measured.value(viewer).value(entry.operation);
        if (viewed.count() == 0)
            continue;
        QStringList cells{ QLatin1String(entry.name), microseconds(viewed.medianWhole()),
                           microseconds(viewed.p99Whole()),
                           verdict(viewed.p99Whole() <= limitMs * 1000.0) };
        for (const QString &subject : subjects)
            cells << times(ratio(median(subject), median(painter)));
        lines << row(cells);
    }
    return lines;
}

QStringList report::growthTable(const Measurements &one, const Measurements &six)
{
    struct Goal
    {
        Operation operation;
        const char *name;
        double limit;
    };
    constexpr Goal goals[]
        = { { Operation::CursorStep, "cursor step", 1.15 }, { Operation::Pan, "pan", 2.4 } };
    QStringList lines = head({ QStringLiteral("operation"), QStringLiteral("one trace, us"),
                               QStringLiteral("six, us"), QStringLiteral("growth"),
                               QStringLiteral("goal"), QString() });
    for (const Goal &goal : goals) {
        const double few = one.value(viewer).value(goal.operation).medianPlot();
        const double many = six.value(viewer).value(goal.operation).medianPlot();
        lines << row({ QLatin1String(goal.name), microseconds(few), microseconds(many),
                       times(ratio(many, few)), times(goal.limit),
                       verdict(many <= few * goal.limit) });
    }
    return lines;
}

QStringList report::broken(const Measurements &measured)
{
    QStringList lines;
    for (auto subject = measured.begin(); subject != measured.end(); ++subject) {
        for (const OperationGoal &entry : operations) {
            const Sample sample = subject.value().value(entry.operation);
            if (sample.count() > 0 && sample.fewestPaints() == 0)
                lines << QStringLiteral("%1: '%2' painted nothing")
                             .arg(subject.key(), QLatin1String(entry.name));
        }
    }
    return lines;
}
