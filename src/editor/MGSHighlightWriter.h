#pragma once

#include "editor/MGSErrorHighlighter.h"
#include "platform/text/LayoutManager.h"

/// Keeps the temporary attributes of a text as a list of highlights says. It knows what it has
/// written and what has been edited since, so it writes, and has painted, only what differs. Main
/// thread.
class MGSHighlightWriter
{
public:
    using Highlights = std::vector<MGSErrorHighlight>;

    void forget(); ///< Another text, without attributes.

    /// The new text stands in the range, which has become longer by `changeInLength`.
    void textDidChange(platform::TextRange range, qsizetype changeInLength);
    bool hasEdits() const { return m_edit.has_value(); } ///< Since the last writing.

    void write(platform::LayoutManager &layout, Highlights highlights);

private:
    struct Edit
    {
        platform::TextRange range;
        qsizetype changeInLength = 0;

        qsizetype oldEnd() const { return range.end() - changeInLength; }
    };
    /// How many are as they were, before and behind those that are not.
    struct Kept
    {
        size_t before = 0;
        size_t behind = 0;
    };

    Kept kept(const Highlights &highlights) const;
    platform::TextRange moved(platform::TextRange old) const;

    Highlights m_written;
    std::optional<Edit> m_edit;
};
