#pragma once

#include "platform/CharacterSet.h"
#include "platform/text/TextStorage.h"
#include <functional>
#include <vector>

/// A window on a range of a text that can be edited through it: reads go through the range, edits
/// change the text and correct the range's length. A window on a window corrects that one too.
/// Borrows what it looks on, which outlives it and is edited in its range through it alone.
/// Ranges count from the window's start.
class MGSMutableSubstring
{
public:
    /// A range beyond the superstring throws `platform::Exception` "NSRangeException".
    MGSMutableSubstring(platform::TextStorage &superstring, platform::TextRange range);
    MGSMutableSubstring(MGSMutableSubstring &superstring, platform::TextRange range);

    platform::TextStorage &superstring() const { return *m_storage; }
    platform::TextRange superstringRange() const { return m_range; } ///< In the text.
    /// A range of the window as one of the text; its length is NotFound when it is out of bounds.
    platform::TextRange superstringRangeFromRange(platform::TextRange range) const;

    qsizetype length() const { return m_range.length; }
    QString string() const { return m_storage->substring(m_range); }

    /// Out of bounds it throws `platform::Exception` "NSRangeException" and changes nothing.
    void replaceCharacters(platform::TextRange range, QStringView string);
    void setString(QStringView string) { replaceCharacters({0, length()}, string); }

    /// The window behind the leading characters of the set.
    MGSMutableSubstring mutableSubstringByLeftTrimmingCharacters(const platform::CharacterSet &set);

private:
    void lengthDidChange(qsizetype change);

    platform::TextStorage *m_storage;
    MGSMutableSubstring *m_parent = nullptr;
    platform::TextRange m_range;
};

/// Sets its flag to end an enumeration.
using MGSMutableSubstringBlock = std::function<void(MGSMutableSubstring &substring, bool &stop)>;

/// Visits the ranges (ascending, apart) in order, each moved by what the earlier visits have added
/// or taken away. Gives the resulting ranges, one for each visit.
std::vector<platform::TextRange>
enumerateMutableSubstringsFromRangeArray(platform::TextStorage &text,
                                         const std::vector<platform::TextRange> &ranges,
                                         const MGSMutableSubstringBlock &block);

/// Visits each line with its line end; of an empty text its one empty line.
void enumerateMutableSubstringsOfLines(platform::TextStorage &text,
                                       const MGSMutableSubstringBlock &block);
