#include "platform/text/TextSelection.h"

namespace platform {

namespace {

bool touches(TextRange first, TextRange second)
{
    const bool isCaret = first.isEmpty() || second.isEmpty();
    return second.location < first.end() || (isCaret && second.location == first.end());
}

// Takes direction and place on the screen from the leader.
TextSelection united(const TextSelection &one, const TextSelection &other,
                     const TextSelection &leader)
{
    const TextRange range = one.range().united(other.range());
    TextSelection result = leader;
    const bool isBackward = leader.caret < leader.anchor;
    result.anchor = isBackward ? range.end() : range.location;
    result.caret = isBackward ? range.location : range.end();
    return result;
}

} // namespace

TextSelections::TextSelections(std::vector<TextSelection> selections, size_t main)
    : m_all(std::move(selections)), m_main(main)
{
    normalize();
}

TextSelections TextSelections::of(const std::vector<TextRange> &ranges)
{
    std::vector<TextSelection> selections;
    selections.reserve(ranges.size());
    for (const TextRange range : ranges)
        selections.push_back(TextSelection::of(range));
    return TextSelections(std::move(selections), ranges.empty() ? 0 : ranges.size() - 1);
}

std::vector<TextRange> TextSelections::ranges() const
{
    std::vector<TextRange> ranges;
    ranges.reserve(m_all.size());
    for (const TextSelection &selection : m_all)
        ranges.push_back(selection.range());
    return ranges;
}

bool TextSelections::isEmpty() const
{
    return std::ranges::all_of(m_all, &TextSelection::isEmpty);
}

void TextSelections::add(const TextSelection &selection)
{
    m_main = m_all.size();
    m_all.push_back(selection);
    normalize();
}

void TextSelections::normalize()
{
    if (m_all.empty())
        m_all = {{}};
    m_main = qMin(m_main, m_all.size() - 1);
    const TextSelection main = m_all[m_main];
    std::ranges::stable_sort(m_all, {}, [](const TextSelection &s) { return s.range().location; });
    size_t kept = 0;
    for (size_t i = 1; i < m_all.size(); ++i) {
        TextSelection &last = m_all[kept];
        const TextSelection next = m_all[i];
        if (touches(last.range(), next.range()))
            last = united(last, next,
                          last.isEmpty() || (next == main && !next.isEmpty()) ? next : last);
        else
            m_all[++kept] = next;
    }
    m_all.resize(kept + 1);
    const auto holdsMain = [&main](const TextSelection &selection) {
        return selection.range().united(main.range()) == selection.range();
    };
    m_main = size_t(std::ranges::find_if(m_all, holdsMain) - m_all.begin());
}

void TextSelections::textDidChange(TextRange range, qsizetype changeInLength)
{
    const qsizetype end = range.end() - changeInLength; // of what was replaced
    const bool isInsertion = end == range.location;
    const auto moved = [&](qsizetype index, bool isStart) {
        if (index < range.location || (index == range.location && !(isInsertion && isStart)))
            return index;
        return index >= end ? index + changeInLength : qMin(index, range.end());
    };
    for (TextSelection &selection : m_all) {
        const bool isForward = selection.anchor < selection.caret;
        const bool isBackward = selection.caret < selection.anchor;
        selection.anchor = moved(selection.anchor, isForward);
        selection.caret = moved(selection.caret, isBackward);
    }
    normalize();
}

TextSelections TextSelections::within(qsizetype length) const
{
    const TextSelection &last = m_all.back();
    if (qMax(last.anchor, last.caret) <= length)
        return *this;
    TextSelections result = *this;
    for (TextSelection &selection : result.m_all) {
        selection.anchor = qMin(selection.anchor, length);
        selection.caret = qMin(selection.caret, length);
    }
    result.normalize();
    return result;
}

} // namespace platform
