#include "editor/colouring/StringPattern.h"

using platform::TextRange;

namespace {

const char *templateFor(StringPattern::Lines lines)
{
    switch (lines) {
    case StringPattern::Lines::One:
        return R"(\W%@[^%@\\\r\n]*+(?:\\(?:.|$)[^%@\\\r\n]*+)*+%@)";
    case StringPattern::Lines::BehindBackslash:
        return R"(\W%@[^%@\\\r\n]*+(?:\\(?:.|$)[^%@\\]*+)*+%@)";
    default:
        return R"(\W%@[^%@\\]*+(?:\\(?:.|$)[^%@\\]*+)*+%@)";
    }
}

bool isPlain(char16_t unit)
{
    return !QStringLiteral("\\^$.|?*+()[]{}-&\r\n").contains(QChar(unit)) &&
           !QChar::isSurrogate(unit);
}

// What a "." does not stand for.
bool endsLine(QChar unit)
{
    return (unit >= u'\n' && unit <= u'\r') || unit == QChar(0x85) || unit == QChar(0x2028) ||
           unit == QChar(0x2029);
}

} // namespace

StringPattern::StringPattern(const QString &delimiter, Lines lines) : m_lines(lines)
{
    if (delimiter.isEmpty())
        return;
    m_pattern = QString::fromLatin1(templateFor(lines)).replace(QStringLiteral("%@"), delimiter);
    if (delimiter.size() == 1 && isPlain(delimiter[0].unicode()))
        m_quote = delimiter[0].unicode();
    else
        m_expression = platform::RegularExpression::compile(m_pattern);
}

std::vector<TextRange> StringPattern::matches(QStringView text)
{
    if (m_quote)
        return scan(text);
    std::vector<TextRange> ranges;
    if (!m_expression)
        return ranges;
    for (const QStringView match : m_expression->matches(text)) {
        if (!match.isEmpty())
            ranges.push_back({match.utf16() - text.utf16(), match.size()});
    }
    return ranges;
}

std::vector<TextRange> StringPattern::scan(QStringView text) const
{
    std::vector<TextRange> ranges;
    qsizetype searched = 0; // no match begins before
    for (qsizetype at = 0; (at = text.indexOf(QChar(m_quote), at)) >= 0;) {
        const bool isPair =
            at - 2 >= searched && text[at - 1].isLowSurrogate() && text[at - 2].isHighSurrogate();
        const qsizetype start = at - (isPair ? 2 : 1);
        if (start < searched ||
            platform::isWordCharacter(isPair ? QChar::surrogateToUcs4(text[start], text[start + 1])
                                             : text[start].unicode())) {
            ++at;
            continue;
        }
        const qsizetype end = endOfString(text, at + 1);
        if (end < text.size() && text[end] == QChar(m_quote)) {
            ranges.push_back(TextRange::between(start, end + 1));
            at = searched = end + 1;
        } else {
            at = end; // the delimiters up to there are escaped, strings from them end there too
        }
    }
    return ranges;
}

// Where the string ends: at the delimiter, or where it cannot go on.
qsizetype StringPattern::endOfString(QStringView text, qsizetype from) const
{
    bool acrossLines = m_lines == Lines::Many;
    for (qsizetype at = from; at < text.size(); ++at) {
        const QChar unit = text[at];
        if (unit == QChar(m_quote) || (!acrossLines && (unit == u'\n' || unit == u'\r')))
            return at;
        if (unit != u'\\')
            continue;
        if (at + 1 == text.size() || endsLine(text[at + 1]))
            return at;
        acrossLines = acrossLines || m_lines == Lines::BehindBackslash;
        ++at;
    }
    return text.size();
}
