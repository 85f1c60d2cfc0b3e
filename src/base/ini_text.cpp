// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ini_text.h"

#include <QChar>

namespace {

#ifdef Q_OS_WIN
constexpr char lineEnd[] = "\r\n";
#else
constexpr char lineEnd[] = "\n";
#endif

bool isHexDigit(int c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// The letter after a backslash that stands for \a c, or 0.
char escapeLetter(ushort c)
{
    switch (c) {
    case '\a':
        return 'a';
    case '\b':
        return 'b';
    case '\f':
        return 'f';
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    case '\t':
        return 't';
    case '\v':
        return 'v';
    case '"':
    case '\\':
        return static_cast<char>(c);
    default:
        return 0;
    }
}

QByteArray escaped(const QString &value)
{
    QByteArray text;
    bool quoted = value.startsWith(QLatin1Char(' ')) || value.endsWith(QLatin1Char(' '));
    bool afterNumber = false;
    for (const QChar character : value) {
        const ushort c = character.unicode();
        quoted = quoted || c == ';' || c == ',' || c == '=';
        const char letter = escapeLetter(c);
        // A digit behind a numeric escape would be read as part of it.
        if ((afterNumber && isHexDigit(c)) || (letter == 0 && c != 0 && (c < 0x20 || c >= 0x7f))) {
            text += "\\x" + QByteArray::number(c, 16);
            afterNumber = true;
        } else if (c == 0) {
            text += "\\0";
            afterNumber = true;
        } else {
            if (letter != 0) {
                text += '\\';
            }
            text += letter != 0 ? letter : static_cast<char>(c);
            afterNumber = false;
        }
    }
    return quoted ? '"' + text + '"' : text;
}

} // namespace

void IniText::beginGroup(const QString &name)
{
    m_group = name;
}

void IniText::setValue(const QString &key, const QString &value)
{
    QString text = value;
    if (text.contains(QChar(QChar::Null))) {
        text = QLatin1String("@String(") + text + QLatin1Char(')');
    } else if (text.startsWith(QLatin1Char('@'))) {
        text.prepend(QLatin1Char('@'));
    }
    m_sections[m_group][key] = escaped(text);
}

void IniText::setValue(const QString &key, int value)
{
    m_sections[m_group][key] = QByteArray::number(value);
}

void IniText::setValue(const QString &key, const QByteArray &value)
{
    const QString text = QString::fromLatin1(value.constData(), value.size());
    m_sections[m_group][key] = escaped(QLatin1String("@ByteArray(") + text + QLatin1Char(')'));
}

QByteArray IniText::bytes() const
{
    QByteArray text;
    for (auto section = m_sections.cbegin(); section != m_sections.cend(); ++section) {
        if (!text.isEmpty()) {
            text += lineEnd;
        }
        const QByteArray name = section.key().isEmpty() ? "General" : section.key().toLatin1();
        text += '[' + name + ']' + lineEnd;
        for (auto value = section->cbegin(); value != section->cend(); ++value) {
            text += value.key().toLatin1() + '=' + value.value() + lineEnd;
        }
    }
    return text;
}

namespace {

/// The number behind a backslash at \a i of \a ini, cut to 16 bits as QSettings cuts it; \a i is
/// moved past it.
int escapedNumber(const QByteArray &ini, int &i)
{
    const bool hex = ini.at(i) == 'x';
    unsigned number = 0;
    i += hex ? 1 : 0;
    while (i < ini.size()) {
        const char c = ini.at(i);
        if (hex ? !isHexDigit(c) : (c < '0' || c > '7')) {
            break;
        }
        const int digit = QByteArray(1, c).toInt(nullptr, 16);
        number = (number * (hex ? 16U : 8U) + static_cast<unsigned>(digit)) & 0xffffU;
        ++i;
    }
    return static_cast<int>(number);
}

/// \a ini without all that may stand between the letters of a value and not be part of it: quotes,
/// blanks, line ends, unknown escapes, bytes that an encoding may swallow.
QByteArray bareText(const QByteArray &ini)
{
    QByteArray bare;
    bare.reserve(ini.size());
    int i = 0;
    while (i < ini.size()) {
        int c = ini.at(i);
        if (c == '\\' && i + 1 < ini.size()) {
            ++i;
            if (ini.at(i) == 'x' || (ini.at(i) >= '0' && ini.at(i) <= '7')) {
                c = escapedNumber(ini, i);
            } else {
                ++i;
                continue;
            }
        } else {
            ++i;
        }
        if (c > ' ' && c < 0x7f && c != '"') {
            bare += static_cast<char>(c);
        }
    }
    return bare;
}

} // namespace

bool holdsSerialisedObject(const QByteArray &ini)
{
    const QByteArray bare = bareText(ini);
    // A value starts behind the equals sign, an item of a list behind a comma.
    for (const char *mark : { "=@Variant(", ",@Variant(", "=@DateTime(", ",@DateTime(" }) {
        if (bare.contains(mark)) {
            return true;
        }
    }
    return false;
}
