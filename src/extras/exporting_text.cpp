// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/exporting_text.h"

#include "calc/readout.h"
#include "calc/tdr_record.h"
#include "dictionary.h"
#include "mainwindow.h"

#include <QFileInfo>
#include <QLocale>

#include <algorithm>
#include <vector>

namespace extras {

namespace {

QString number(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

bool isLoaded(const MainWindow &window, int slot)
{
    return checkbit(window.state().rfg_read_index, slot);
}

/// The series that shows the trace of \a slot, or would if it were not hidden.
const QtCharts::QXYSeries &seriesOf(const MainWindow &window, int slot)
{
    const MainWindowParts &parts = window.parts();
    if (window.state().smooth_rfg_flag)
        return *parts.rfg_series_sp[slot];
    return *parts.rfg_series[slot];
}

bool isShown(const MainWindow &window, int slot)
{
    return isLoaded(window, slot) && seriesOf(window, slot).isVisible();
}

double metresOf(const MainWindow &window, int column)
{
    return calc::countsToMetres(column, window.state().dist_coef);
}

/// True when \a letter can be seen and ends no line.
bool isOnLine(QChar letter)
{
    return letter.isPrint() && letter.category() != QChar::Separator_Line
        && letter.category() != QChar::Separator_Paragraph;
}

QString levelOf(int level)
{
    return level == constants::noLevel ? QStringLiteral("none") : QString::number(level);
}

/// From where to where a trace has one level, in counts.
struct Tread
{
    double from = 0.0;
    double to = 0.0; ///< not itself, but when it is \c from
    double level = 0.0;
};

using Treads = std::vector<Tread>;

/// All levels of the trace of \a slot as it is drawn, from left to right.
Treads treadsOf(const MainWindow &window, int slot)
{
    const QVector<QPointF> points = qtcompat::pointsOf(seriesOf(window, slot));
    const int pointsPerSample = window.state().smooth_rfg_flag ? 1 : 2;
    Treads treads;
    for (int i = 0; i < points.size(); i += pointsPerSample) {
        const bool hasEnd = pointsPerSample == 2 && i + 1 < points.size();
        treads.push_back({ points[i].x(), points[hasEnd ? i + 1 : i].x(), points[i].y() });
    }
    return treads;
}

/// The level at \a column, with a decimal point; empty where there is none.
QString levelAt(const Treads &treads, double column)
{
    const auto after = std::upper_bound(treads.begin(), treads.end(), column,
                                        [](double x, const Tread &t) { return x < t.from; });
    if (after == treads.begin())
        return {};
    const Tread &tread = *std::prev(after);
    return column < tread.to || column <= tread.from ? number(tread.level) : QString();
}

/// One line of the head: a name and what it stands for.
class Head
{
public:
    void add(const char *name, const QString &value)
    {
        m_text += QStringLiteral("# %1: ").arg(QLatin1String(name)) + value + QLatin1Char('\n');
    }

    void trace(int slot, const char *name, const QString &value)
    {
        m_text += QStringLiteral("# trace %1 %2: ").arg(slot + 1).arg(QLatin1String(name)) + value
            + QLatin1Char('\n');
    }

    const QString &text() const
    {
        return m_text;
    }

private:
    QString m_text = QStringLiteral("# Velkor, traces as shown; levels in sample steps\n");
};

QString metresAndCounts(const MainWindow &window, int column)
{
    return QStringLiteral("%1 m, count %2").arg(number(metresOf(window, column))).arg(column);
}

QString slotName(int slot)
{
    const bool isSlot = slot >= 0 && slot < constants::slotCount;
    return isSlot ? QStringLiteral("trace %1").arg(slot + 1) : QStringLiteral("none");
}

void addView(Head &head, const MainWindow &window)
{
    const MainWindowState &state = window.state();
    const MainWindowParts &parts = window.parts();
    const bool difference = state.diff_flag == MainWindow::DIFF;
    head.add("velocity factor", number(double{ state.master_params.KU }));
    head.add("metres per count", number(state.dist_coef));
    head.add("nanoseconds per count", number(constants::nsPerCount));
    head.add("view from", metresAndCounts(window, qRound(parts.cust_axisX->min())));
    head.add("view to", metresAndCounts(window, qRound(parts.cust_axisX->max())));
    head.add("scale", QString::number(state.master_scale));
    head.add("drawn as",
             state.smooth_rfg_flag ? QStringLiteral("curves") : QStringLiteral("steps"));
    head.add("differences", difference ? QStringLiteral("from the master") : QStringLiteral("no"));
    head.add("master", state.master_is_set ? slotName(state.rfg_master_ID) : slotName(-1));
    head.add("selected", slotName(state.rfg_ID));
    const auto cursor = [&](const char *name, int column, int level) {
        head.add(name,
                 metresAndCounts(window, column) + QStringLiteral(", level ") + levelOf(level));
    };
    cursor("cursor A", state.cursor_A_pos, state.cursor_A_pos_Y);
    cursor("cursor B", state.cursor_B_pos, state.cursor_B_pos_Y);
    head.add("active cursor",
             state.Cur_flag == MainWindow::CURSOR_A       ? QStringLiteral("A")
                 : state.Cur_flag == MainWindow::CURSOR_B ? QStringLiteral("B")
                                                          : QStringLiteral("none"));
    head.add("distance from A to B",
             number(metresOf(window, qAbs(state.cursor_A_pos - state.cursor_B_pos)))
                 + QStringLiteral(" m"));
}

void addTrace(Head &head, const MainWindow &window, int slot)
{
    const rfg_SHOWN &trace = window.state().rfg_DATA[slot];
    // Copied, because fields of a packed record must not be bound to references.
    const Protocol_VX840::CH_PARAMS_t params = trace.f_p_840.ch.params;
    const auto add = [&](const char *name, const QString &value) { head.trace(slot, name, value); };
    add("file", quoted(trace.full_path));
    add("date", trace.date.toString(Qt::ISODate));
    add("time", trace.time.toString(Qt::ISODate));
    add("shown", isShown(window, slot) ? QStringLiteral("yes") : QStringLiteral("no"));
    add("sampling step", number(double{ params.sample_minstep }) + QStringLiteral(" ns"));
    add("counts per sample", QString::number(calc::usableStep(trace.coef_from_min)));
    add("start delay", QString::number(quint32{ params.delay }) + QStringLiteral(" samples"));
    add("horizontal shift", metresAndCounts(window, trace.scroll));
    add("vertical shift", QString::number(trace.offset));
    add("gain", QString::number(int{ params.gain }));
    add("averages", QString::number(int{ params.average }));
    add("pulse width", QString::number(quint32{ params.pulse_width }) + QStringLiteral(" ns"));
    add("pulse amplitude", QString::number(int{ params.pulse_amplitude }) + QStringLiteral(" V"));
    add("impedance", QString::number(int{ params.impedance }) + QStringLiteral(" ohms"));
    add("velocity factor of the file", number(double{ params.KU }));
}

/// What the levels of \a slot are levels of. No title needs quotes, nor looks like a date or a sum.
QString titleOf(const MainWindow &window, int slot)
{
    if (!window.isDrawnAsDifference(slot))
        return slotName(slot);
    return slotName(window.state().rfg_master_ID) + QStringLiteral(" - ") + slotName(slot);
}

} // namespace

QString readings(const MainWindow &window)
{
    const MainWindowState &state = window.state();
    const Dictionary &words = *window.parts().d;
    const QString separator = QStringLiteral(", ");
    const QString equals = QStringLiteral(" = ");
    QString text;
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        if (!isLoaded(window, slot))
            continue;
        const rfg_SHOWN &trace = state.rfg_DATA[slot];
        QStringList facts;
        // A name may hold line breaks, where the system allows it.
        const QString file = QFileInfo(trace.full_path).fileName().simplified();
        if (!file.isEmpty())
            facts.append(file);
        if (trace.date.isValid())
            facts.append(QLocale::system().toString(trace.date, QLocale::ShortFormat)
                         + QLatin1Char(' ') + trace.time.toString(Qt::TextDate));
        facts.append(words.H_OFFSET_STR + equals + window.count_to_distance(trace.scroll));
        facts.append(words.V_OFFSET_STR + equals + QString::number(trace.offset));
        text += words.RFG_STR + QStringLiteral(" %1: ").arg(slot + 1) + facts.join(separator)
            + QLatin1Char('\n');
    }
    const auto cursor = [&](const QString &name, int column, int level) {
        text += name + QStringLiteral(": x = ") + window.count_to_distance(column);
        if (level != constants::noLevel)
            text += QStringLiteral(", y = ") + window.count_to_level(level);
        text += QLatin1Char('\n');
    };
    cursor(words.CURSOR_A_STR, state.cursor_A_pos, state.cursor_A_pos_Y);
    cursor(words.CURSOR_B_STR, state.cursor_B_pos, state.cursor_B_pos_Y);
    text += words.DELTA_STR + equals
        + window.count_to_distance(qAbs(state.cursor_A_pos - state.cursor_B_pos))
        + QLatin1Char('\n');
    return text + words.KU_STR + equals + calc::kuText(state.master_params.KU) + QLatin1Char('\n');
}

QByteArray table(const MainWindow &window)
{
    Head head;
    addView(head, window);
    QString titles = QStringLiteral("metres");
    std::vector<Treads> traces;
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        if (isLoaded(window, slot))
            addTrace(head, window, slot);
        if (!isShown(window, slot))
            continue;
        titles += QLatin1Char(',') + titleOf(window, slot);
        traces.push_back(treadsOf(window, slot));
    }

    const QtCharts::QValueAxis &axis = *window.parts().cust_axisX;
    std::vector<double> columns;
    for (const Treads &treads : traces)
        for (const Tread &tread : treads)
            if (tread.from >= axis.min() && tread.from <= axis.max())
                columns.push_back(tread.from);
    std::sort(columns.begin(), columns.end());
    columns.erase(std::unique(columns.begin(), columns.end()), columns.end());

    QString text = head.text() + titles + QLatin1Char('\n');
    for (const double column : columns) {
        text += number(metresOf(window, qRound(column)));
        for (const Treads &treads : traces)
            text += QLatin1Char(',') + levelAt(treads, column);
        text += QLatin1Char('\n');
    }
    return text.toUtf8();
}

QString quoted(const QString &text)
{
    QString result(QLatin1Char('"'));
    for (const QChar letter : text) {
        if (letter == QLatin1Char('"') || letter == QLatin1Char('\\'))
            result += QLatin1Char('\\') + letter;
        else if (letter == QLatin1Char('\n'))
            result += QStringLiteral("\\n");
        else if (isOnLine(letter) || letter.isSurrogate())
            result += letter;
        else
            result += QStringLiteral("\\u%1").arg(letter.unicode(), 4, 16, QLatin1Char('0'));
    }
    return result + QLatin1Char('"');
}

} // namespace extras
