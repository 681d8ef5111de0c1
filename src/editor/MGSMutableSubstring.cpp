#include "editor/MGSMutableSubstring.h"

#include "platform/Assert.h"

using platform::NotFound;
using platform::TextRange;
using platform::TextStorage;

namespace {

bool isWithin(TextRange range, qsizetype length)
{
    return range.location >= 0 && range.length >= 0 && range.location <= length &&
           range.length <= length - range.location;
}

[[noreturn]] void raiseRangeException(const QString &reason)
{
    throw platform::Exception(QStringLiteral("NSRangeException"), reason);
}

TextRange checked(TextRange range, qsizetype length)
{
    if (!isWithin(range, length))
        raiseRangeException(
            QStringLiteral("Attempted to create a MGSMutableSubstring from an invalid range!"));
    return range;
}

} // namespace

MGSMutableSubstring::MGSMutableSubstring(TextStorage &superstring, TextRange range)
    : m_storage(&superstring), m_range(checked(range, superstring.length()))
{
}

MGSMutableSubstring::MGSMutableSubstring(MGSMutableSubstring &superstring, TextRange range)
    : m_storage(superstring.m_storage),
      m_parent(&superstring), m_range{superstring.m_range.location +
                                          checked(range, superstring.length()).location,
                                      range.length}
{
}

TextRange MGSMutableSubstring::superstringRangeFromRange(TextRange range) const
{
    return {m_range.location + range.location, isWithin(range, length()) ? range.length : NotFound};
}

void MGSMutableSubstring::replaceCharacters(TextRange range, QStringView string)
{
    if (!isWithin(range, length()))
        raiseRangeException(platform::format(
            QStringLiteral("Range %@ is out of bounds!"),
            platform::format(QStringLiteral("{%ld, %ld}"), range.location, range.length)));
    m_storage->replaceCharacters(superstringRangeFromRange(range), string);
    lengthDidChange(string.size() - range.length);
}

void MGSMutableSubstring::lengthDidChange(qsizetype change)
{
    m_range.length += change;
    if (m_parent)
        m_parent->lengthDidChange(change);
}

MGSMutableSubstring
MGSMutableSubstring::mutableSubstringByLeftTrimmingCharacters(const platform::CharacterSet &set)
{
    qsizetype first = 0;
    while (first < length() && set.contains(m_storage->character(m_range.location + first)))
        ++first;
    return {*this, TextRange::between(first, length())};
}

std::vector<TextRange>
enumerateMutableSubstringsFromRangeArray(TextStorage &text, const std::vector<TextRange> &ranges,
                                         const MGSMutableSubstringBlock &block)
{
    std::vector<TextRange> visited;
    qsizetype shift = 0;
    bool stop = false;
    for (size_t i = 0; i < ranges.size() && !stop; ++i) {
        MGSMutableSubstring substring(text, {ranges[i].location + shift, ranges[i].length});
        block(substring, stop);
        visited.push_back(substring.superstringRange());
        shift += substring.length() - ranges[i].length;
    }
    return visited;
}

void enumerateMutableSubstringsOfLines(TextStorage &text, const MGSMutableSubstringBlock &block)
{
    bool stop = false;
    qsizetype location = 0;
    do {
        MGSMutableSubstring line(text,
                                 TextRange::between(location, text.lineRange({location, 0}).end()));
        block(line, stop);
        location = line.superstringRange().end();
    } while (!stop && location < text.length());
}
