#include "platform/text/HiddenLines.h"

#include <algorithm>

namespace platform {

std::vector<HiddenLines::Stretch>::const_iterator HiddenLines::find(qsizetype line) const
{
    const auto at = std::ranges::lower_bound(m_stretches, line, {}, &Stretch::last);
    return at != m_stretches.end() && at->first <= line ? at : m_stretches.end();
}

qsizetype HiddenLines::shownAtOrAfter(qsizetype line) const
{
    if (isEmpty())
        return line;
    const auto at = find(line);
    return at == m_stretches.end() ? line : at->last + 1;
}

qsizetype HiddenLines::shownAtOrBefore(qsizetype line) const
{
    if (isEmpty())
        return line;
    const auto at = find(line);
    return at == m_stretches.end() ? line : at->first - 1;
}

// Neighbours become one too, so that a line beside a stretch is always shown.
void HiddenLines::hide(Stretch lines)
{
    const auto from = std::ranges::lower_bound(m_stretches, lines.first - 1, {}, &Stretch::last);
    const auto to = std::ranges::upper_bound(m_stretches, lines.last + 1, {}, &Stretch::first);
    if (from < to) {
        lines.first = qMin(lines.first, from->first);
        lines.last = qMax(lines.last, std::prev(to)->last);
    }
    m_stretches.insert(m_stretches.erase(from, to), lines);
    countLines();
}

bool HiddenLines::show(qsizetype line)
{
    const auto at = find(line);
    if (at == m_stretches.end())
        return false;
    m_stretches.erase(at);
    countLines();
    return true;
}

void HiddenLines::clear()
{
    m_stretches.clear();
    m_count = 0;
}

bool HiddenLines::textDidChange(qsizetype first, qsizetype last, qsizetype added)
{
    const qsizetype lastBefore = last - added;
    const size_t shown = std::erase_if(m_stretches, [=](const Stretch &lines) {
        const bool isParted = added != 0 && first == lastBefore && lines.first == first + 1;
        return isParted || (lines.last >= first && lines.first <= lastBefore);
    });
    for (Stretch &lines : m_stretches) {
        if (lines.first > lastBefore) {
            lines.first += added;
            lines.last += added;
        }
    }
    countLines();
    return shown > 0;
}

void HiddenLines::countLines()
{
    m_count = 0;
    for (const Stretch &lines : m_stretches)
        m_count += lines.last - lines.first + 1;
}

} // namespace platform
