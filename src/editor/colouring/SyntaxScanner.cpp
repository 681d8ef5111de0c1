#include "editor/colouring/SyntaxScanner.h"

#include "platform/Log.h"
#include "platform/text/TextBlock.h"

#include <algorithm>

using platform::CharacterSet;
using platform::TextRange;

namespace {

bool isLineEnd(char16_t unit)
{
    if (unit > u'\r' && unit < 0x80) // most are
        return false;
    return platform::endsLine(unit);
}

} // namespace

Qt::CaseSensitivity SyntaxScanner::sensitivity(const QString &string)
{
    const bool hasCase = std::any_of(string.begin(), string.end(), [](QChar unit) {
        return unit.unicode() >= 0x80 || unit.isLetter();
    });
    return hasCase ? Qt::CaseInsensitive : Qt::CaseSensitive;
}

void SyntaxScanner::setLocation(qsizetype location)
{
    if (location > m_text.size())
        platform::log("Invalid scan location %lu > max of %lu", size_t(location),
                      size_t(m_text.size()));
    m_location = std::min(location, m_text.size());
}

bool SyntaxScanner::scanUpTo(const QString &string)
{
    const qsizetype found =
        string.isEmpty() ? -1 : m_text.indexOf(string, m_location, sensitivity(string));
    return moveTo(found < 0 ? m_text.size() : found);
}

bool SyntaxScanner::scanUpTo(const CharacterSet &set)
{
    const auto found = std::find_if(m_text.begin() + m_location, m_text.end(),
                                    [&set](QChar unit) { return set.contains(unit); });
    return moveTo(found - m_text.begin());
}

bool SyntaxScanner::scan(const CharacterSet &set)
{
    const auto found = std::find_if_not(m_text.begin() + m_location, m_text.end(),
                                        [&set](QChar unit) { return set.contains(unit); });
    return moveTo(found - m_text.begin());
}

bool SyntaxScanner::moveTo(qsizetype location)
{
    const bool moved = location != m_location;
    m_location = location;
    return moved;
}

TextRange SyntaxScanner::line(qsizetype index)
{
    const auto isParted = [this](qsizetype at) {
        const char16_t before = m_text[at - 1].unicode();
        return isLineEnd(before) && !(before == u'\r' && at < m_text.size() && m_text[at] == u'\n');
    };
    if (m_line.contains(index))
        return m_line;
    qsizetype start = index;
    while (start > 0 && !isParted(start))
        --start;
    const QChar *const last = m_text.end();
    const QChar *end = std::find_if(m_text.begin() + index, last,
                                    [](QChar unit) { return isLineEnd(unit.unicode()); });
    if (end != last) {
        const bool isCarriageReturn = *end++ == u'\r';
        end += isCarriageReturn && end != last && *end == u'\n' ? 1 : 0;
    }
    return m_line = TextRange::between(start, end - m_text.begin());
}
