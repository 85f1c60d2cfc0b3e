// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "report.h"

#include <algorithm>

const QString report::viewer = QStringLiteral("viewer");
const QString report::painter = QStringLiteral("bare QPainter");
const QString report::qwt = QStringLiteral("Qwt");
const QString report::qCustomPlot = QStringLiteral("QCustomPlot");

void Sample::add(const Cost &cost)
{
    fewestPaints = plot.isEmpty() ? cost.plotPaints : std::min(fewestPaints, cost.plotPaints);
    mostPaints = std::max(mostPaints, cost.plotPaints);
    plot.append(cost.plotUs);
    whole.append(cost.wholeUs);
}

namespace {

/// The value below or at which \a share of \a values lie; 0 of none.
double quantile(QVector<double> values, double share)
{
    if (values.isEmpty())
        return 0.0;
    const int place = std::min(values.size() - 1, static_cast<int>(values.size() * share));
    std::nth_element(values.begin(), values.begin() + place, values.end());
    return values[place];
}

double median(const QVector<double> &values)
{
    return quantile(values, 0.5);
}

QString row(const QStringList &cells)
{
    return QStringLiteral("| ") + cells.join(QStringLiteral(" | ")) + QStringLiteral(" |");
}

QStringList head(const QStringList &titles)
{
    return { row(titles), QStringLiteral("|") + QStringLiteral(" --- |").repeated(titles.size()) };
}

/// \a value over \a reference; a dash when either was not measured.
QString ratio(double value, double reference)
{
    return value > 0.0 && reference > 0.0 ? QString::number(value / reference, 'f', 2)
                                          : QStringLiteral("-");
}

QString number(double value, int decimals)
{
    return QString::number(value, 'f', decimals);
}

QString goalText(const OperationGoal &goal)
{
    if (goal.goal <= 0.0)
        return QStringLiteral("-");
    return number(goal.goal, 2) + (goal.ahead ? QStringLiteral(", ahead") : QString());
}

QString verdict(bool reached)
{
    return reached ? QStringLiteral("reached") : QStringLiteral("**missed**");
}

} // namespace

QStringList report::table(const Measurements &measured, double limitMs)
{
    QStringList lines = head(
        { QStringLiteral("operation"), QStringLiteral("bare, us"), QStringLiteral("goal"), viewer,
          qwt, qCustomPlot, QString(), QStringLiteral("plot paints"), QStringLiteral("window, ms"),
          QStringLiteral("p99, ms"), QStringLiteral("p99 <= %1 ms").arg(limitMs) });
    for (const OperationGoal &entry : operations) {
        const auto plot = [&](const QString &subject) {
            return median(measured.value(subject).value(entry.operation).plot);
        };
        const Sample sample = measured.value(viewer).value(entry.operation);
        if (sample.plot.isEmpty())
            continue;
        const double own = plot(viewer);
        const double bare = plot(painter);
        const bool ahead = !entry.ahead || (own < plot(qwt) && own < plot(qCustomPlot));
        const double p99 = quantile(sample.whole, 0.99) / 1000.0;
        QString paints = QString::number(sample.fewestPaints);
        if (sample.mostPaints != sample.fewestPaints)
            paints += QStringLiteral(" to %1").arg(sample.mostPaints);
        lines << row(
            { QLatin1String(entry.name), bare > 0.0 ? number(bare, 0) : QStringLiteral("-"),
              goalText(entry), QStringLiteral("**%1**").arg(ratio(own, bare)),
              ratio(plot(qwt), bare), ratio(plot(qCustomPlot), bare),
              entry.goal > 0.0 ? verdict(own <= entry.goal * bare && ahead) : QStringLiteral("-"),
              paints, number(median(sample.whole) / 1000.0, 2), number(p99, 2),
              verdict(p99 <= limitMs) });
    }
    return lines;
}

QStringList report::growthTable(const Measurements &one, const Measurements &six)
{
    constexpr OperationGoal goals[]
        = { { Operation::CursorStep, "cursor step", 1.15 }, { Operation::Pan, "pan", 2.4 } };
    QStringList lines = head({ QStringLiteral("operation"), QStringLiteral("one trace, us"),
                               QStringLiteral("six, us"), QStringLiteral("growth"),
                               QStringLiteral("goal"), QString() });
    for (const OperationGoal &goal : goals) {
        const double few = median(one.value(viewer).value(goal.operation).plot);
        const double many = median(six.value(viewer).value(goal.operation).plot);
        lines << row({ QLatin1String(goal.name), number(few, 0), number(many, 0), ratio(many, few),
                       number(goal.goal, 2), verdict(many <= few * goal.goal) });
    }
    return lines;
}
