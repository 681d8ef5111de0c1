#pragma once

#include "platform/text/TextRange.h"
#include <vector>

namespace platform {

/// A set of indexes, kept as sorted ranges that do not touch. Changing it costs O(ranges), asking
/// O(log ranges). A value; one thread at a time.
class IndexSet
{
public:
    IndexSet() = default;
    explicit IndexSet(TextRange range) { insert(range); }

    bool isEmpty() const { return m_ranges.empty(); }
    const std::vector<TextRange> &ranges() const { return m_ranges; }

    void insert(TextRange range);
    void remove(TextRange range);
    void clear() { m_ranges.clear(); }

    /// True when all of the range is in the set; nothing always is.
    bool contains(TextRange range) const;

    /// The first (last) stretch of the range that is not in the set; empty when there is none.
    TextRange firstGap(TextRange range) const;
    TextRange lastGap(TextRange range) const;

    /// Indexes from `index` on move by `distance`. Moved up, they leave a gap; moved down, they
    /// take the place of what is in the way.
    void shift(qsizetype index, qsizetype distance);

private:
    using Iterator = std::vector<TextRange>::const_iterator;
    Iterator firstEndingBehind(qsizetype index) const;

    std::vector<TextRange> m_ranges;
};

} // namespace platform
