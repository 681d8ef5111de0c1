#pragma once

#include "platform/RegularExpression.h"
#include "platform/text/TextRange.h"
#include <QString>

/// The pattern of a language's strings: a character that is in no word, the delimiter, anything but
/// the delimiter with backslashes taking the next character in, the delimiter.
class StringPattern
{
public:
    /// Where a string may run across line ends: nowhere, behind its first backslash, anywhere.
    enum class Lines { One, BehindBackslash, Many };

    /// The delimiter goes into the pattern as it is. No matches for an empty one.
    StringPattern(const QString &delimiter, Lines lines);

    const QString &pattern() const { return m_pattern; }

    /// In order, with the character before the string.
    std::vector<platform::TextRange> matches(QStringView text);

private:
    std::vector<platform::TextRange> scan(QStringView text) const;
    qsizetype endOfString(QStringView text, qsizetype from) const;

    Lines m_lines;
    QString m_pattern;
    char16_t m_quote = 0; ///< A delimiter that means nothing in patterns: they are scanned by hand.
    std::optional<platform::RegularExpression> m_expression;
};
