#include "editor/colouring/DelimiterIndex.h"

using platform::IndexSet;
using platform::NotFound;
using platform::SearchDirection;
using platform::TextRange;

qsizetype DelimiterIndex::find(const platform::TextStorage &storage, const QString &delimiter,
                               TextRange range, SearchDirection direction,
                               Qt::CaseSensitivity sensitivity)
{
    if (delimiter.isEmpty() || range.length < delimiter.size())
        return NotFound;
    const bool forward = direction == SearchDirection::Forward;
    const qsizetype rest = delimiter.size() - 1;
    TextRange starts{range.location, range.length - rest};
    IndexSet &vain = vainPlaces(delimiter, sensitivity);
    for (;;) {
        const TextRange gap = forward ? vain.firstGap(starts) : vain.lastGap(starts);
        if (gap.isEmpty())
            return NotFound;
        const qsizetype found = rangeOfString(storage, delimiter, {gap.location, gap.length + rest},
                                              direction, sensitivity)
                                    .location;
        if (found != NotFound) {
            vain.insert(forward ? TextRange::between(gap.location, found)
                                : TextRange::between(found + 1, gap.end()));
            return found;
        }
        vain.insert(gap);
        starts = forward ? TextRange::between(gap.end(), starts.end())
                         : TextRange::between(starts.location, gap.location);
    }
}

bool DelimiterIndex::lookAhead(const platform::TextStorage &storage, const QString &delimiter)
{
    const qsizetype rest = delimiter.size() - 1;
    const TextRange starts{0, std::max<qsizetype>(0, storage.length() - rest)};
    bool isMore = false;
    for (const auto direction : {SearchDirection::Forward, SearchDirection::Backward}) {
        const bool forward = direction == SearchDirection::Forward;
        const IndexSet &vain = vainPlaces(delimiter, Qt::CaseSensitive);
        const TextRange gap = forward ? vain.firstGap(starts) : vain.lastGap(starts);
        const qsizetype length = std::min(gap.length, m_stride);
        const qsizetype start = forward ? gap.location : gap.end() - length;
        if (length > 0 && find(storage, delimiter, {start, length + rest}, direction) == NotFound)
            isMore = true;
    }
    return isMore;
}

void DelimiterIndex::textDidChange(TextRange range, qsizetype changeInLength)
{
    for (Known &known : m_known) {
        known.vain.shift(range.end() - changeInLength, changeInLength);
        const qsizetype first = std::max<qsizetype>(0, range.location - known.delimiter.size() + 1);
        known.vain.remove(TextRange::between(first, range.end()));
    }
}

IndexSet &DelimiterIndex::vainPlaces(const QString &delimiter, Qt::CaseSensitivity sensitivity)
{
    for (Known &known : m_known) {
        if (known.delimiter == delimiter && known.sensitivity == sensitivity)
            return known.vain;
    }
    m_known.push_back({delimiter, sensitivity, {}});
    return m_known.back().vain;
}
