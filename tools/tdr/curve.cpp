// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tdr/curve.h"

#include <QRegularExpression>
#include <QStringList>

#include <cmath>

namespace tdr {

namespace {

constexpr int tableColumns = 3; ///< of the viewer's table of one trace: metres, ns, level

/// What \a pattern captures in \a line; empty when it does not match.
QString captured(const QString &line, const QRegularExpression &pattern)
{
    return pattern.match(line).captured(1);
}

/// Reads the facts in a comment of the viewer's table; ignores other comments.
void readComment(const QString &line, Curve &curve)
{
    static const QRegularExpression ku(QStringLiteral("^# KU = c/v = ([0-9.]+) "));
    static const QRegularExpression shift(QStringLiteral("^# trace .* m and (-?[0-9]+) levels"));
    static const QRegularExpression date(
        QStringLiteral("^# trace .* \\| ([0-9-]{10} [0-9:]{8}) \\| step "));
    if (line.startsWith(QLatin1String("# KU")))
        curve.ku = captured(line, ku).toDouble();
    if (!line.startsWith(QLatin1String("# trace")))
        return;
    curve.levelShift = captured(line, shift).toShort();
    curve.date = QDateTime::fromString(captured(line, date), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QChar separatorOf(const QString &line)
{
    for (const QChar separator : { QLatin1Char(';'), QLatin1Char('\t') })
        if (line.contains(separator))
            return separator;
    // Blanks with no comma beside them are separators; then commas are decimal commas.
    static const QRegularExpression blanks(QStringLiteral("[^,\\s]\\s+[^,\\s]"));
    const bool hasCommas = line.contains(QLatin1Char(',')) && !line.contains(blanks);
    return QLatin1Char(hasCommas ? ',' : ' ');
}

QStringList cellsOf(const QString &line, QChar separator)
{
    const bool isBlank = separator == QLatin1Char(' ');
    QStringList cells = isBlank ? line.simplified().split(separator) : line.split(separator);
    for (QString &cell : cells)
        cell = cell.remove(QLatin1Char('"')).trimmed();
    return cells;
}

bool readNumber(QString cell, double &value)
{
    bool isNumber = false;
    value = cell.replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
    return isNumber && std::isfinite(value);
}

/// Sets the unit of the places as \a header names it.
bool readUnit(const QString &header, Curve &curve)
{
    static const QRegularExpression unit(QStringLiteral("\\b(ns|m)\\b"));
    const QString found = captured(header, unit);
    curve.isTime = found == QLatin1String("ns");
    return !found.isEmpty();
}

/// Finds the column of the places and their unit. \a header is the line above the numbers.
QString readHeader(const QString &header, QChar separator, int columns, Curve &curve, int &place)
{
    place = 0;
    if (columns < 2)
        return QStringLiteral("there is one column, not a distance or time and a level");
    if (columns > tableColumns)
        return QStringLiteral("there are %1 columns, more than one trace").arg(columns);
    if (header.isEmpty() && columns == 2)
        return {};
    const QStringList names = cellsOf(header, separator);
    if (columns == tableColumns) {
        place = 1;
        return names.value(1) == QLatin1String("echo time (ns)") && readUnit(names[1], curve)
            ? QString()
            : QStringLiteral("there are 3 columns, not a distance or time and a level");
    }
    return readUnit(names.constFirst(), curve)
        ? QString()
        : QStringLiteral("the first column must be named after its unit, m or ns");
}

} // namespace

QString readCurve(const QByteArray &text, Curve &curve)
{
    const QStringList lines
        = QString::fromUtf8(text).remove(QChar(QChar::ByteOrderMark)).split(QLatin1Char('\n'));
    QString header;
    QChar separator;
    int columns = 0;
    int place = 0;
    for (int i = 0; i < lines.size(); ++i) {
        const QString line = lines[i].trimmed();
        if (line.startsWith(QLatin1Char('#')))
            readComment(line, curve);
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        double first = 0.0;
        if (columns == 0) {
            const QChar found = separatorOf(line);
            const QStringList cells = cellsOf(line, found);
            if (!readNumber(cells.constFirst(), first)) {
                header = line;
                continue;
            }
            separator = found;
            columns = static_cast<int>(cells.size());
            QString reason = readHeader(header, separator, columns, curve, place);
            if (!reason.isEmpty())
                return reason;
        }
        const QStringList cells = cellsOf(line, separator);
        Curve::Point point;
        if (cells.size() != columns || !readNumber(cells[place], point.place)
            || !readNumber(cells.constLast(), point.level))
            return QStringLiteral("line %1 does not hold %2 numbers").arg(i + 1).arg(columns);
        if (!curve.points.isEmpty() && !(point.place > curve.points.constLast().place))
            return QStringLiteral("line %1 lies before the line above it").arg(i + 1);
        curve.points.append(point);
    }
    return curve.points.size() >= 2 ? QString()
                                    : QStringLiteral("there are not two rows of numbers");
}

} // namespace tdr
