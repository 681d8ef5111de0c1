#pragma once

#include "platform/text/IndexSet.h"
#include "platform/text/TextSearch.h"
#include <vector>

/// Finds the delimiters of comments and the like in a text of any length, and remembers where it
/// has looked in vain, so that the next search walks only over what nobody has walked over. For one
/// text, whose edits it has to be told of; its thread.
class DelimiterIndex
{
public:
    /// `stride`: units that one look ahead looks at from either end.
    explicit DelimiterIndex(qsizetype stride = 0x40000) : m_stride(stride) {}

    /// Where the first occurrence in the range begins, searching backward the last; NotFound for
    /// none, and for an empty delimiter.
    qsizetype find(const platform::TextStorage &storage, const QString &delimiter,
                   platform::TextRange range,
                   platform::SearchDirection direction = platform::SearchDirection::Forward,
                   Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);

    /// Looks a little farther, for a fraction of a millisecond, from both ends of the text to the
    /// first and the last occurrence. True while there is more to look at.
    bool lookAhead(const platform::TextStorage &storage, const QString &delimiter);

    void textDidChange(platform::TextRange range, qsizetype changeInLength);
    void clear() { m_known.clear(); }

private:
    struct Known
    {
        QString delimiter;
        Qt::CaseSensitivity sensitivity;
        platform::IndexSet vain; ///< Where no occurrence begins.
    };

    platform::IndexSet &vainPlaces(const QString &delimiter, Qt::CaseSensitivity sensitivity);

    qsizetype m_stride;
    std::vector<Known> m_known; ///< A handful.
};
