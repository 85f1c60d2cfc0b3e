// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "file_text.h"

#include <QFile>
#include <QStringList>
#include <QtEndian>

namespace {

/// \a text in its encoding with escapes undone.
QByteArray plain(const QString &text)
{
    const QByteArray escaped = text.toUtf8();
    QByteArray bytes;
    for (int i = 0; i < escaped.size(); ++i) {
        if (escaped[i] != '\\') {
            bytes.append(escaped[i]);
            continue;
        }
        const char escape = escaped.at(++i);
        const auto control = static_cast<int>(QByteArray("nrt").indexOf(escape));
        if (escape == 'x') {
            bytes.append(QByteArray::fromHex(escaped.mid(i + 1, 2)));
            i += 2;
        } else {
            bytes.append(control < 0 ? escape : "\n\r\t"[control]);
        }
    }
    return bytes;
}

QByteArray utf16(const QByteArray &utf8, bool bigEndian)
{
    QByteArray bytes;
    const QString text = QString::fromUtf8(utf8);
    for (const QChar c : text) {
        const quint16 unit = bigEndian ? qToBigEndian(c.unicode()) : qToLittleEndian(c.unicode());
        bytes.append(reinterpret_cast<const char *>(&unit), sizeof unit);
    }
    return bytes;
}

QByteArray special(const QString &order)
{
    if (order.startsWith(QLatin1String("utf16")))
        return utf16(plain(order.section(QLatin1Char(':'), 1)),
                     order.startsWith(QLatin1String("utf16be")));
    return plain(order.section(QLatin1Char('*'), 1))
        .repeated(order.section(QLatin1Char('*'), 0, 0).toInt());
}

/// The bytes that \a text describes, see corpus::textRows.
QByteArray bytesOfText(const QString &text)
{
    QByteArray bytes;
    int done = 0;
    for (;;) {
        const auto begin = static_cast<int>(text.indexOf(QLatin1String("<<"), done));
        const auto end = static_cast<int>(text.indexOf(QLatin1String(">>"), begin));
        if (begin < 0 || end < 0)
            return bytes + plain(text.mid(done));
        bytes
            += plain(text.mid(done, begin - done)) + special(text.mid(begin + 2, end - begin - 2));
        done = end + 2;
    }
}

} // namespace

std::vector<corpus::TextRow> corpus::textRows(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read the table %s", qPrintable(path));
    std::vector<TextRow> rows;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        if (line.startsWith(QLatin1String("  file")))
            rows.back().bytes = bytesOfText(line.mid(7));
        else if (line.startsWith(QLatin1String("  then ")))
            rows.back().expected = line.mid(7);
        else
            rows.push_back({ line.toUtf8(), {}, {} });
    }
    return rows;
}
