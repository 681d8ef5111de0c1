#pragma once

#include "platform/text/TextStorage.h"

/// Rows, columns and nested blocks of a text. A row is a zero-based line; whatever the text counts
/// as a line end ends one, and a text that ends in one has one more, empty, row. What does not
/// exist is `platform::NotFound`, and no question is a fault. Rows cost O(log length).

qsizetype mgs_lineCount(const platform::TextStorage &text); ///< At least 1.

/// An index at the text's length lies in the last row; one past it in none.
qsizetype mgs_rowOfCharacter(const platform::TextStorage &text, qsizetype index);

qsizetype mgs_firstCharacterInRow(const platform::TextStorage &text, qsizetype row);

/// The index of an offset within a row. An offset past the row's contents, however large, gives
/// their end, before the line end.
qsizetype mgs_characterAtIndex(const platform::TextStorage &text, qsizetype index,
                               qsizetype withinRow);

/// The line that the index lies in, with its line end; notFound past the text.
platform::TextRange mgs_lineRangeForCharacterIndex(const platform::TextStorage &text,
                                                   qsizetype index);

/// Where the block that `index` lies in is opened: the nearest opening character before the index
/// that no closing one between them belongs to. The character at the index is not looked at.
qsizetype mgs_beginningOfNestedBlock(const platform::TextStorage &text, qsizetype index,
                                     char16_t openedByCharacter, char16_t closedByCharacter);

/// Where it is closed, behind the index.
qsizetype mgs_endOfNestedBlock(const platform::TextStorage &text, qsizetype index,
                               char16_t openedByCharacter, char16_t closedByCharacter);
