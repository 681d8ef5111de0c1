#include "editor/MGSHighlightWriter.h"

#include <span>

using platform::TemporaryAttributes;
using platform::TextAttribute;
using platform::TextAttributeKeys;
using platform::TextAttributes;
using platform::TextRange;

namespace {

constexpr auto highlightKeys = TextAttributeKeys(TextAttribute::BackgroundColor) |
                               TextAttribute::ToolTip | TextAttribute::UnderlineStyle;

/// Puts the highlights, which lie in the range, in place of all that are there.
void replaceHighlights(TemporaryAttributes &attributes, TextRange range,
                       std::span<const MGSErrorHighlight> highlights)
{
    const TextAttributes nothing;
    qsizetype at = range.location;
    auto next = highlights.begin();
    attributes.replace(highlightKeys, range, [&]() -> TemporaryAttributes::Stretch {
        const qsizetype start = next == highlights.end() ? range.end() : next->range.location;
        if (start > at)
            return {start - std::exchange(at, start), &nothing};
        at = next->range.end();
        return {next->range.length, &(next++)->attributes};
    });
}

} // namespace

void MGSHighlightWriter::forget()
{
    m_written.clear();
    m_edit.reset();
}

void MGSHighlightWriter::textDidChange(TextRange range, qsizetype changeInLength)
{
    if (!m_edit)
        m_edit = {{range.location, range.length - changeInLength}, 0};
    const qsizetype start = qMin(m_edit->range.location, range.location);
    const qsizetype end = qMax(m_edit->range.end(), range.end() - changeInLength) + changeInLength;
    m_edit = {TextRange::between(start, end), m_edit->changeInLength + changeInLength};
}

void MGSHighlightWriter::write(platform::LayoutManager &layout, Highlights highlights)
{
    const auto [before, behind] = kept(highlights);
    const std::span differing(highlights.begin() + qsizetype(before),
                              highlights.end() - qsizetype(behind));
    const std::span old(m_written.begin() + qsizetype(before), m_written.end() - qsizetype(behind));
    std::optional<TextRange> range;
    const auto add = [&range](TextRange part) {
        range = range ? range->united(part) : part;
    };
    if (m_edit)
        add(m_edit->range);
    if (!differing.empty())
        add(differing.front().range.united(differing.back().range));
    if (!old.empty())
        add(moved(old.front().range.united(old.back().range)));
    if (range && !range->isEmpty())
        layout.changeTemporaryAttributes(*range, [&](TemporaryAttributes &attributes) {
            replaceHighlights(attributes, *range, differing);
        });
    m_written = std::move(highlights);
    m_edit.reset();
}

// What ends before an edit is where it was, what begins behind it has moved with the text.
MGSHighlightWriter::Kept MGSHighlightWriter::kept(const Highlights &highlights) const
{
    const size_t most = qMin(highlights.size(), m_written.size());
    Kept kept;
    const auto isSame = [&](size_t written, size_t index, qsizetype distance) {
        return m_written[written].range.movedBy(distance) == highlights[index].range &&
               m_written[written].attributes == highlights[index].attributes;
    };
    while (kept.before < most && isSame(kept.before, kept.before, 0) &&
           (!m_edit || m_written[kept.before].range.end() <= m_edit->range.location))
        ++kept.before;
    const qsizetype distance = m_edit ? m_edit->changeInLength : 0;
    while (kept.behind < most - kept.before) {
        const size_t written = m_written.size() - 1 - kept.behind;
        if (!isSame(written, highlights.size() - 1 - kept.behind, distance) ||
            (m_edit && m_written[written].range.location < m_edit->oldEnd()))
            break;
        ++kept.behind;
    }
    return kept;
}

TextRange MGSHighlightWriter::moved(TextRange old) const
{
    if (!m_edit)
        return old;
    const auto place = [this](qsizetype index, qsizetype within) {
        if (index <= m_edit->range.location)
            return index;
        return index >= m_edit->oldEnd() ? index + m_edit->changeInLength : within;
    };
    return TextRange::between(place(old.location, m_edit->range.location),
                              place(old.end(), m_edit->range.end()));
}
