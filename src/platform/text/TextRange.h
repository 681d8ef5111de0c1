#pragma once

#include <algorithm>
#include <limits>
#include <QtGlobal>

namespace platform {

/// The index, row or location of what does not exist.
inline constexpr qsizetype NotFound = std::numeric_limits<qsizetype>::max();

/// A stretch of text in UTF-16 units: `length` units from `location` on. Both are at least 0.
struct TextRange
{
    qsizetype location = 0;
    qsizetype length = 0;

    /// From `location` up to and without `end`, which is not smaller.
    static constexpr TextRange between(qsizetype location, qsizetype end)
    {
        return {location, end - location};
    }

    /// From `reach` units before the index, as far as there are any, to `reach` units behind it.
    static constexpr TextRange around(qsizetype index, qsizetype reach)
    {
        return between(std::max<qsizetype>(0, index - reach), index + reach);
    }

    static constexpr TextRange notFound() { return {NotFound, 0}; }
    constexpr bool isFound() const { return location != NotFound; }

    constexpr qsizetype end() const { return location + length; }
    constexpr bool isEmpty() const { return length == 0; }
    constexpr bool contains(qsizetype index) const { return index >= location && index < end(); }
    constexpr bool operator==(const TextRange &) const = default;

    constexpr TextRange movedBy(qsizetype distance) const { return {location + distance, length}; }

    /// The smallest range that covers both.
    constexpr TextRange united(TextRange other) const
    {
        return between(std::min(location, other.location), std::max(end(), other.end()));
    }

    /// What both share; empty, at this range's nearer end, when they share nothing.
    constexpr TextRange intersected(TextRange other) const
    {
        const qsizetype start = std::clamp(other.location, location, end());
        return between(start, std::clamp(other.end(), start, end()));
    }
};

} // namespace platform
