#pragma once

#include "platform/text/LineStyle.h"
#include <vector>

namespace platform {

/// One stretch that is selected, or a caret. Selecting on moves the caret and leaves the anchor.
struct TextSelection
{
    qsizetype anchor = 0;
    qsizetype caret = 0;
    TextAffinity affinity = TextAffinity::Downstream; ///< Of the caret.
    qreal goal = -1; ///< x that moving up and down keeps to, in pixels; below 0: the caret's own.

    static TextSelection at(qsizetype index) { return {index, index}; }
    static TextSelection of(TextRange range) { return {range.location, range.end()}; }

    TextRange range() const { return TextRange::between(qMin(anchor, caret), qMax(anchor, caret)); }
    bool isEmpty() const { return anchor == caret; }
    bool operator==(const TextSelection &) const = default;
};

/// The selections of one view: never none, in ascending order, none over another; carets touch no
/// other selection. The main one is that which the user made last; it stays in sight.
class TextSelections
{
public:
    TextSelections() : m_all{{}} {}
    TextSelections(const TextSelection &selection) : m_all{selection} {}
    /// In any order; those that overlap become one. None at all: a caret at the start.
    explicit TextSelections(std::vector<TextSelection> selections, size_t main = 0);
    static TextSelections of(const std::vector<TextRange> &ranges); ///< The last is the main one.

    const std::vector<TextSelection> &all() const { return m_all; }
    const TextSelection &main() const { return m_all[m_main]; }
    std::vector<TextRange> ranges() const;
    bool isMultiple() const { return m_all.size() > 1; }
    bool isEmpty() const; ///< Carets only.

    /// One more, which is the main one from now on. Those that overlap become one.
    void add(const TextSelection &selection);

    /// The text was edited by others (see TextStorage::charactersReplaced): all move with it. What
    /// is put in at the edge of a selection stays out of it.
    void textDidChange(TextRange range, qsizetype changeInLength);

    /// As far as a text of this length has room for them.
    TextSelections within(qsizetype length) const;

    bool operator==(const TextSelections &) const = default;

private:
    void normalize();

    std::vector<TextSelection> m_all;
    size_t m_main = 0;
};

} // namespace platform
