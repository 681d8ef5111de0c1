#pragma once

#include "editor/colouring/DelimiterIndex.h"
#include "editor/colouring/PaintCanvas.h"
#include "editor/colouring/SyntaxPatterns.h"
#include "editor/colouring/SyntaxScanner.h"

/// The passes over one range of text, each of which paints one kind of thing. They run in a fixed
/// order (SMLSyntaxColouring), since later ones paint over earlier ones and look at their paint.
/// What none can say of the text beyond the range they look up in the whole of it. Lives as long as
/// one colouring; borrows all that it works with.
class SyntaxPasses
{
public:
    struct Subject
    {
        const MGSSyntaxDefinition &definition;
        SyntaxPatterns &patterns;
        const platform::TextStorage &storage;
        DelimiterIndex &delimiters;
        PaintCanvas &canvas;
        platform::TextRange range; ///< That is coloured; not empty.
        bool coloursMultiLineStrings;
        bool coloursOnlyUntilEndOfLine; ///< Of what is opened and never closed.
    };

    explicit SyntaxPasses(const Subject &subject);

    void colourNumbers();
    void colourCommands();
    void colourInstructions();
    void colourKeywords();
    void colourAutocomplete();
    void colourVariables();
    void colourSecondStrings1();
    void colourFirstStrings();
    void colourAttributes();
    void colourSingleLineComments();
    void colourMultiLineComments();
    void colourSecondStrings2();

private:
    using TextRange = platform::TextRange;
    using MultiLineComment = MGSSyntaxDefinition::MultiLineComment;

    // Locations in the range, from its start.
    void paint(SyntaxPaint paint, qsizetype from, qsizetype to);
    bool has(SyntaxPaint paint, qsizetype index) const;
    void colourMatchesOfPattern(const QString &pattern, SyntaxPaint paint);
    void colourWords(const QSet<QString> &words, SyntaxPaint paint);
    qsizetype endOfCommand(qsizetype from, qsizetype lineEnd) const;
    void colourToken(const QString &token);
    bool hidesToken(const QString &token, qsizetype at) const;
    const std::vector<TextRange> &secondStrings();

    // Locations in the text.
    qsizetype find(const QString &delimiter, qsizetype from, qsizetype to);
    qsizetype findLast(const QString &delimiter, qsizetype from, qsizetype to);
    qsizetype scanUpTo(const QString &delimiter, qsizetype from);
    qsizetype openingBefore(const QString &opening, const QString &closing);
    qsizetype endOfUnclosed(qsizetype at) const;
    void colourPair(const MultiLineComment &pair);
    qsizetype nextLetter(qsizetype from) const;
    bool isInEndTag(qsizetype letter) const;
    char16_t unitAt(qsizetype index) const;

    const Subject m_subject;
    const MGSSyntaxDefinition &m_definition;
    PaintCanvas &m_canvas;
    const TextRange m_range;
    const qsizetype m_length; ///< Of the whole text.
    const QString m_string;   ///< The range's.
    std::optional<std::vector<TextRange>> m_secondStrings;
};
