// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/trace_table.h"

#include "base/qtcompat.h"
#include "calc/numeric.h"
#include "calc/readout.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace calc {

namespace {

constexpr int commentLimit = 20; ///< lines
constexpr int distanceDigits = 4; ///< 0.1 mm
constexpr int timeDigits = 2; ///< ns; a count is 1.25 ns

constexpr QLatin1String between = constants::latin1(" | ");

QString metresText(const TraceTable &table, qint64 column)
{
    const double metres = static_cast<double>(column) * table.metresPerCount;
    return QString::number(metres, 'f', distanceDigits);
}

QString nanosecondsText(qint64 column)
{
    return QString::number(static_cast<double>(column) * constants::nsPerCount, 'f', timeDigits);
}

QString slotText(int slot)
{
    return QStringLiteral("trace %1").arg(slot + 1);
}

/// \a name on one line, unprintable characters and those in \a unwanted replaced by blanks.
QString cleaned(const QString &name, const QString &unwanted)
{
    QString result = name;
    for (QChar &letter : result)
        if ((!letter.isPrint() && !letter.isSurrogate()) || unwanted.contains(letter))
            letter = QLatin1Char(' ');
    return result.simplified();
}

// ---- Comments ----

QString place(const TraceTable &table, qint64 column)
{
    return metresText(table, column) + QLatin1String(" m") + between + nanosecondsText(column)
        + QLatin1String(" ns");
}

QStringList traceFacts(const TraceTable &table, const TableTrace &trace)
{
    const Protocol_VX840::CH_PARAMS_t params = trace.params;
    const auto number = [](auto value) { return QString::number(value); };
    QStringList facts{ cleaned(trace.file, QStringLiteral(",;\"")) };
    if (trace.date.isValid())
        facts.append(trace.date.toString(Qt::ISODate) + QLatin1Char(' ')
                     + trace.time.toString(Qt::ISODate));
    facts.append(QStringLiteral("step %1 ns").arg(double{ params.sample_minstep }));
    facts.append(QStringLiteral("delay %1 samples").arg(trace.trace.delay));
    facts.append(QStringLiteral("shifts %1 m and %2 levels")
                     .arg(metresText(table, trace.trace.scroll), number(trace.trace.offset)));
    facts.append(QStringLiteral("pulse %1 ns and %2 V")
                     .arg(number(quint32{ params.pulse_width }), number(params.pulse_amplitude)));
    facts.append(QStringLiteral("impedance %1 ohm").arg(params.impedance));
    facts.append(QStringLiteral("gain %1").arg(params.gain));
    facts.append(QStringLiteral("average %1").arg(params.average));
    if (trace.slot == table.master)
        facts.append(QStringLiteral("master"));
    if (trace.slot == table.selected)
        facts.append(QStringLiteral("selected"));
    return facts;
}

/// The reflections, in at most \a room lines.
QStringList reflectionLines(const TraceTable &table, int room)
{
    const auto count = static_cast<int>(table.reflections.size());
    const int perLine = (count + room - 1) / room;
    QStringList lines;
    for (int i = 0; i < count; ++i) {
        const Reflection &reflection = table.reflections[i];
        const QString text = QStringLiteral("reflection %1: %2 | level %3 | %4")
                                 .arg(QString::number(i + 1), place(table, reflection.column),
                                      QString::number(reflection.level),
                                      QLatin1String(reflection.positive ? "positive" : "negative"));
        if (i % perLine == 0)
            lines.append(text);
        else
            lines.last() += between + text;
    }
    return lines;
}

QStringList comments(const TraceTable &table)
{
    QStringList lines{ QStringLiteral(
        "Velkor | levels in sample steps | distances and levels include the shifts") };
    const double halfSpeed = table.metresPerCount / constants::nsPerCount * 1000.0;
    lines.append(
        QStringLiteral("KU = c/v = %1 | velocity factor v/c = %2 | v/2 = %3 m/us")
            .arg(kuText(table.ku), kuText(1.0F / table.ku), QString::number(halfSpeed, 'f', 1)));
    if (table.difference && table.master >= 0)
        lines.append(
            QStringLiteral("differences: %1 minus each other trace").arg(slotText(table.master)));
    for (qtcompat::Size i = 0; i < table.cursors.size(); ++i) {
        const CursorPoint &cursor = table.cursors[i];
        lines.append(QStringLiteral("cursor %1: ").arg(QLatin1Char(i == 0 ? 'A' : 'B'))
                     + place(table, cursor.column));
        if (cursor.level != constants::noLevel)
            lines.last() += QStringLiteral(" | level %1").arg(cursor.level);
    }
    if (table.cursors.size() == 2)
        lines.append(QStringLiteral("between the cursors: ")
                     + place(table, qAbs(table.cursors[0].column - table.cursors[1].column)));
    for (const TableTrace &trace : table.traces)
        lines.append(slotText(trace.slot) + QLatin1String(": ")
                     + traceFacts(table, trace).join(between));
    const int room = std::max(1, commentLimit - static_cast<int>(lines.size()));
    return (lines + reflectionLines(table, room)).mid(0, commentLimit);
}

// ---- Rows ----

QString quoted(const QString &field)
{
    QString text = field;
    return QLatin1Char('"') + text.replace(QLatin1Char('"'), QLatin1String("\"\""))
        + QLatin1Char('"');
}

bool isDifference(const TraceTable &table, const TableTrace &trace)
{
    return table.difference && table.master >= 0 && trace.slot != table.master;
}

QString header(const TraceTable &table, QChar separator)
{
    QString row = quoted(QStringLiteral("distance (m)")) + separator
        + quoted(QStringLiteral("echo time (ns)"));
    for (const TableTrace &trace : table.traces) {
        QString title = slotText(trace.slot);
        if (isDifference(table, trace))
            title = slotText(table.master) + QLatin1String(" - ") + title;
        row += separator + quoted(title + QLatin1String(": ") + cleaned(trace.file, QString()));
    }
    return row;
}

/// Positions of the samples of a column: the step, and the position of a sample modulo the step.
using Grid = std::pair<qint64, qint64>;

Grid gridOf(const TraceRef &trace)
{
    const qint64 step = boundedStep(trace);
    const qint64 rest = trace.scroll % step;
    return { step, rest < 0 ? rest + step : rest };
}

/// Rows of one grid: the fields at each position, one for each column of the table.
struct Block
{
    Grid grid;
    std::map<qint64, QStringList> rows;
};

std::vector<Block> blocksOf(const TraceTable &table)
{
    std::vector<Block> blocks;
    QVector<QPointF> points;
    QStringList empty;
    for (int i = 0; i < table.traces.size(); ++i)
        empty.append(QString());
    for (int i = 0; i < table.traces.size(); ++i) {
        const TableTrace &trace = table.traces[i];
        const bool difference = isDifference(table, trace);
        if (difference)
            splineDifference(table.masterTrace, trace.trace, points);
        else
            splinePoints(trace.trace, points);
        // A difference has levels only where the master has samples.
        const Grid grid = gridOf(difference ? table.masterTrace : trace.trace);
        auto block = std::find_if(blocks.begin(), blocks.end(),
                                  [&grid](const Block &other) { return other.grid == grid; });
        if (block == blocks.end())
            block = blocks.insert(blocks.end(), { grid, {} });
        for (const QPointF &point : std::as_const(points)) {
            const auto row = block->rows.emplace(static_cast<qint64>(point.x()), empty);
            row.first->second[i] = QString::number(truncated(point.y()));
        }
    }
    return blocks;
}

} // namespace

Decimals decimalsOf(const QLocale &locale)
{
    return QString(locale.decimalPoint()) == QLatin1String(",") ? Decimals::Comma : Decimals::Point;
}

QString tableText(const TraceTable &table)
{
    const bool withComma = table.decimals == Decimals::Comma;
    const QChar separator = QLatin1Char(withComma ? ';' : ',');
    // Quoted, because some spreadsheets take both commas and semicolons for separators.
    const auto decimal = [withComma](QString number) {
        return withComma ? quoted(number.replace(QLatin1Char('.'), QLatin1Char(','))) : number;
    };
    QString text;
    const QStringList head = comments(table);
    for (const QString &line : head)
        text += QLatin1String("# ") + line + QLatin1Char('\n');
    text += header(table, separator) + QLatin1Char('\n');
    for (const Block &block : blocksOf(table))
        for (const auto &row : block.rows)
            text += decimal(metresText(table, row.first)) + separator
                + decimal(nanosecondsText(row.first)) + separator + row.second.join(separator)
                + QLatin1Char('\n');
    return text;
}

QByteArray tableFile(const TraceTable &table)
{
    const QByteArray text = tableText(table).toUtf8();
    const bool isAscii = std::all_of(text.begin(), text.end(),
                                     [](char c) { return static_cast<uchar>(c) < 0x80; });
    return isAscii ? text : "\xEF\xBB\xBF" + text;
}

} // namespace calc
