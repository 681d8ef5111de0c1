#include "editor/colouring/ReferenceColouring.h"

#include "platform/RegularExpression.h"

using namespace Qt::StringLiterals;
using platform::CharacterSet;

namespace {

bool isLineEnd(QChar unit)
{
    return u"\n\r\u0085\u2028\u2029"_s.contains(unit);
}

} // namespace

/// Case does not count for it; nothing is skipped.
class ReferenceColouring::Scanner
{
public:
    explicit Scanner(const QString &text) : m_text(text) {}

    qsizetype location() const { return m_location; }
    bool isAtEnd() const { return m_location == m_text.size(); }
    void setLocation(qsizetype location) { m_location = std::min(location, m_text.size()); }

    bool scanUpTo(const QString &string)
    {
        const qsizetype found =
            string.isEmpty() ? -1 : m_text.indexOf(string, m_location, Qt::CaseInsensitive);
        return moveTo(found < 0 ? m_text.size() : found);
    }
    bool scanUpTo(const CharacterSet &set)
    {
        return moveWhile([&](QChar unit) { return !set.contains(unit); });
    }
    bool scan(const CharacterSet &set)
    {
        return moveWhile([&](QChar unit) { return set.contains(unit); });
    }

private:
    bool moveTo(qsizetype location)
    {
        const bool moved = location != m_location;
        m_location = location;
        return moved;
    }
    bool moveWhile(const std::function<bool(QChar)> &holds)
    {
        qsizetype location = m_location;
        while (location < m_text.size() && holds(m_text[location]))
            ++location;
        return moveTo(location);
    }

    const QString &m_text;
    qsizetype m_location = 0;
};

void ReferenceColouring::replaceCharacters(Range range, const QString &string)
{
    QString inherited;
    if (!range.isEmpty())
        inherited = m_groups[size_t(range.location)];
    else if (!m_groups.empty())
        inherited = m_groups[size_t(std::max<qsizetype>(range.location - 1, 0))];
    const auto replace = [&](auto &values, const auto &value) {
        const auto at = values.erase(values.begin() + range.location, values.begin() + range.end());
        values.insert(at, size_t(string.size()), value);
    };
    replace(m_groups, inherited);
    replace(m_inspected, false);
    m_text.replace(range.location, range.length, string);
    const Range lines = lineRange(m_text, {range.location, string.size()});
    for (qsizetype i = lines.location; i < lines.end(); ++i)
        m_inspected[size_t(i)] = false;
}

void ReferenceColouring::recolourRange(Range range)
{
    if (!m_definition->syntaxDefinitionAllowsColouring())
        return;
    std::vector<Range> parts;
    for (qsizetype i = range.location; i < range.end(); ++i) {
        if (isInspected(i))
            continue;
        if (!parts.empty() && parts.back().end() == i)
            ++parts.back().length;
        else
            parts.push_back({i, 1});
    }
    for (const Range part : parts) {
        bool inspected = true;
        for (qsizetype i = part.location; i < part.end(); ++i)
            inspected = inspected && isInspected(i);
        if (inspected)
            continue;
        const Range done = recolourChangedRange(part);
        for (qsizetype i = done.location; i < done.end(); ++i)
            m_inspected[size_t(i)] = true;
    }
}

ReferenceColouring::Range ReferenceColouring::lineRange(const QString &text, Range range) const
{
    const auto partsLines = [&](qsizetype index) { // between the characters before it and at it
        return isLineEnd(text[index - 1]) &&
               !(index < text.size() && text[index - 1] == u'\r' && text[index] == u'\n');
    };
    qsizetype start = range.location;
    while (start > 0 && !partsLines(start))
        --start;
    qsizetype end = std::max(range.end(), range.location + 1);
    if (end > text.size())
        return Range::between(start, text.size());
    while (end < text.size() && !partsLines(end))
        ++end;
    return Range::between(start, end);
}

qsizetype ReferenceColouring::endOfLine(const QString &text, qsizetype index) const
{
    return lineRange(text, {index, 0}).end();
}

ReferenceColouring::Range ReferenceColouring::effectiveRange(qsizetype index) const
{
    const QString group = m_groups[size_t(index)];
    qsizetype start = index;
    qsizetype end = index + 1;
    while (start > 0 && m_groups[size_t(start) - 1] == group)
        --start;
    while (end < m_text.size() && m_groups[size_t(end)] == group)
        ++end;
    return Range::between(start, end);
}

bool ReferenceColouring::isGroup(qsizetype index, const char *group) const
{
    return index < m_text.size() && m_groups[size_t(index)] == QLatin1StringView(group);
}

void ReferenceColouring::setColour(const char *group, Range range)
{
    for (qsizetype at = range.location; at < range.end();) {
        const Range run = effectiveRange(at);
        if (!isGroup(at, "command") && !isGroup(at, "instruction"))
            std::fill_n(m_groups.begin() + run.location, run.length, QString());
        at = run.end();
    }
    std::fill_n(m_groups.begin() + range.location, range.length, QString::fromLatin1(group));
}

ReferenceColouring::Range ReferenceColouring::extendedForStrings(Range lines, Range given) const
{
    const QString &quote = m_definition->firstString();
    Range range = lines;
    if (quote.isEmpty())
        return range;
    const qsizetype before = m_text.left(lines.location).lastIndexOf(quote);
    if (before >= 0 && isGroup(before, "strings"))
        range = Range::between(lineRange(m_text, {before, 0}).location, given.end());
    const qsizetype inside = m_text.mid(given.location, given.length).lastIndexOf(quote);
    const qsizetype behind = m_text.indexOf(quote, given.end());
    if (inside >= 0 && behind >= 0)
        range = range.united(Range::between(given.location + inside, endOfLine(m_text, behind)));
    return range;
}

ReferenceColouring::Range ReferenceColouring::extendedForRuns(Range range) const
{
    if (range.location < m_text.size() && !m_groups[size_t(range.location)].isNull())
        range = range.united(effectiveRange(range.location));
    // A run that only begins behind the range is not touched.
    if (range.end() < m_text.size() && !m_groups[size_t(range.end())].isNull()) {
        const Range run = effectiveRange(range.end());
        if (run.location < range.end())
            range = range.united(run);
    }
    return range;
}

ReferenceColouring::Range ReferenceColouring::recolourChangedRange(Range range)
{
    m_range = lineRange(m_text, range);
    if (coloursMultiLineStrings)
        m_range = extendedForStrings(m_range, range);
    m_range = extendedForRuns(m_range);
    m_string = m_text.mid(m_range.location, m_range.length);
    if (m_string.isEmpty())
        return m_range;
    std::fill_n(m_groups.begin() + m_range.location, m_range.length, QString());
    colourNumbers();
    colourCommands();
    colourInstructions();
    colourKeywords(m_definition->keywords(), "keyword");
    if (coloursAutocomplete)
        colourKeywords(m_definition->autocompleteWords(), "autocomplete");
    colourVariables();
    colourSecondStrings(false);
    colourFirstStrings();
    colourAttributes();
    colourSingleLineComments();
    colourMultiLineComments();
    colourSecondStrings(true);
    return m_range;
}

void ReferenceColouring::colourMatches(const QString &pattern, const char *group)
{
    auto expression = platform::RegularExpression::compile(pattern);
    if (!expression)
        return;
    for (const QStringView match : expression->matches(m_string))
        setColour(group, {m_range.location + (match.utf16() - QStringView(m_string).utf16()),
                          match.size()});
}

void ReferenceColouring::colourKeywords(const QSet<QString> &words, const char *group)
{
    if (words.isEmpty())
        return;
    Scanner scanner(m_string);
    while (!scanner.isAtEnd()) {
        scanner.scanUpTo(m_definition->keywordStartCharacterSet());
        const qsizetype start = scanner.location();
        if (start + 1 < m_string.size())
            scanner.setLocation(start + 1);
        scanner.scanUpTo(m_definition->keywordEndCharacterSet());
        const qsizetype end = scanner.location();
        if (end == start)
            return;
        QString word = m_string.mid(start, end - start);
        if (!m_definition->keywordsCaseSensitive())
            word = word.toLower();
        if (words.contains(word) && (m_definition->recolourKeywordIfAlreadyColoured() ||
                                     !isGroup(m_range.location + start, "command")))
            setColour(group, {m_range.location + start, end - start});
    }
}

void ReferenceColouring::colourNumbers()
{
    if (!m_definition->numberDefinition().isNull())
        return colourMatches(m_definition->numberDefinition(), "number");
    Scanner scanner(m_string);
    while (!scanner.isAtEnd()) {
        scanner.scanUpTo(m_definition->numberCharacterSet());
        const qsizetype start = scanner.location();
        scanner.scan(m_definition->numberCharacterSet());
        qsizetype end = scanner.location();
        if (start == end)
            return;
        const qsizetype at = m_range.location + start;
        if (at > 0 && m_definition->nameCharacterSet().contains(m_text[at - 1]))
            continue;
        if (m_string[end - 1] == QChar(m_definition->decimalPointCharacter()))
            --end;
        setColour("number", {at, end - start});
    }
}

void ReferenceColouring::colourCommands()
{
    const QString &opening = m_definition->beginCommand();
    const QString &closing = m_definition->endCommand();
    if (opening.isEmpty() || closing.isEmpty())
        return;
    Scanner scanner(m_string);
    while (!scanner.isAtEnd()) {
        scanner.scanUpTo(opening);
        const qsizetype start = scanner.location();
        const qsizetype lineEnd = endOfLine(m_string, start);
        if (!scanner.scanUpTo(closing) || scanner.location() >= lineEnd) {
            scanner.setLocation(lineEnd);
            continue;
        }
        qsizetype end = lineEnd;
        int depth = 0;
        for (qsizetype i = start + 1; i < lineEnd; ++i) {
            if (m_string[i] == closing[0] && depth-- == 0) {
                end = i + closing.size();
                break;
            }
            if (m_string[i] != closing[0] && m_string[i] == opening[0])
                ++depth;
        }
        scanner.setLocation(end);
        setColour("command",
                  Range::between(m_range.location + start, m_range.location + scanner.location()));
    }
}

void ReferenceColouring::colourInstructions()
{
    if (m_definition->instructions())
        return colourKeywords(*m_definition->instructions(), "instruction");
    const QString &opening = m_definition->beginInstruction();
    const QString &closing = m_definition->endInstruction();
    if (opening.isEmpty())
        return;
    const QString before = m_text.left(m_range.location);
    const qsizetype lastOpening = before.lastIndexOf(opening);
    const qsizetype lastClosing = closing.isEmpty() ? -1 : before.lastIndexOf(closing);
    qsizetype start =
        lastOpening >= 0 && lastClosing <= lastOpening ? lastOpening : m_range.location;
    Scanner scanner(m_text);
    while (!scanner.isAtEnd()) {
        const qsizetype found = m_text.mid(start, m_range.length).indexOf(opening);
        if (found < 0)
            return;
        const qsizetype at = start + found;
        scanner.setLocation(at);
        if (scanner.scanUpTo(closing) && !scanner.isAtEnd())
            scanner.setLocation(scanner.location() + closing.size());
        else
            scanner.setLocation(coloursOnlyUntilEndOfLine ? endOfLine(m_text, at) : m_text.size());
        setColour("instruction", Range::between(at, scanner.location()));
        if (scanner.location() > m_range.end())
            return;
        start = scanner.location();
    }
}

void ReferenceColouring::colourVariables()
{
    if (!m_definition->variableRegex().isNull())
        return colourMatches(m_definition->variableRegex(), "variable");
    const QStringList tokens = m_definition->singleLineComments().value_or(QStringList());
    Scanner scanner(m_string);
    while (!scanner.isAtEnd()) {
        scanner.scanUpTo(*m_definition->beginVariableCharacterSet());
        const qsizetype start = scanner.location();
        if (start + 1 < m_string.size() && !tokens.isEmpty() && tokens.first() == u"%" &&
            m_string[start + 1] == u'%') {
            scanner.setLocation(start + 1);
            continue;
        }
        const qsizetype lineEnd = endOfLine(m_string, start);
        qsizetype end = lineEnd;
        if (scanner.scanUpTo(*m_definition->endVariableCharacterSet()) &&
            scanner.location() < lineEnd) {
            end = scanner.location();
            scanner.setLocation(end + 1);
        } else {
            scanner.setLocation(lineEnd);
        }
        setColour("variable", Range::between(m_range.location + start, m_range.location + end));
    }
}

void ReferenceColouring::colourStrings(const QString &pattern,
                                       const std::function<bool(qsizetype)> &isLeftAlone)
{
    auto expression = platform::RegularExpression::compile(pattern);
    if (!expression)
        return;
    for (const QStringView match : expression->matches(m_string)) {
        const qsizetype at = m_range.location + (match.utf16() - QStringView(m_string).utf16());
        if (!isLeftAlone(at))
            setColour("strings", {at + 1, match.size() - 1});
    }
}

void ReferenceColouring::colourFirstStrings()
{
    const QString &quote = m_definition->firstString();
    if (quote.isEmpty())
        return;
    const QString pattern = coloursMultiLineStrings
                                ? uR"(\W@[^@\\]*+(?:\\(?:.|$)[^@\\]*+)*+@)"_s
                                : uR"(\W@[^@\\\r\n]*+(?:\\(?:.|$)[^@\\\r\n]*+)*+@)"_s;
    colourStrings(QString(pattern).replace(u'@', quote),
                  [&](qsizetype at) { return isGroup(at, "strings"); });
}

void ReferenceColouring::colourSecondStrings(bool again)
{
    const QString &quote = m_definition->secondString();
    if (quote.isEmpty())
        return;
    const QString pattern = coloursMultiLineStrings
                                ? uR"(\W@[^@\\]*+(?:\\(?:.|$)[^@\\]*+)*+@)"_s
                                : uR"(\W@[^@\\\r\n]*+(?:\\(?:.|$)[^@\\]*+)*+@)"_s;
    colourStrings(QString(pattern).replace(u'@', quote), [&](qsizetype at) {
        return again && (isGroup(at, "strings") || isGroup(at, "comments"));
    });
}

void ReferenceColouring::colourAttributes()
{
    Scanner scanner(m_string);
    while (!scanner.isAtEnd()) {
        scanner.scanUpTo(u" "_s);
        const qsizetype start = scanner.location();
        if (start + 1 >= m_string.size())
            return;
        scanner.setLocation(start + 1);
        if (!isGroup(m_range.location + start, "command"))
            continue;
        scanner.scan(m_definition->attributesCharacterSet());
        const qsizetype end = scanner.location();
        if (end + 1 < m_string.size())
            scanner.setLocation(end + 1);
        const qsizetype at = m_range.location + end;
        if (at < m_text.size() && m_text[at] == u'=')
            setColour("attribute", Range::between(m_range.location + start, at));
    }
}

void ReferenceColouring::colourSingleLineComments()
{
    if (!m_definition->singleLineCommentRegex().isNull())
        return colourMatches(m_definition->singleLineCommentRegex(), "comments");
    for (const QString &token : *m_definition->singleLineComments())
        colourTokens(token);
}

void ReferenceColouring::colourTokens(const QString &token)
{
    Scanner scanner(m_string);
    while (!scanner.isAtEnd()) {
        scanner.scanUpTo(token);
        const qsizetype start = scanner.location();
        const Range line = lineRange(m_string, {start, 0});
        const QChar before = start > 0 ? m_string[start - 1] : QChar();
        const bool isLong = m_string.size() >= 2;
        if (token == u"#" && isLong && m_string.mid(line.location, line.length).contains(u"#!")) {
            scanner.setLocation(line.end());
            continue;
        }
        const qsizetype at = m_range.location + start;
        if ((token == u"//" && before == u':') ||
            (token == u"#" && isLong && (before == u'$' || before == u'&')) ||
            (token == u"%" && isLong && before == u'\\') ||
            (at + token.size() < m_text.size() && isGroup(at, "strings"))) {
            scanner.setLocation(start + 1);
            continue;
        }
        scanner.setLocation(line.end());
        setColour("comments", Range::between(at, m_range.location + line.end()));
    }
}

void ReferenceColouring::colourMultiLineComments()
{
    for (const auto &pair : m_definition->multiLineComments())
        colourPair(pair.opening, pair.closing);
}

void ReferenceColouring::colourPair(const QString &opening, const QString &closing)
{
    qsizetype start = 0;
    if (opening != closing) {
        const QString before = m_text.left(m_range.location);
        const qsizetype lastOpening = before.lastIndexOf(opening);
        const bool isInside = lastOpening >= 0 && before.lastIndexOf(closing) <= lastOpening;
        start = isInside ? lastOpening : m_range.location;
    }
    Scanner scanner(m_text);
    scanner.setLocation(start);
    while (!scanner.isAtEnd()) {
        const qsizetype at = m_text.indexOf(opening, start);
        if (at < 0)
            return;
        scanner.setLocation(at);
        if (at + 1 < m_text.size()) {
            scanner.setLocation(at + 1);
            if (isGroup(at, "strings")) {
                start = at + 1;
                continue;
            }
        }
        const bool isClosed = scanner.scanUpTo(closing) && !scanner.isAtEnd();
        if (isClosed)
            scanner.setLocation(scanner.location() + closing.size());
        qsizetype end = scanner.location();
        if (closing == u"-->") {
            scanner.scanUpTo(CharacterSet::letters());
            const qsizetype letter = scanner.location();
            const auto stands = [&](const QString &tag) {
                return letter >= 2 &&
                       m_text.mid(letter - 2, tag.size()).compare(tag, Qt::CaseInsensitive) == 0;
            };
            if (letter + 6 < m_text.size() && (stands(u"</script>"_s) || stands(u"</style>"_s))) {
                start = letter;
                continue;
            }
            scanner.setLocation(end);
        }
        if (!isClosed)
            end = coloursOnlyUntilEndOfLine ? endOfLine(m_text, at) : m_text.size();
        scanner.setLocation(end);
        setColour("comments", Range::between(at, end));
        if (scanner.location() > m_range.end())
            return;
        start = end;
    }
}
