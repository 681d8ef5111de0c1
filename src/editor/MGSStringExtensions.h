#pragma once

#include "platform/text/TextRange.h"
#include <QStringView>

/// Columns of a text, zero-based, with tabs running to the next multiple of the width; a tab of
/// width 0 takes no room. Every UTF-16 unit but a tab is one column wide, and the character behind
/// a newline character (LF, VT, FF, CR, U+0085, U+2028, U+2029) is in column 0.

/// The column of the character at the index, which is 0 to the string's length.
qsizetype mgs_columnOfCharacter(QStringView string, qsizetype index, qsizetype tabWidth);

/// The index of the character that covers the column; that of a newline character, if it comes
/// before; `platform::NotFound` past the end.
qsizetype mgs_characterInColumn(QStringView string, qsizetype column, qsizetype tabWidth);

/// How many characters of `whitespaceCharacterSet` (blanks of all widths, and the tab) it begins
/// with.
qsizetype mgs_leadingWhitespace(QStringView string);

bool mgs_isWhitespace(QChar character);
bool mgs_isNewline(QChar character);
