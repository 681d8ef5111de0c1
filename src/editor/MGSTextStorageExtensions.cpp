#include "editor/MGSTextStorageExtensions.h"

#include "platform/text/TextSearch.h"

using platform::NotFound;
using platform::TextRange;
using platform::TextStorage;

qsizetype mgs_lineCount(const TextStorage &text)
{
    return text.lineCount();
}

qsizetype mgs_rowOfCharacter(const TextStorage &text, qsizetype index)
{
    return index >= 0 && index <= text.length() ? text.lineAt(index) : NotFound;
}

qsizetype mgs_firstCharacterInRow(const TextStorage &text, qsizetype row)
{
    return row >= 0 && row < text.lineCount() ? text.lineStart(row) : NotFound;
}

qsizetype mgs_characterAtIndex(const TextStorage &text, qsizetype index, qsizetype withinRow)
{
    if (mgs_firstCharacterInRow(text, withinRow) == NotFound)
        return NotFound;
    const TextRange contents = text.lineContents(withinRow);
    return contents.location + qBound(qsizetype(0), index, contents.length);
}

TextRange mgs_lineRangeForCharacterIndex(const TextStorage &text, qsizetype index)
{
    return index >= 0 && index <= text.length() ? text.lineRange({index, 0})
                                                : TextRange::notFound();
}

namespace {

/// Walks over the range to the first `target` that no `nested` character before it has taken.
qsizetype findPartner(const TextStorage &text, TextRange range, platform::SearchDirection direction,
                      char16_t target, char16_t nested)
{
    qsizetype depth = 0;
    return platform::indexOfCharacter(
        text,
        [&](char16_t unit) {
            if (unit == target)
                return depth-- == 0;
            depth += unit == nested;
            return false;
        },
        range, direction);
}

} // namespace

qsizetype mgs_beginningOfNestedBlock(const TextStorage &text, qsizetype index,
                                     char16_t openedByCharacter, char16_t closedByCharacter)
{
    return findPartner(text, {0, qBound(qsizetype(0), index, text.length())},
                       platform::SearchDirection::Backward, openedByCharacter, closedByCharacter);
}

qsizetype mgs_endOfNestedBlock(const TextStorage &text, qsizetype index, char16_t openedByCharacter,
                               char16_t closedByCharacter)
{
    const qsizetype start = index < text.length() ? qMax(qsizetype(0), index + 1) : text.length();
    return findPartner(text, TextRange::between(start, text.length()),
                       platform::SearchDirection::Forward, closedByCharacter, openedByCharacter);
}
