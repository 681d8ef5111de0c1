#include "editor/MGSStringExtensions.h"

#include "platform/CharacterSet.h"

using platform::CharacterSet;

namespace {

qsizetype columnBehind(QChar character, qsizetype column, qsizetype tabWidth)
{
    if (character == u'\t')
        return tabWidth > 0 ? column + tabWidth - column % tabWidth : column;
    return mgs_isNewline(character) ? 0 : column + 1;
}

} // namespace

bool mgs_isWhitespace(QChar character)
{
    static const CharacterSet whitespace = CharacterSet::whitespace();
    return whitespace.contains(character);
}

bool mgs_isNewline(QChar character)
{
    static const CharacterSet newlines = CharacterSet::newlines();
    return newlines.contains(character);
}

qsizetype mgs_columnOfCharacter(QStringView string, qsizetype index, qsizetype tabWidth)
{
    qsizetype column = 0;
    for (const QChar character : string.first(index))
        column = columnBehind(character, column, tabWidth);
    return column;
}

qsizetype mgs_characterInColumn(QStringView string, qsizetype column, qsizetype tabWidth)
{
    qsizetype before = 0;
    for (qsizetype index = 0; index < string.size(); ++index) {
        const qsizetype after = columnBehind(string[index], before, tabWidth);
        if (mgs_isNewline(string[index]) || (before <= column && after > column))
            return index;
        before = after;
    }
    return platform::NotFound;
}

qsizetype mgs_leadingWhitespace(QStringView string)
{
    const auto *end = std::ranges::find_if_not(string, mgs_isWhitespace);
    return end - string.begin();
}
