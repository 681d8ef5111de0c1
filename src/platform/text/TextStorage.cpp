#include "platform/text/TextStorage.h"

#include "platform/Assert.h"
#include "platform/text/TextReader.h"
#include "platform/TextEncoding.h"
#include <QScopedValueRollback>

namespace platform {

TextStorage::TextStorage(qsizetype blockLength, QObject *parent)
    : QObject(parent), m_blockLength(blockLength)
{
}

QString TextStorage::substring(TextRange range) const
{
    checkRange(range);
    QString text;
    text.reserve(range.length);
    if (range.isEmpty())
        return text.isNull() ? QLatin1String("") : text;
    for (Tree::Place at = place(range.location); at.node && at.before.length < range.end();
         at = at.next()) {
        const TextRange block{at.before.length, at.node->block.summary().length};
        const TextRange part = range.intersected(block);
        at.node->block.appendTo(text, part.location - block.location, part.length);
    }
    return text;
}

std::optional<QByteArray> TextStorage::utf8(Error *error) const
{
    QByteArray bytes;
    bytes.reserve(length());
    for (Tree::Place at = m_tree.find(&TextMeasure::length, 0); at.node; at = at.next()) {
        const auto part = at.node->block.utf8();
        if (!part)
            return encodeUtf8(string(), error);
        bytes += *part;
    }
    return bytes;
}

TextPiece TextStorage::piece(qsizetype index) const
{
    checkRange({index, 1});
    const Tree::Place at = place(index);
    TextPiece piece;
    piece.location = at.before.length;
    at.node->block.visit([&piece](const auto *units, qsizetype count) {
        piece.length = count;
        if constexpr (sizeof *units == 1)
            piece.narrow = units;
        else
            piece.wide = units;
    });
    return piece;
}

/// The block of the index, or the last one at the text's end; no node in an empty text.
TextStorage::Tree::Place TextStorage::place(qsizetype index) const
{
    const auto holds = [index](const Tree::Place &at) {
        return at.node &&
               TextRange{at.before.length, at.node->block.summary().length}.contains(index);
    };
    if (holds(m_lastPlace))
        return m_lastPlace;
    if (m_lastPlace.node && holds(m_lastPlace.next()))
        return m_lastPlace = m_lastPlace.next();
    return m_lastPlace = m_tree.find(&TextMeasure::length, index);
}

qsizetype TextStorage::lineAt(qsizetype index) const
{
    checkRange({index, 0});
    const Tree::Place at = place(index);
    if (!at.node)
        return 0;
    return at.before.lineEnds + at.node->block.lineEndsBefore(index - at.before.length);
}

qsizetype TextStorage::lineStart(qsizetype line) const
{
    if (line < 0 || line >= lineCount())
        return NotFound;
    if (line == 0)
        return 0;
    LineStart &known = m_lineStarts[size_t(line) % m_lineStarts.size()];
    if (known.line != line) {
        const Tree::Place at = m_tree.find(&TextMeasure::lineEnds, line - 1);
        const qsizetype before = line - 1 - at.before.lineEnds;
        known = {line, at.before.length + at.node->block.offsetAfterLineEnd(before)};
    }
    return known.start;
}

TextRange TextStorage::lineRange(TextRange range) const
{
    checkRange(range);
    const qsizetype first = lineAt(range.location);
    const qsizetype last = range.isEmpty() ? first : lineAt(range.end() - 1);
    return TextRange::between(lineStart(first), qMin(lineStart(last + 1), length()));
}

TextRange TextStorage::lineContents(qsizetype line) const
{
    PLATFORM_ASSERT(line >= 0 && line < lineCount(), "line %ld of %ld", line, lineCount());
    TextRange range = TextRange::between(lineStart(line), qMin(lineStart(line + 1), length()));
    if (line + 1 == lineCount())
        return range;
    const qsizetype last = range.end() - 1;
    const bool isPair =
        range.length > 1 && character(last) == u'\n' && character(last - 1) == u'\r';
    range.length -= isPair ? 2 : 1;
    return range;
}

void TextStorage::replaceCharacters(TextRange range, QStringView string)
{
    checkRange(range);
    const qsizetype change = string.size() - range.length;
    checkEdit(length() + change);
    if (range.isEmpty() && string.isEmpty())
        return;
    announce(range);
    splice(range, string);
    edited({range.location, string.size()}, change);
}

bool TextStorage::setUtf8(QByteArrayView bytes)
{
    auto blocks = TextBlock::cutUtf8(bytes, m_blockLength);
    if (!blocks || bytes.size() > maximumLength)
        return false;
    const qsizetype oldLength = length();
    checkEdit(0);
    if (oldLength == 0 && blocks->empty())
        return true;
    announce({0, oldLength});
    m_tree.assign(std::move(*blocks));
    edited({0, length()}, length() - oldLength);
    return true;
}

void TextStorage::endEditing()
{
    PLATFORM_ASSERT(m_grouping > 0, "endEditing without beginEditing");
    if (--m_grouping == 0)
        processEditing();
}

/// The blocks of the units on both sides of the edit are cut anew together with it: a pair that the
/// edit makes lies within them, and all other borders between blocks stay as they are. A remainder
/// that is short takes a neighbour in.
void TextStorage::splice(TextRange range, QStringView string)
{
    if (m_tree.isEmpty()) {
        m_tree.assign(TextBlock::cut(string, m_blockLength));
        return;
    }
    Tree::Place at = place(qMax<qsizetype>(range.location - 1, 0));
    Tree::Node *first = at.node;
    qsizetype start = at.before.length;
    at = place(range.end());
    Tree::Node *last = at.node;
    qsizetype end = at.next().before.length;
    if (end - start - range.length + string.size() < m_blockLength / 4) {
        if (Tree::Node *next = last->next()) {
            last = next;
            end += next->block.summary().length;
        } else if (Tree::Node *previous = first->previous()) {
            first = previous;
            start -= previous->block.summary().length;
        }
    }
    QString text;
    if (start < range.location || range.end() < end) {
        text = substring(TextRange::between(start, range.location));
        text.reserve(text.size() + string.size() + end - range.end());
        text += string;
        text += substring(TextRange::between(range.end(), end));
        string = text;
    }
    m_tree.replace(first, last, TextBlock::cut(string, m_blockLength));
}

void TextStorage::announce(TextRange range)
{
    const QScopedValueRollback<bool> replacing(m_replacing, true);
    Q_EMIT charactersWillBeReplaced(range);
}

void TextStorage::edited(TextRange range, qsizetype changeInLength)
{
    m_lastPlace = {};
    m_lineStarts.fill({});
    ++m_revision;
    if (m_pending) {
        const qsizetype oldEnd = range.end() - changeInLength;
        const qsizetype end = qMax(m_pending->range.end(), oldEnd) + changeInLength;
        m_pending->range = TextRange::between(qMin(m_pending->range.location, range.location), end);
        m_pending->changeInLength += changeInLength;
    } else {
        m_pending = Edit{range, changeInLength};
    }
    {
        const QScopedValueRollback<bool> replacing(m_replacing, true);
        Q_EMIT charactersReplaced(range, changeInLength);
    }
    if (m_grouping == 0)
        processEditing();
}

void TextStorage::processEditing()
{
    if (m_processing)
        return; // the loop below sees to it
    const QScopedValueRollback<bool> processing(m_processing, true);
    while (m_pending && m_grouping == 0) {
        Q_EMIT willProcessEditing(m_pending->range, m_pending->changeInLength);
        const Edit edit = *std::exchange(m_pending, std::nullopt);
        Q_EMIT didProcessEditing(edit.range, edit.changeInLength);
    }
}

void TextStorage::checkRange(TextRange range) const
{
    PLATFORM_ASSERT(range.location >= 0 && range.length >= 0 && range.location <= length() &&
                        range.length <= length() - range.location,
                    "range {%ld, %ld} beyond the text's length %ld", range.location, range.length,
                    length());
}

void TextStorage::checkEdit(qsizetype newLength) const
{
    PLATFORM_ASSERT(!m_replacing, "edit from within the signal of another");
    PLATFORM_ASSERT(newLength <= maximumLength, "text of %ld units is too long", newLength);
}

} // namespace platform
