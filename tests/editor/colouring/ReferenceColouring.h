#pragma once

#include "editor/colouring/MGSSyntaxDefinition.h"
#include "platform/text/TextRange.h"
#include <functional>
#include <vector>

/// Colouring as plainly as it can be said: one group name a character, searches from end to end, no
/// memory of anything. Slow. The engine has to do the same.
class ReferenceColouring
{
public:
    using Range = platform::TextRange;

    explicit ReferenceColouring(const MGSSyntaxDefinition &definition) : m_definition(&definition)
    {
    }

    bool coloursAutocomplete = false;
    bool coloursMultiLineStrings = false;
    bool coloursOnlyUntilEndOfLine = true;

    const QString &text() const { return m_text; }
    const std::vector<QString> &groups() const { return m_groups; } ///< Null: none.
    bool isInspected(qsizetype index) const { return m_inspected[size_t(index)]; }

    void replaceCharacters(Range range, const QString &string);
    void recolourRange(Range range);
    Range recolourChangedRange(Range range);

private:
    class Scanner;

    Range lineRange(const QString &text, Range range) const;
    qsizetype endOfLine(const QString &text, qsizetype index) const;
    Range effectiveRange(qsizetype index) const;
    bool isGroup(qsizetype index, const char *group) const;
    void setColour(const char *group, Range range);

    Range extendedForStrings(Range lines, Range given) const;
    Range extendedForRuns(Range range) const;

    void colourMatches(const QString &pattern, const char *group);
    void colourKeywords(const QSet<QString> &words, const char *group);
    void colourNumbers();
    void colourCommands();
    void colourInstructions();
    void colourVariables();
    void colourStrings(const QString &pattern, const std::function<bool(qsizetype)> &isLeftAlone);
    void colourFirstStrings();
    void colourSecondStrings(bool again);
    void colourAttributes();
    void colourSingleLineComments();
    void colourTokens(const QString &token);
    void colourMultiLineComments();
    void colourPair(const QString &opening, const QString &closing);

    const MGSSyntaxDefinition *m_definition;
    QString m_text;
    std::vector<QString> m_groups;
    std::vector<bool> m_inspected;

    Range m_range; ///< That is being coloured, and its text.
    QString m_string;
};
