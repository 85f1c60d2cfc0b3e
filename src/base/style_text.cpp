// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/style_text.h"

#include "base/program_files.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QRegularExpression>
#include <QString>

#include <algorithm>

namespace {

constexpr int maxSize = 256 * 1024; ///< characters
constexpr int maxCost = 16384; ///< takes about 2 s with the widgets of the main window
constexpr int pictureCost = 32; ///< Qt looks for a missing picture under every known suffix
/// Of all pictures together. Pictures that exceed Qt's cache are loaded once for each widget.
constexpr qint64 maxPixels = 2 << 20;
constexpr int maxFactor = 5; ///< of the cost of a rule that may match every widget or button
constexpr double maxNumber = 1e6;
constexpr double maxLength = 4096.0; ///< px
constexpr double maxBox = 256.0; ///< px; padding, margin and border add to a length on both sides
constexpr double maxFont = 128.0; ///< px or pt
constexpr double maxButtonLayout = 3.0; ///< Qt uses the number as an index, unchecked

/// The kinds of tokens, numbered as the groups of \c tokenPattern.
enum TokenKind {
    Sign,
    Blank,
    String,
    Word,
    Function
};

/// Matches one token as Qt splits a sheet; a token in none of the groups is a sign. An unterminated
/// string ends with its line.
const QRegularExpression &tokenPattern()
{
    static const QRegularExpression pattern(
        QStringLiteral(
            R"((\s++|/\*.*?(?:\*/|\z)))" // blanks, a comment
            R"(|("(?:[^"\\\n\r\f]++|\\(?:\r\n|.))*+"?+|'(?:[^'\\\n\r\f]++|\\(?:\r\n|.))*+'?+))"
            R"(|(\.?\d[\d.]*+(?:%|(?:[-\w]|[^\x00-\x7f]|\\.)*+))" // a number with its unit
            R"(|-?(?![-\d])(?:[-\w]|[^\x00-\x7f]|\\.)++(\()?)|.)"),
        QRegularExpression::DotMatchesEverythingOption);
    return pattern;
}

/// \a sheet with its hexadecimal escapes replaced, which Qt does before it looks for tokens.
QString decoded(const QString &sheet)
{
    static const QRegularExpression escape(QStringLiteral(R"(\\([\dA-Fa-f]{1,6}))"));
    QString text;
    int end = 0;
    for (auto matches = escape.globalMatch(sheet); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        bool fits = false;
        const ushort code = match.captured(1).toUShort(&fits, 16);
        if (!fits)
            continue;
        text += sheet.mid(end, int(match.capturedStart()) - end) + QChar(code);
        end = int(match.capturedEnd());
    }
    return text + sheet.mid(end);
}

QString withoutBackslashes(QString text)
{
    static const QRegularExpression pair(QStringLiteral(R"(\\(.))"),
                                         QRegularExpression::DotMatchesEverythingOption);
    return text.contains(QLatin1Char('\\')) ? text.replace(pair, QStringLiteral(R"(\1)")) : text;
}

bool isOneOf(QChar c, const char *characters)
{
    return QLatin1String(characters).contains(c);
}

/// True when reading \a path may block: a pipe, a device, or a system file that reports size 0.
bool mayBlock(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isDir() && (!info.isFile() || info.size() == 0);
}

/// The files that Qt may open when it loads the picture \a path.
QStringList filesOfPicture(const QString &path)
{
    if (path.isEmpty() || path.startsWith(QLatin1Char(':')) || path.contains(QChar(0)))
        return {};
    // A scaled screen prefers "name@2x.png"; a missing picture is looked for under every suffix.
    QStringList names{ path, path.trimmed() };
    const int dot = int(path.lastIndexOf(QLatin1Char('.')));
    for (int n = 2; n <= 9; ++n)
        names += QString(path).insert(dot < 0 ? path.size() : dot, QStringLiteral("@%1x").arg(n));
    static const QList<QByteArray> suffixes = QImageReader::supportedImageFormats();
    for (const QByteArray &suffix : suffixes)
        names += path + QLatin1Char('.') + QLatin1String(suffix);
    names.removeDuplicates();
    return names;
}

/// The number of pixels in the picture file \a path; 0 for anything else.
qint64 pixelsIn(const QString &path)
{
    QFile file(path);
    if (!program_files::openRegularFile(file))
        return 0;
    const QSize size = QImageReader(&file).size();
    return size.isValid() ? qint64{ size.width() } * size.height() : 0;
}

/// Checks a sheet, token by token. Braces and semicolons end its parts.
class Checker
{
public:
    bool accepts(const QString &sheet);

private:
    bool acceptsToken(TokenKind kind, const QString &token);
    bool acceptsNumber(const QString &text) const;
    bool acceptsUrl();
    void countSign(QChar sign);
    void spend(int cost)
    {
        m_cost += m_factor * cost;
    }

    int m_cost = 0; ///< of the tokens so far
    qint64 m_pixels = 0; ///< of all pictures so far
    QChar m_closing; ///< ends the outermost open bracket, null outside
    int m_depth = 0; ///< of brackets, braces within them included
    int m_urlDepth = 0; ///< m_depth at the start of a url(, 0 outside
    QString m_url; ///< its argument, as far as read
    QString m_part; ///< this part, as far as read, comments as blanks
    QString m_property; ///< first word of this part, in lower case
    QChar m_sign; ///< the last sign of this part, null after a word
    int m_commas = 0; ///< in this part
    bool m_isInRule = false;
    int m_factor = 1; ///< of the cost in this rule
};

bool Checker::accepts(const QString &sheet)
{
    int end = 0;
    for (auto tokens = tokenPattern().globalMatch(sheet); tokens.hasNext();) {
        const QRegularExpressionMatch token = tokens.next();
        if (!acceptsToken(TokenKind(token.lastCapturedIndex()), token.captured()))
            return false;
        end = int(token.capturedEnd());
    }
    // A text with half of a surrogate pair has no matches.
    return end == sheet.size() && (m_urlDepth == 0 || acceptsUrl());
}

bool Checker::acceptsToken(TokenKind kind, const QString &token)
{
    const QChar sign = kind == Sign ? token[0] : QChar();
    m_part += kind == Blank ? QStringLiteral(" ") : withoutBackslashes(token);
    if (kind == Sign || kind == Function)
        countSign(token.back());

    if (sign == QLatin1Char(')') && m_depth < m_urlDepth) {
        m_urlDepth = 0;
        return acceptsUrl();
    }
    if (m_urlDepth > 0 && (kind != Blank || !m_url.isEmpty()))
        m_url += token;
    if (m_urlDepth > 0 || kind == Blank)
        return true;
    const QString text
        = withoutBackslashes(kind == String ? token.mid(1, token.size() - 2) : token);
    if (kind == Function && text.toLower() == QLatin1String("url(")) {
        spend(pictureCost);
        m_urlDepth = m_depth;
        m_url.clear();
    }
    if (kind == Word && text.contains(QLatin1String("qproperty-"), Qt::CaseInsensitive))
        return false;
    if (kind == Word && m_property.isEmpty())
        m_property = text.toLower();
    // Object names, colours and the values of selectors are no numbers.
    const bool isValue = (kind == Word || kind == String) && !isOneOf(m_sign, "#=");
    m_sign = sign;
    return m_cost <= maxCost && (!isValue || acceptsNumber(text));
}

bool Checker::acceptsNumber(const QString &text) const
{
    static const QRegularExpression number(
        QStringLiteral(R"(^\s*+([-+]?(?:inf|nan|(?:\d++\.?\d*+|\.\d++)(?:e[-+]?\d++)?)))"
                       R"(\s*+(px|pt|em|ex|cm|mm|in|pc|%)?\s*+$)"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression box(
        QStringLiteral("^(padding|margin|border(?!.*(radius|image)))"));
    static const QRegularExpression length(QStringLiteral("width|height|size|spacing|radius"));
    const QRegularExpressionMatch match = number.match(text);
    if (!match.hasMatch())
        return true;
    const double value = qAbs(match.captured(1).toLower().toDouble());
    const QString unit = match.captured(2).toLower();
    const bool hasUnit = !unit.isEmpty() && unit != QLatin1String("%");
    const double pixels = unit.startsWith(QLatin1Char('e')) ? value * maxFont : value;
    // Qt reads a number without a unit, or with "%", as pixels. Numbers in brackets are no lengths.
    // Every comparison with NaN is false.
    if (m_property == QLatin1String("button-layout"))
        return value <= maxButtonLayout;
    if (hasUnit && m_property.startsWith(QLatin1String("font")))
        return value <= maxFont;
    if (m_closing.isNull() && m_property.contains(box))
        return pixels <= maxBox;
    if (hasUnit || (m_closing.isNull() && m_property.contains(length)))
        return pixels <= maxLength;
    return value <= maxNumber;
}

bool Checker::acceptsUrl()
{
    QString path = withoutBackslashes(m_url);
    if (isOneOf(path.isEmpty() ? QChar() : path[0], "\"'"))
        path = path.mid(1, path.size() - 2);
    const QStringList files = filesOfPicture(path);
    if (path.contains(QLatin1String("url(")) || !acceptsNumber(path)
        || std::any_of(files.cbegin(), files.cend(), mayBlock))
        return false;
    for (const QString &file : files) {
        m_pixels += pixelsIn(file);
        if (m_pixels > maxPixels)
            return false;
    }
    return true;
}

void Checker::countSign(QChar sign)
{
    // Excludes selectors with an object name, which match few widgets.
    static const QRegularExpression general(QStringLiteral(
        R"((?:^|[\s,>+~])[*:.[]|(?:^|[^-\w]))"
        R"((?:Q(?:Widget|Object|AbstractButton|PushButton)|InterfaceButton)(?![-\w#]))"));
    if (m_closing.isNull() && isOneOf(sign, "([")) {
        m_closing = sign == QLatin1Char('(') ? QLatin1Char(')') : QLatin1Char(']');
        m_depth = 1;
    } else if (!m_closing.isNull()) {
        m_depth += int(isOneOf(sign, "([{")) - int(isOneOf(sign, ")]}"));
        if (sign == m_closing && m_depth <= 0)
            m_closing = QChar();
    } else if (sign == QLatin1Char(',')) {
        spend(++m_commas);
    } else if (isOneOf(sign, "{};")) {
        if (sign == QLatin1Char('{'))
            m_factor = m_part.contains(general) ? maxFactor : qMin(1 + m_commas, maxFactor);
        else if (sign == QLatin1Char('}'))
            m_factor = 1;
        else if (!m_isInRule)
            m_factor = maxFactor; // Qt applies declarations without a rule to every widget
        m_isInRule = sign == QLatin1Char('{') || (m_isInRule && sign == QLatin1Char(';'));
        if (sign == QLatin1Char('{') || (sign == QLatin1Char(';') && !m_property.isEmpty()))
            spend(1);
        m_part.clear();
        m_property.clear();
        m_commas = 0;
    }
}

} // namespace

bool style_text::isAcceptable(const QString &sheet)
{
    if (sheet.size() > maxSize)
        return false;
    const QString text = decoded(sheet);
    // Qt decodes the arguments of a gradient twice: decoding must not give another escape.
    return decoded(text) == text && Checker().accepts(text);
}
