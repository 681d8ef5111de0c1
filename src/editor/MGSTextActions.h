#pragma once

#include "platform/text/TextStorage.h"
#include <vector>

/// What the commands of a code editor make of a text: pure functions, apart from views. Line ends
/// of all kinds stay as they are. Widths and columns count UTF-16 units, tabs expanded.
namespace mgs {

struct IndentStyle
{
    qsizetype tabWidth = 4;
    bool indentWithSpaces = false;
};

/// As many tabs as fit, if tabs are wanted and one fits, and blanks for the rest.
QString indentString(qsizetype width, const IndentStyle &style);

/// Each line's leading whitespace made wider by `by` columns, or narrower, 0 at the least.
QString shifted(const QString &text, qsizetype by, const IndentStyle &style);

/// Two or more blanks before a tab stop made a tab, anywhere in the line. 0: nothing changes.
QString entabbed(const QString &text, qsizetype numberOfSpaces);

/// Each tab made blanks up to the next stop. 0: tabs are removed.
QString detabbed(const QString &text, qsizetype numberOfSpaces);

/// The token taken from behind the whitespace of each line, if all lines begin with it; else put at
/// the start of each.
QString commentedOrUncommented(const QString &text, const QString &token);

QString withoutNeedlessWhitespace(const QString &text); ///< At the ends of lines.
QString withoutLineEndings(const QString &text);
QString preparedForXML(const QString &text); ///< "&", "<" and ">" as entities; "&amp;" stays.

/// The closing tag for the innermost element that is open at the caret, looking back; null when
/// there is none.
QString closingTag(const platform::TextStorage &text, qsizetype caret);

/// The ranges widened to whole lines with their line ends, those that meet made one; ascending. The
/// empty last line of a text is a range of its own.
std::vector<platform::TextRange> alignedToLines(const platform::TextStorage &text,
                                                const std::vector<platform::TextRange> &ranges);

} // namespace mgs
