#include "editor/colouring/SyntaxPasses.h"

SyntaxPasses::SyntaxPasses(const Subject &subject)
    : m_subject(subject), m_definition(subject.definition), m_canvas(subject.canvas),
      m_range(subject.range), m_length(subject.storage.length()),
      m_string(subject.storage.substring(subject.range))
{
}

void SyntaxPasses::paint(SyntaxPaint paint, qsizetype from, qsizetype to)
{
    m_canvas.paint(paint, TextRange::between(m_range.location + from, m_range.location + to));
}

bool SyntaxPasses::has(SyntaxPaint paint, qsizetype index) const
{
    return m_canvas.has(paint, m_range.location + index);
}

char16_t SyntaxPasses::unitAt(qsizetype index) const
{
    return m_range.contains(index) ? m_string[index - m_range.location].unicode()
                                   : m_subject.storage.character(index);
}

void SyntaxPasses::colourMatchesOfPattern(const QString &pattern, SyntaxPaint paint)
{
    for (const QStringView match : m_subject.patterns.matches(pattern, m_string)) {
        const qsizetype at = match.utf16() - QStringView(m_string).utf16();
        this->paint(paint, at, at + match.size());
    }
}

// The first character of a word is not looked for among those that end words.
void SyntaxPasses::colourWords(const QSet<QString> &words, SyntaxPaint paint)
{
    SyntaxScanner scanner(m_string);
    while (!scanner.isAtEnd()) {
        scanner.scanUpTo(m_definition.keywordStartCharacterSet());
        const qsizetype start = scanner.location();
        if (start + 1 < m_string.size())
            scanner.setLocation(start + 1);
        scanner.scanUpTo(m_definition.keywordEndCharacterSet());
        const qsizetype end = scanner.location();
        if (end == start)
            return;
        const QString word = QString::fromRawData(m_string.constData() + start, end - start);
        if (words.contains(m_definition.keywordsCaseSensitive() ? word : word.toLower()) &&
            (m_definition.recolourKeywordIfAlreadyColoured() || !has(SyntaxPaint::Commands, start)))
            this->paint(paint, start, end);
    }
}

void SyntaxPasses::colourNumbers()
{
    if (!m_definition.numberDefinition().isNull())
        return colourMatchesOfPattern(m_definition.numberDefinition(), SyntaxPaint::Numbers);
    SyntaxScanner scanner(m_string);
    while (!scanner.isAtEnd()) {
        scanner.scanUpTo(m_definition.numberCharacterSet());
        const qsizetype start = scanner.location();
        if (!scanner.scan(m_definition.numberCharacterSet()))
            return;
        const qsizetype end = scanner.location();
        const qsizetype at = m_range.location + start;
        if (at > 0 && m_definition.nameCharacterSet().contains(unitAt(at - 1)))
            continue; // it ends a name
        const bool endsWithPoint = m_string[end - 1] == m_definition.decimalPointCharacter();
        paint(SyntaxPaint::Numbers, start, endsWithPoint ? end - 1 : end);
    }
}

void SyntaxPasses::colourKeywords()
{
    colourWords(m_definition.keywords(), SyntaxPaint::Keywords);
}

void SyntaxPasses::colourAutocomplete()
{
    colourWords(m_definition.autocompleteWords(), SyntaxPaint::Autocomplete);
}

void SyntaxPasses::colourVariables()
{
    if (!m_definition.variableRegex().isNull())
        return colourMatchesOfPattern(m_definition.variableRegex(), SyntaxPaint::Variables);
    const QStringList tokens = m_definition.singleLineComments().value_or(QStringList());
    const bool percentIsComment = !tokens.isEmpty() && tokens.first() == u"%";
    SyntaxScanner scanner(m_string);
    while (!scanner.isAtEnd()) {
        scanner.scanUpTo(*m_definition.beginVariableCharacterSet());
        const qsizetype start = scanner.location();
        if (percentIsComment && start + 1 < m_string.size() && m_string[start + 1] == u'%') {
            scanner.setLocation(start + 1);
            continue;
        }
        const qsizetype lineEnd = scanner.line(start).end();
        const bool moved = scanner.scanUpTo(*m_definition.endVariableCharacterSet());
        const qsizetype end = scanner.location();
        const bool isClosed = moved && end < lineEnd;
        scanner.setLocation(isClosed ? end + 1 : lineEnd);
        paint(SyntaxPaint::Variables, start, isClosed ? end : lineEnd);
    }
}

void SyntaxPasses::colourSecondStrings1()
{
    for (const TextRange match : secondStrings())
        paint(SyntaxPaint::Strings, match.location + 1, match.end());
}

void SyntaxPasses::colourFirstStrings()
{
    StringPattern &pattern = m_subject.patterns.firstString(m_subject.coloursMultiLineStrings);
    for (const TextRange match : pattern.matches(m_string)) {
        if (!has(SyntaxPaint::Strings, match.location))
            paint(SyntaxPaint::Strings, match.location + 1, match.end());
    }
}

// What a comment or another string has wiped out comes back, unless it is in a comment.
void SyntaxPasses::colourSecondStrings2()
{
    for (const TextRange match : secondStrings()) {
        if (!has(SyntaxPaint::Strings, match.location) &&
            !has(SyntaxPaint::Comments, match.location))
            paint(SyntaxPaint::Strings, match.location + 1, match.end());
    }
}

const std::vector<platform::TextRange> &SyntaxPasses::secondStrings()
{
    if (!m_secondStrings)
        m_secondStrings =
            m_subject.patterns.secondString(m_subject.coloursMultiLineStrings).matches(m_string);
    return *m_secondStrings;
}

// Words before "=" in a command, with the blank before them.
void SyntaxPasses::colourAttributes()
{
    SyntaxScanner scanner(m_string);
    while (!scanner.isAtEnd()) {
        const qsizetype command = m_canvas.next(
            SyntaxPaint::Commands, m_range.location + scanner.location(), m_range.end());
        scanner.setLocation(command - m_range.location);
        scanner.scanUpTo(QStringLiteral(" "));
        const qsizetype start = scanner.location();
        if (start + 1 >= m_string.size())
            return;
        scanner.setLocation(start + 1);
        if (!has(SyntaxPaint::Commands, start))
            continue;
        scanner.scan(m_definition.attributesCharacterSet());
        const qsizetype end = scanner.location();
        if (end + 1 < m_string.size())
            scanner.setLocation(end + 1);
        const qsizetype at = m_range.location + end;
        if (at < m_length && unitAt(at) == u'=')
            paint(SyntaxPaint::Attributes, start, end);
    }
}
