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
    /// Where the first occurrence in the range begins, searching backward the last; NotFound for
    /// none, and for an empty delimiter.
    qsizetype find(const platform::TextStorage &storage, const QString &delimiter,
                   platform::TextRange range,
                   platform::SearchDirection direction = platform::SearchDirection::Forward,
                   Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);

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

    std::vector<Known> m_known; ///< A handful.
};
