// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "file_text.h"

#include <QFile>
#include <QStringList>

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
        switch (escaped.at(++i)) {
        case 'n':
            bytes.append('\n');
            break;
        case 'r':
            bytes.append('\r');
            break;
        case 't':
            bytes.append('\t');
            break;
        case 'x':
            bytes.append(QByteArray::fromHex(escaped.mid(i + 1, 2)));
            i += 2;
            break;
        default:
            bytes.append(escaped[i]);
        }
    }
    return bytes;
}

QByteArray utf16(const QByteArray &utf8, bool bigEndian)
{
    QByteArray bytes;
    const QString text = QString::fromUtf8(utf8);
    for (const QChar c : text) {
        const char low = static_cast<char>(c.unicode() & 0xFF);
        const char high = static_cast<char>(c.unicode() >> 8);
        bytes.append(bigEndian ? high : low);
        bytes.append(bigEndian ? low : high);
    }
    return bytes;
}

QByteArray special(const QString &order)
{
    const QString utf16Order = QStringLiteral("utf16");
    if (order.startsWith(utf16Order))
        return utf16(plain(order.section(QLatin1Char(':'), 1)),
                     order.startsWith(utf16Order + QStringLiteral("be")));
    return plain(order.section(QLatin1Char('*'), 1))
        .repeated(order.section(QLatin1Char('*'), 0, 0).toInt());
}

} // namespace

QByteArray corpus::bytesOfText(const QString &text)
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

std::vector<corpus::TextRow> corpus::textRows(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no table %s", qPrintable(path));
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
