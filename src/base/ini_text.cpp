// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ini_text.h"

#include "base/constants.h"
#include "base/qtcompat.h"

#include <QChar>

#include <algorithm>
#include <tuple>

namespace {

using qtcompat::Size;

#ifdef Q_OS_WIN
constexpr char lineEnd[] = "\r\n";
constexpr bool namesIgnoreCase = true;
#else
constexpr char lineEnd[] = "\n";
constexpr bool namesIgnoreCase = false;
#endif

/// Letters of escape sequences and, at the same index, their characters. The last two are read but
/// never written.
constexpr QLatin1String escapeLetters = constants::latin1("abfnrtv\"\\?'");
constexpr QLatin1String escapedCharacters = constants::latin1("\a\b\f\n\r\t\v\"\\?'");
constexpr int writtenEscapes = 9;

/// Value of the hexadecimal digit \a c; 16 or more when it is none.
unsigned digitOf(QChar c)
{
    return static_cast<unsigned>(QLatin1String("0123456789abcdef").indexOf(c.toLower()));
}

bool isBlank(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t');
}

QByteArray escaped(const QString &value)
{
    QByteArray text;
    bool quoted = value.startsWith(QLatin1Char(' ')) || value.endsWith(QLatin1Char(' '));
    bool afterNumber = false;
    for (const QChar character : value) {
        const ushort c = character.unicode();
        quoted = quoted || c == ';' || c == ',' || c == '=';
        const auto letter = escapedCharacters.left(writtenEscapes).indexOf(character);
        if (letter >= 0) {
            text += '\\';
            text += escapeLetters.at(letter).toLatin1();
            afterNumber = false;
        } else if (c == 0) {
            text += "\\0";
            afterNumber = true;
        } else if (c < 0x20 || c >= 0x7f || (afterNumber && digitOf(character) < 16)) {
            // Also escapes a digit after an escaped number, which would be read as part of it.
            text += "\\x" + QByteArray::number(c, 16);
            afterNumber = true;
        } else {
            text += static_cast<char>(c);
            afterNumber = false;
        }
    }
    return quoted ? '"' + text + '"' : text;
}

} // namespace

void IniWriter::beginGroup(const QString &name)
{
    m_section = name.toLatin1();
}

void IniWriter::setValue(const QString &key, const QString &value)
{
    QString text = value;
    if (text.contains(QChar(QChar::Null)))
        text = QLatin1String("@String(") + text + QLatin1Char(')');
    else if (text.startsWith(QLatin1Char('@')))
        text.prepend(QLatin1Char('@'));
    m_entries.append({ m_section, key.toLatin1(), escaped(text) });
}

void IniWriter::setValue(const QString &key, int value)
{
    m_entries.append({ m_section, key.toLatin1(), QByteArray::number(value) });
}

void IniWriter::setValue(const QString &key, const QByteArray &value)
{
    const QString text = QString::fromLatin1(value.constData(), value.size());
    m_entries.append({ m_section, key.toLatin1(),
                       escaped(QLatin1String("@ByteArray(") + text + QLatin1Char(')')) });
}

QByteArray IniWriter::bytes(Order order) const
{
    QVector<Entry> entries = m_entries;
    if (order == Sorted)
        std::sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) {
            return std::tie(a.section, a.key) < std::tie(b.section, b.key);
        });
    QByteArray text;
    QByteArray section;
    for (const Entry &entry : qAsConst(entries)) {
        if (text.isEmpty() || entry.section != section) {
            section = entry.section;
            text += text.isEmpty() ? "" : lineEnd;
            text += '[' + (section.isEmpty() ? "General" : section) + ']' + lineEnd;
        }
        text += entry.key + '=' + entry.value + lineEnd;
    }
    return text;
}

namespace {

/// A line "key=value" of an INI text.
struct Entry
{
    QString key;
    QString value;
    bool hasValue = false;
};

/// Reads the escape sequence of \a ini whose backslash is before \a at: appends its character to
/// \a text and moves \a at to its last letter. Line breaks and unknown letters have no character.
/// Numbers are truncated to 16 bits.
void appendEscape(const QString &ini, Size &at, QString &text)
{
    const QChar c = at < ini.size() ? ini.at(at) : QChar(QLatin1Char('\n'));
    const auto letter = escapeLetters.indexOf(c);
    const bool isOctal = c >= QLatin1Char('0') && c <= QLatin1Char('7');
    if (letter >= 0) {
        text += escapedCharacters.at(letter);
    } else if (isOctal || c == QLatin1Char('x')) {
        const unsigned base = isOctal ? 8 : 16;
        const Size first = isOctal ? at : at + 1;
        unsigned code = 0;
        for (at = first; at < ini.size() && digitOf(ini.at(at)) < base; ++at)
            code = code * base + digitOf(ini.at(at));
        if (at > first)
            text += QChar(static_cast<ushort>(code));
        --at;
    }
}

/// Takes the line that starts at \a at and moves \a at to its end: a line break or a semicolon that
/// is neither quoted nor behind a backslash. A list, which is divided by commas, has no value.
Entry takeEntry(const QString &ini, Size &at)
{
    const Size begin = at;
    Entry entry;
    QString text;
    Size kept = 0; // size of the text without the blanks at its end
    bool quoted = false;
    bool wasQuoted = false;
    bool skipsBlanks = true;
    bool isList = false;
    for (; at < ini.size(); ++at) {
        const QChar c = ini.at(at);
        if (!quoted && (c == QLatin1Char('\n') || c == QLatin1Char(';')))
            break;
        if (c == QLatin1Char('"')) {
            quoted = !quoted;
            wasQuoted = true;
            skipsBlanks = true;
        } else if (c == QLatin1Char('\\')) {
            appendEscape(ini, ++at, text);
            skipsBlanks = false;
        } else if (c == QLatin1Char('=') && !quoted && !entry.hasValue) {
            entry.hasValue = true;
            entry.key = ini.mid(begin, at - begin).trimmed();
            text.clear();
            isList = false;
            wasQuoted = false;
            skipsBlanks = true;
        } else if (quoted || !skipsBlanks || !isBlank(c)) {
            isList = isList || (c == QLatin1Char(',') && !quoted);
            text += c;
            skipsBlanks = false;
        }
        if (wasQuoted || !isBlank(c))
            kept = text.size();
    }
    if (!isList)
        entry.value = text.left(kept);
    return entry;
}

QString unescapedName(const QString &name)
{
    // %41 is A.
    const QString text = QString::fromLatin1(QByteArray::fromPercentEncoding(name.toLatin1()));
    return namesIgnoreCase ? text.toLower() : text;
}

/// Prefix of the keys in the section that \a line opens.
QString sectionOf(const QString &line)
{
    const QString name = line.mid(1).section(QLatin1Char(']'), 0, 0).trimmed();
    if (name.compare(QLatin1String("general"), Qt::CaseInsensitive) == 0)
        return {};
    return unescapedName(name) + QLatin1Char('/');
}

} // namespace

IniReader::IniReader(const QByteArray &bytes)
{
    const QByteArray utf8Mark("\xef\xbb\xbf");
    QString ini = bytes.startsWith(utf8Mark) ? QString::fromUtf8(bytes.mid(utf8Mark.size()))
                                             : qtcompat::settingsText(bytes);
    ini.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    ini.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    QString section;
    for (Size at = 0; at < ini.size();) {
        const QChar first = ini.at(at);
        if (isBlank(first) || first == QLatin1Char('\n')) {
            ++at;
        } else if (first == QLatin1Char(';')) {
            const Size end = ini.indexOf(QLatin1Char('\n'), at);
            at = end < 0 ? ini.size() : end;
        } else {
            const Size begin = at;
            const Entry entry = takeEntry(ini, at);
            if (first == QLatin1Char('['))
                section = sectionOf(ini.mid(begin, at - begin));
            else if (entry.hasValue)
                m_values.insert(section + unescapedName(entry.key), entry.value);
        }
    }
}

void IniReader::beginGroup(const QString &name)
{
    m_section = name.isEmpty() ? QString() : name + QLatin1Char('/');
}

QVariant IniReader::value(const QString &key, const QVariant &fallback) const
{
    const QString name = m_section + key;
    const auto found = m_values.constFind(namesIgnoreCase ? name.toLower() : name);
    if (found == m_values.constEnd())
        return fallback;
    const QString &text = *found;
    const auto isType = [&text](const char *type) {
        return text.startsWith(QLatin1String(type)) && text.endsWith(QLatin1Char(')'));
    };
    const auto inside = [&text] { return text.section(QLatin1Char('('), 1).chopped(1); };
    // Not decoded: an object states its size and nesting, so a corrupt one can end the program.
    if (isType("@Variant(") || isType("@DateTime("))
        return fallback;
    if (isType("@Rect(") || isType("@Size(") || isType("@Point(")
        || text == QLatin1String("@Invalid()"))
        return {};
    if (isType("@ByteArray("))
        return inside().toLatin1();
    if (isType("@String("))
        return inside();
    return text.startsWith(QLatin1String("@@")) ? text.mid(1) : text;
}
