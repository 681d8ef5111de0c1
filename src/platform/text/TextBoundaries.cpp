#include "platform/text/TextBoundaries.h"

#include "platform/Assert.h"
#include "platform/text/TextReader.h"
#include <memory>
#include <unicode/ubrk.h>

namespace platform {

namespace {

constexpr qsizetype neighbourhood = 128; // units at either side, at first
constexpr char16_t firstCombining = 0x300;

// Qt's own finder parts surrogate pairs that stand behind Indic letters.
class ClusterFinder
{
public:
    explicit ClusterFinder(const QString &text) : m_text(text)
    {
        UErrorCode status = U_ZERO_ERROR;
        ubrk_setText(iterator(), reinterpret_cast<const UChar *>(m_text.utf16()),
                     int32_t(m_text.size()), &status);
    }

    qsizetype following(qsizetype index) const
    {
        const int32_t found = ubrk_following(iterator(), int32_t(index));
        return found == UBRK_DONE ? m_text.size() : found;
    }
    qsizetype preceding(qsizetype index) const
    {
        const int32_t found = ubrk_preceding(iterator(), int32_t(index));
        return found == UBRK_DONE ? 0 : found;
    }

private:
    static UBreakIterator *iterator()
    {
        UErrorCode status = U_ZERO_ERROR;
        thread_local const std::unique_ptr<UBreakIterator, void (*)(UBreakIterator *)> kept(
            ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status), ubrk_close);
        PLATFORM_ASSERT(kept, "no rules for character boundaries");
        return kept.get();
    }

    const QString m_text;
};

qsizetype nextBoundary(const TextStorage &storage, qsizetype index, TextRange line)
{
    for (qsizetype reach = neighbourhood;; reach *= 2) {
        const TextRange near = line.intersected(TextRange::around(index, reach));
        const ClusterFinder finder(storage.substring(near));
        const qsizetype found = near.location + finder.following(index - near.location);
        if (found < near.end() || near.end() == line.end())
            return found;
    }
}

qsizetype previousBoundary(const TextStorage &storage, qsizetype index, TextRange line)
{
    for (qsizetype reach = neighbourhood;; reach *= 2) {
        const TextRange near = line.intersected(TextRange::around(index, reach));
        const ClusterFinder finder(storage.substring(near));
        const qsizetype found = near.location + finder.preceding(index - near.location);
        if (found > near.location || near.location == line.location)
            return found;
    }
}

bool isMark(char32_t character)
{
    const QChar::Category category = QChar::category(character);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_SpacingCombining;
}

// That are part of what they follow rather than put on it.
bool isVariation(char32_t character)
{
    return (character >= 0xFE00 && character <= 0xFE0F) ||
           (character >= 0xE0100 && character <= 0xE01EF);
}

char32_t characterFrom(TextReader &reader, qsizetype index, qsizetype end)
{
    const char16_t unit = reader.at(index);
    if (QChar::isHighSurrogate(unit) && index + 1 < end &&
        QChar::isLowSurrogate(reader.at(index + 1)))
        return QChar::surrogateToUcs4(unit, reader.at(index + 1));
    return unit;
}

char32_t characterBefore(TextReader &reader, qsizetype index, qsizetype start)
{
    const char16_t unit = reader.at(index - 1);
    if (QChar::isLowSurrogate(unit) && index - 2 >= start &&
        QChar::isHighSurrogate(reader.at(index - 2)))
        return QChar::surrogateToUcs4(reader.at(index - 2), unit);
    return unit;
}

qsizetype lengthOf(char32_t character)
{
    return QChar::requiresSurrogates(character) ? 2 : 1;
}

/// What goes together as a word. Scripts that write without blanks part where the script changes.
enum WordKind : int { Neutral, Blank, Sign, Letter, FirstScript };

int kindOf(char32_t character)
{
    if (character < 0x80) {
        const auto c = QChar(char16_t(character));
        return c.isLetterOrNumber() || c == u'_' ? Letter : c.isSpace() ? Blank : Sign;
    }
    if (QChar::isMark(character) || QChar::category(character) == QChar::Other_Format)
        return Neutral;
    if (QChar::isSpace(character))
        return Blank;
    if (!QChar::isLetterOrNumber(character))
        return Sign;
    switch (const QChar::Script script = QChar::script(character)) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Thai:
    case QChar::Script_Lao:
    case QChar::Script_Khmer:
    case QChar::Script_Myanmar:
        return FirstScript + int(script);
    default:
        return Letter;
    }
}

qsizetype endOfRun(TextReader &reader, qsizetype index, qsizetype end)
{
    int kind = Neutral;
    while (index < end) {
        const char32_t character = characterFrom(reader, index, end);
        const int next = kindOf(character);
        if (next != Neutral && kind != Neutral && next != kind)
            break;
        kind = kind == Neutral ? next : kind;
        index += lengthOf(character);
    }
    return index;
}

qsizetype startOfRun(TextReader &reader, qsizetype index, qsizetype start)
{
    int kind = Neutral;
    qsizetype found = index; // marks belong to what stands before them
    while (index > start) {
        const char32_t character = characterBefore(reader, index, start);
        const int next = kindOf(character);
        if (next != Neutral && kind != Neutral && next != kind)
            return found;
        index -= lengthOf(character);
        if (next != Neutral)
            found = index;
        kind = kind == Neutral ? next : kind;
    }
    return start;
}

TextRange lineAround(const TextStorage &storage, qsizetype index)
{
    return storage.lineContents(storage.lineAt(index));
}

} // namespace

qsizetype nextCluster(const TextStorage &storage, qsizetype index)
{
    const TextRange line = lineAround(storage, index);
    if (index >= line.end())
        return storage.lineRange({index, 0}).end();
    const bool isPlain = storage.character(index) < firstCombining &&
                         (index + 1 == line.end() || storage.character(index + 1) < firstCombining);
    return isPlain ? index + 1 : nextBoundary(storage, index, line);
}

qsizetype previousCluster(const TextStorage &storage, qsizetype index)
{
    const TextRange line = lineAround(storage, index);
    if (index == line.location)
        return index == 0 ? 0 : lineAround(storage, index - 1).end();
    if (index > line.end())
        return line.end();
    return storage.character(index - 1) < firstCombining ? index - 1
                                                         : previousBoundary(storage, index, line);
}

qsizetype startOfCluster(const TextStorage &storage, qsizetype index)
{
    const qsizetype start = previousCluster(storage, index);
    return nextCluster(storage, start) == index ? index : start;
}

qsizetype startOfBackspace(const TextStorage &storage, qsizetype index)
{
    const qsizetype start = previousCluster(storage, index);
    if (index - start < 2)
        return start;
    TextReader reader(storage);
    const char32_t last = characterBefore(reader, index, start);
    const bool isOnLetter = QChar::isLetter(characterFrom(reader, start, index));
    return isOnLetter && isMark(last) && !isVariation(last) ? index - lengthOf(last) : start;
}

qsizetype nextWord(const TextStorage &storage, qsizetype index)
{
    const qsizetype end = lineAround(storage, index).end();
    if (index >= end)
        return nextCluster(storage, index);
    TextReader reader(storage);
    const qsizetype behind = endOfRun(reader, index, end);
    const bool isBeforeBlanks = behind < end && kindOf(characterFrom(reader, behind, end)) == Blank;
    const bool isBlank = kindOf(characterFrom(reader, index, end)) == Blank;
    return isBeforeBlanks && !isBlank ? endOfRun(reader, behind, end) : behind;
}

qsizetype previousWord(const TextStorage &storage, qsizetype index)
{
    const qsizetype start = lineAround(storage, index).location;
    if (index == start)
        return previousCluster(storage, index);
    TextReader reader(storage);
    const bool isBehindBlanks = kindOf(characterBefore(reader, index, start)) == Blank;
    const qsizetype end = isBehindBlanks ? startOfRun(reader, index, start) : index;
    return startOfRun(reader, end, start);
}

TextRange wordRange(const TextStorage &storage, qsizetype index)
{
    const TextRange line = lineAround(storage, index);
    if (line.isEmpty())
        return {line.location, 0};
    TextReader reader(storage);
    const qsizetype within =
        index < line.end() ? nextCluster(storage, index) : line.end(); // behind the character
    const qsizetype start = startOfRun(reader, within, line.location);
    return TextRange::between(start, endOfRun(reader, start, line.end()));
}

bool isRightToLeft(const TextStorage &storage, qsizetype line)
{
    constexpr qsizetype enough = 200;
    const TextRange contents = storage.lineContents(line);
    return storage.substring({contents.location, qMin(contents.length, enough)}).isRightToLeft();
}

QString lineEnding(const TextStorage &storage)
{
    const qsizetype end = storage.lineContents(0).end();
    const TextRange lineEnd = TextRange::between(end, storage.lineRange({0, 0}).end());
    return lineEnd.isEmpty() ? QStringLiteral("\n") : storage.substring(lineEnd);
}

} // namespace platform
