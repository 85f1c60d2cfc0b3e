// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/style_text.h"

#include "base/constants.h"

#include <QFileInfo>
#include <QImageReader>
#include <QString>
#include <QVector>

#include <algorithm>

namespace {

constexpr int longestEscape = 6; ///< hexadecimal digits of one character

/// A sheet as the toolkit reads it, each character with its place in the text.
struct Decoded
{
    QString text;
    QVector<int> origin; ///< one more than characters: the last is the end of the text
};

/// Characters \a begin up to, not including, \a end of a decoded sheet.
struct Stretch
{
    int begin;
    int end;
};

bool isHexDigit(QChar c)
{
    const ushort u = c.unicode();
    return (u >= '0' && u <= '9') || (u >= 'a' && u <= 'f') || (u >= 'A' && u <= 'F');
}

bool isQuote(QChar c)
{
    return c == QLatin1Char('"') || c == QLatin1Char('\'');
}

Decoded decoded(const QString &sheet)
{
    Decoded result;
    result.text.reserve(sheet.size());
    result.origin.reserve(sheet.size() + 1);
    for (int i = 0; i < sheet.size();) {
        const int start = i;
        QChar c = sheet[i++];
        if (c == QLatin1Char('\\')) {
            int digits = 0;
            while (digits < longestEscape && i + digits < sheet.size()
                   && isHexDigit(sheet[i + digits]))
                ++digits;
            bool fits = false;
            const QString number = sheet.mid(i, digits);
            const ushort code = number.toUShort(&fits, 16);
            // Any other backslash is left out, as the toolkit does, and what follows stands as it
            // is.
            if (!fits)
                continue;
            c = QChar(code);
            i += digits;
        }
        result.text.append(c);
        result.origin.append(start);
    }
    result.origin.append(static_cast<int>(sheet.size()));
    return result;
}

Stretch trimmed(const QString &text, Stretch part)
{
    while (part.begin < part.end && text[part.begin].isSpace())
        ++part.begin;
    while (part.begin < part.end && text[part.end - 1].isSpace())
        --part.end;
    return part;
}

/// What stands in the brackets that opened before \a begin, without quotes and blanks around it.
Stretch argumentAt(const QString &text, int begin)
{
    Stretch part{ begin, begin };
    int depth = 1;
    QChar quote;
    for (; part.end < text.size(); ++part.end) {
        const QChar c = text[part.end];
        if (!quote.isNull())
            quote = c == quote ? QChar() : quote;
        else if (isQuote(c))
            quote = c;
        else if (c == QLatin1Char('('))
            ++depth;
        else if (c == QLatin1Char(')') && --depth == 0)
            break;
    }
    part = trimmed(text, part);
    if (part.end - part.begin >= 2 && isQuote(text[part.begin])
        && text[part.end - 1] == text[part.begin])
        return { part.begin + 1, part.end - 1 };
    return part;
}

QVector<Stretch> urlArguments(const QString &text)
{
    const QLatin1String opening("url(");
    const int length = static_cast<int>(opening.size());
    QVector<Stretch> arguments;
    for (int at = static_cast<int>(text.indexOf(opening)); at >= 0;) {
        const Stretch part = argumentAt(text, at + length);
        arguments.append(part);
        // From here and not from its end: an unclosed bracket must not hide what comes after.
        at = static_cast<int>(text.indexOf(opening, at + length));
    }
    return arguments;
}

/// Words that may be paths: a slash is in them.
QVector<Stretch> pathWords(const QString &text)
{
    const QLatin1String separators("()<>={};,\"'");
    QVector<Stretch> words;
    Stretch word{ 0, 0 };
    bool hasSlash = false;
    for (int i = 0; i <= text.size(); ++i) {
        if (i < text.size() && !text[i].isSpace() && !separators.contains(text[i])) {
            hasSlash = hasSlash || text[i] == QLatin1Char('/');
            continue;
        }
        word.end = i;
        if (hasSlash)
            words.append(word);
        word.begin = i + 1;
        hasSlash = false;
    }
    return words;
}

bool mayHoldUp(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isDir() && (!info.isFile() || info.size() == 0);
}

/// True when the toolkit, asked for the picture \a path, might open what it must not.
bool isDangerous(const QString &path)
{
    if (path.isEmpty() || path.startsWith(QLatin1Char(':')) || path.contains(QChar(0)))
        return false;
    if (QFileInfo::exists(path))
        return mayHoldUp(path);
    // A picture that is not found is looked for under each ending of a picture.
    static const QList<QByteArray> endings = QImageReader::supportedImageFormats();
    return std::any_of(endings.begin(), endings.end(), [&path](const QByteArray &ending) {
        return mayHoldUp(path + QLatin1Char('.') + QLatin1String(ending));
    });
}

} // namespace

bool style_text::isReasonable(const QByteArray &sheet)
{
    const auto isCostly
        = [](char c) { return c == '{' || c == ',' || c == ';' || c == '\\' || c == '('; };
    return std::count_if(sheet.begin(), sheet.end(), isCostly) <= constants::maxStyleSheetParts;
}

QString style_text::withoutPipes(const QString &sheet)
{
    const Decoded plain = decoded(sheet);
    QVector<Stretch> names = urlArguments(plain.text);
    if (plain.text.contains(QLatin1String("qproperty-"), Qt::CaseInsensitive))
        names += pathWords(plain.text);
    names.erase(std::remove_if(names.begin(), names.end(),
                               [&plain](const Stretch &name) {
                                   return !isDangerous(
                                       plain.text.mid(name.begin, name.end - name.begin));
                               }),
                names.end());
    if (names.isEmpty())
        return sheet;
    std::sort(names.begin(), names.end(),
              [](const Stretch &a, const Stretch &b) { return a.begin < b.begin; });
    QString rest;
    int done = 0;
    for (const Stretch &name : qAsConst(names)) {
        const int begin = plain.origin[name.begin];
        if (begin > done)
            rest.append(sheet.constData() + done, begin - done);
        done = qMax(done, plain.origin[name.end]);
    }
    return rest + sheet.mid(done);
}
