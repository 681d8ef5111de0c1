#include "editor/colouring/SyntaxPasses.h"

using platform::NotFound;
using platform::SearchDirection;

void SyntaxPasses::colourCommands()
{
    const QString &opening = m_definition.beginCommand();
    const QString &closing = m_definition.endCommand();
    if (opening.isEmpty() || closing.isEmpty())
        return;
    SyntaxScanner openings(m_string);
    SyntaxScanner closings(m_string); // apart, so that no stretch is searched twice
    closings.scanUpTo(closing);
    while (!openings.isAtEnd()) {
        openings.scanUpTo(opening);
        const qsizetype start = openings.location();
        const qsizetype lineEnd = openings.line(start).end();
        if (closings.location() < start) {
            closings.setLocation(start);
            closings.scanUpTo(closing);
        }
        if (closings.location() <= start || closings.location() >= lineEnd) {
            openings.setLocation(lineEnd);
            continue;
        }
        openings.setLocation(endOfCommand(start + 1, lineEnd));
        paint(SyntaxPaint::Commands, start, openings.location());
    }
}

// Commands in commands count, by the first characters of the delimiters.
qsizetype SyntaxPasses::endOfCommand(qsizetype from, qsizetype lineEnd) const
{
    const QChar opening = m_definition.beginCommand().front();
    const QChar closing = m_definition.endCommand().front();
    qsizetype depth = 0;
    for (qsizetype at = from; at < lineEnd; ++at) {
        if (m_string[at] == closing) {
            if (depth == 0)
                return at + m_definition.endCommand().size();
            --depth;
        } else if (m_string[at] == opening) {
            ++depth;
        }
    }
    return lineEnd;
}

void SyntaxPasses::colourInstructions()
{
    if (m_definition.instructions())
        return colourWords(*m_definition.instructions(), SyntaxPaint::Instructions);
    const QString &opening = m_definition.beginInstruction();
    const QString &closing = m_definition.endInstruction();
    qsizetype start = openingBefore(opening, closing);
    while (start < m_length) {
        const qsizetype at = find(opening, start, std::min(start + m_range.length, m_length));
        if (at == NotFound)
            return;
        const qsizetype closed = scanUpTo(closing, at);
        const bool isClosed = closed > at && closed < m_length;
        const qsizetype end = isClosed ? closed + closing.size() : endOfUnclosed(at);
        m_canvas.paint(SyntaxPaint::Instructions, TextRange::between(at, end));
        if (end > m_range.end())
            return;
        start = end;
    }
}

// Where the search begins: at what is open where the range starts, if anything is.
qsizetype SyntaxPasses::openingBefore(const QString &opening, const QString &closing)
{
    const qsizetype last = findLast(opening, 0, m_range.location);
    if (last == NotFound || findLast(closing, last + 1, m_range.location) != NotFound)
        return m_range.location;
    return last;
}

qsizetype SyntaxPasses::endOfUnclosed(qsizetype at) const
{
    return m_subject.coloursOnlyUntilEndOfLine ? m_subject.storage.lineRange({at, 0}).end()
                                               : m_length;
}

qsizetype SyntaxPasses::find(const QString &delimiter, qsizetype from, qsizetype to)
{
    return m_subject.delimiters.find(m_subject.storage, delimiter, TextRange::between(from, to));
}

qsizetype SyntaxPasses::findLast(const QString &delimiter, qsizetype from, qsizetype to)
{
    return from > to
               ? NotFound
               : m_subject.delimiters.find(m_subject.storage, delimiter,
                                           TextRange::between(from, to), SearchDirection::Backward);
}

// In any case, as a scanner does it; the text's end if there is none.
qsizetype SyntaxPasses::scanUpTo(const QString &delimiter, qsizetype from)
{
    return std::min(m_length, m_subject.delimiters.find(
                                  m_subject.storage, delimiter, TextRange::between(from, m_length),
                                  SearchDirection::Forward, SyntaxScanner::sensitivity(delimiter)));
}

void SyntaxPasses::colourSingleLineComments()
{
    if (!m_definition.singleLineCommentRegex().isNull())
        return colourMatchesOfPattern(m_definition.singleLineCommentRegex(), SyntaxPaint::Comments);
    for (const QString &token : *m_definition.singleLineComments())
        colourToken(token);
}

void SyntaxPasses::colourToken(const QString &token)
{
    SyntaxScanner scanner(m_string);
    TextRange interpreted; // the last line that was looked at for a "#!", if it has one
    TextRange line;
    while (!scanner.isAtEnd()) {
        scanner.scanUpTo(token);
        const qsizetype start = scanner.location();
        if (!line.contains(start) && token == u"#" && m_string.size() >= 2) {
            line = scanner.line(start);
            const auto text = QStringView(m_string).mid(line.location, line.length);
            interpreted = text.contains(u"#!") ? line : TextRange();
        }
        if (interpreted.contains(start)) {
            scanner.setLocation(interpreted.end());
        } else if (hidesToken(token, start)) {
            scanner.setLocation(start + 1);
        } else {
            scanner.setLocation(scanner.line(start).end());
            paint(SyntaxPaint::Comments, start, scanner.location());
        }
    }
}

// Whether what stands before the token, or a string around it, keeps it from being a comment.
bool SyntaxPasses::hidesToken(const QString &token, qsizetype at) const
{
    const QChar before = at > 0 ? m_string[at - 1] : QChar();
    const bool isLong = m_string.size() >= 2;
    if ((token == u"//" && before == u':') ||
        (token == u"#" && isLong && (before == u'$' || before == u'&')) ||
        (token == u"%" && isLong && before == u'\\'))
        return true;
    return m_range.location + at + token.size() < m_length && has(SyntaxPaint::Strings, at);
}

void SyntaxPasses::colourMultiLineComments()
{
    for (const MultiLineComment &pair : m_definition.multiLineComments())
        colourPair(pair);
}

void SyntaxPasses::colourPair(const MultiLineComment &pair)
{
    // Equal delimiters can be told apart only by counting.
    qsizetype start = pair.opening == pair.closing ? 0 : openingBefore(pair.opening, pair.closing);
    qsizetype letter = 0;
    while (start < m_length) {
        const qsizetype at = find(pair.opening, start, m_length);
        if (at == NotFound)
            return;
        const qsizetype inside = at + 1 < m_length ? at + 1 : at;
        if (inside > at && m_canvas.has(SyntaxPaint::Strings, at)) {
            start = inside;
            continue;
        }
        const qsizetype closed = scanUpTo(pair.closing, inside);
        const bool isClosed = closed > inside && closed < m_length;
        const qsizetype end = isClosed ? closed + pair.closing.size() : endOfUnclosed(at);
        if (pair.closing == u"-->") {
            const qsizetype behind = isClosed ? end : closed;
            if (letter < behind)
                letter = nextLetter(behind);
            if (isInEndTag(letter)) {
                start = letter;
                continue;
            }
        }
        m_canvas.paint(SyntaxPaint::Comments, TextRange::between(at, end));
        if (end > m_range.end())
            return;
        start = end;
    }
}

qsizetype SyntaxPasses::nextLetter(qsizetype from) const
{
    static const platform::CharacterSet letters = platform::CharacterSet::letters();
    return indexOfCharacter(
        m_subject.storage, [](char16_t unit) { return letters.contains(unit); },
        TextRange::between(from, m_length));
}

// Whether the letter begins the name in "</script>" or "</style>". A comment before those hides the
// script or style from old browsers.
bool SyntaxPasses::isInEndTag(qsizetype letter) const
{
    if (letter == NotFound || letter < 2 || letter + 6 >= m_length)
        return false;
    const QString tag = m_subject.storage.substring({letter - 2, 9});
    return tag.startsWith(u"</script>", Qt::CaseInsensitive) ||
           tag.startsWith(u"</style>", Qt::CaseInsensitive);
}
