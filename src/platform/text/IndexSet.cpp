#include "platform/text/IndexSet.h"

namespace platform {

IndexSet::Iterator IndexSet::firstEndingBehind(qsizetype index) const
{
    return std::upper_bound(m_ranges.begin(), m_ranges.end(), index,
                            [](qsizetype at, TextRange range) { return at < range.end(); });
}

void IndexSet::insert(TextRange range)
{
    if (range.isEmpty())
        return;
    const auto first = std::lower_bound(
        m_ranges.begin(), m_ranges.end(), range.location,
        [](TextRange other, qsizetype location) { return other.end() < location; });
    auto last = first;
    for (; last != m_ranges.end() && last->location <= range.end(); ++last)
        range = range.united(*last);
    if (first == last) {
        m_ranges.insert(first, range);
        return;
    }
    *first = range;
    m_ranges.erase(first + 1, last);
}

void IndexSet::remove(TextRange range)
{
    if (range.isEmpty())
        return;
    auto first = m_ranges.begin() + (firstEndingBehind(range.location) - m_ranges.begin());
    if (first == m_ranges.end() || first->location >= range.end())
        return;
    if (first->location < range.location) {
        const TextRange whole = *first;
        *first = TextRange::between(whole.location, range.location);
        ++first;
        if (whole.end() > range.end()) {
            m_ranges.insert(first, TextRange::between(range.end(), whole.end()));
            return;
        }
    }
    auto last = first;
    while (last != m_ranges.end() && last->end() <= range.end())
        ++last;
    if (last != m_ranges.end() && last->location < range.end())
        *last = TextRange::between(range.end(), last->end());
    m_ranges.erase(first, last);
}

bool IndexSet::contains(TextRange range) const
{
    return firstGap(range).isEmpty();
}

TextRange IndexSet::firstGap(TextRange range) const
{
    const auto at = firstEndingBehind(range.location);
    if (at == m_ranges.end() || at->location >= range.end())
        return range;
    if (at->location > range.location)
        return TextRange::between(range.location, at->location);
    const qsizetype start = std::min(at->end(), range.end());
    const auto next = at + 1;
    const qsizetype limit = next == m_ranges.end() ? range.end() : next->location;
    return TextRange::between(start, std::min(limit, range.end()));
}

TextRange IndexSet::lastGap(TextRange range) const
{
    if (range.isEmpty())
        return range;
    const auto at = firstEndingBehind(range.end() - 1);
    const auto before = [&](Iterator other) {
        return other == m_ranges.begin() ? range.location
                                         : std::max(range.location, (other - 1)->end());
    };
    if (at == m_ranges.end() || at->location >= range.end())
        return TextRange::between(before(at), range.end());
    const qsizetype end = std::max(at->location, range.location);
    return TextRange::between(std::min(before(at), end), end);
}

void IndexSet::shift(qsizetype index, qsizetype distance)
{
    if (distance == 0)
        return;
    if (distance < 0)
        remove(TextRange::between(std::max<qsizetype>(0, index + distance), index));
    auto at = m_ranges.begin() + (firstEndingBehind(index) - m_ranges.begin());
    if (at != m_ranges.end() && at->location < index) { // is cut in two
        const TextRange whole = *at;
        *at = TextRange::between(whole.location, index);
        at = m_ranges.insert(at + 1, TextRange::between(index, whole.end()));
    }
    const auto moved = at;
    for (; at != m_ranges.end(); ++at)
        at->location += distance;
    if (moved != m_ranges.begin() && moved != m_ranges.end() &&
        (moved - 1)->end() == moved->location) {
        *(moved - 1) = (moved - 1)->united(*moved);
        m_ranges.erase(moved);
    }
}

} // namespace platform
