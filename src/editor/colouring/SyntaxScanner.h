#pragma once

#include "platform/CharacterSet.h"
#include "platform/text/TextRange.h"
#include <QStringView>

/// Walks over a text from front to back; skips nothing. Strings are found in any case. Borrows the
/// text. The scans answer whether they moved; one that finds nothing moves to the end.
class SyntaxScanner
{
public:
    explicit SyntaxScanner(QStringView text) : m_text(text) {}

    /// How a string is looked for, at less cost where case makes no difference.
    static Qt::CaseSensitivity sensitivity(const QString &string);

    qsizetype location() const { return m_location; }
    bool isAtEnd() const { return m_location == m_text.size(); }

    /// Beyond the text: to its end, which is logged.
    void setLocation(qsizetype location);

    bool scanUpTo(const QString &string);
    bool scanUpTo(const platform::CharacterSet &set);
    bool scan(const platform::CharacterSet &set);

    /// The line that the index lies in, its line end included. Cheap for ascending indexes.
    platform::TextRange line(qsizetype index);

private:
    bool moveTo(qsizetype location);

    QStringView m_text;
    qsizetype m_location = 0;
    platform::TextRange m_line;
};
