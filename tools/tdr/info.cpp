// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tdr/info.h"

#include "tdr/fields.h"
#include "tdr/streams.h"

#include <QJsonArray>
#include <QStringList>

#include <cmath>

namespace tdr {

namespace {

constexpr int numberDigits = 7; ///< significant digits of a number that is not whole
constexpr int nameWidth = 24; ///< letters; the longest name has 21

QString numberText(double value)
{
    const bool isWhole = value == std::floor(value);
    return isWhole ? QString::number(value, 'f', 0) : QString::number(value, 'g', numberDigits);
}

QString valueText(const Field &field)
{
    const QString text
        = field.value.isDouble() ? numberText(field.value.toDouble()) : field.value.toString();
    if (text.isEmpty())
        return QStringLiteral("-");
    return field.unit.isEmpty() ? text : text + QLatin1Char(' ') + field.unit;
}

QString entryLine(const QVector<Field> &fields)
{
    QStringList parts;
    for (const Field &field : fields)
        parts.append(field.name + QLatin1Char(' ') + valueText(field));
    return QStringLiteral("  ") + parts.join(QStringLiteral(", ")) + QLatin1Char('\n');
}

QString alignedLines(const QVector<Field> &fields)
{
    QString lines;
    for (const Field &field : fields)
        lines += QStringLiteral("  ") + field.name.leftJustified(nameWidth) + valueText(field)
            + QLatin1Char('\n');
    return lines;
}

QJsonObject jsonOf(const QVector<Field> &fields)
{
    QJsonObject object;
    for (const Field &field : fields)
        object.insert(field.unit.isEmpty() ? field.name
                                           : field.name + QLatin1Char('_') + field.unit,
                      field.value);
    return object;
}

} // namespace

QString infoText(const QString &file, const QByteArray &bytes, bool all)
{
    QString text = shownName(file) + QLatin1Char('\n');
    const QVector<Section> sections = sectionsOf(bytes, all);
    for (const Section &section : sections) {
        text += section.name + QLatin1Char('\n');
        for (const QVector<Field> &fields : section.entries)
            text += section.isList ? entryLine(fields) : alignedLines(fields);
    }
    return text;
}

QJsonObject infoJson(const QString &file, const QByteArray &bytes, bool all)
{
    QJsonObject object{ { QStringLiteral("file"), file } };
    const QVector<Section> sections = sectionsOf(bytes, all);
    for (const Section &section : sections) {
        QJsonArray list;
        for (const QVector<Field> &fields : section.entries)
            list.append(jsonOf(fields));
        object.insert(section.name, section.isList ? QJsonValue(list) : list.first());
    }
    return object;
}

} // namespace tdr
