#include "platform/text/TextNavigator.h"

#include "platform/text/TextBoundaries.h"

namespace platform {

namespace {

// Whether order on the screen may differ from that of the text near the index.
bool isBidirectional(const TextStorage &text, TextRange line, qsizetype index)
{
    constexpr qsizetype neighbourhood = 200;
    constexpr char16_t firstRightToLeft = 0x590;
    const QString string =
        text.substring(line.intersected(TextRange::around(index, neighbourhood)));
    return std::any_of(string.cbegin(), string.cend(), [](QChar c) {
        return c.unicode() >= firstRightToLeft &&
               (c.isSurrogate() || c.direction() == QChar::DirR || c.direction() == QChar::DirAL);
    });
}

} // namespace

TextNavigator::Place TextNavigator::placeOf(qsizetype index) const
{
    const qsizetype line = m_text.lineAt(index);
    const TextRange contents = m_text.lineContents(line);
    return {line, qMin(index - contents.location, contents.length)};
}

bool TextNavigator::isRightToLeftAt(qsizetype index) const
{
    return isRightToLeft(m_text, m_text.lineAt(index));
}

TextSelection TextNavigator::moved(const TextSelection &from, TextMovement movement,
                                   TextMode mode) const
{
    const bool isHorizontal = movement == TextMovement::Left || movement == TextMovement::Right;
    TextSelection start = from;
    if (mode == TextMode::Move && !from.isEmpty()) {
        if (isHorizontal) {
            const bool isRight = movement == TextMovement::Right;
            const bool toEnd = isRight != isRightToLeftAt(from.caret);
            return TextSelection::at(toEnd ? from.range().end() : from.range().location);
        }
        if (movement == TextMovement::Up)
            start = TextSelection::at(from.range().location);
        if (movement == TextMovement::Down)
            start = TextSelection::at(from.range().end());
    }
    TextSelection result = destination(start, movement);
    result.anchor = mode == TextMode::Select ? from.anchor : result.caret;
    return result;
}

TextSelection TextNavigator::destination(const TextSelection &from, TextMovement movement) const
{
    const qsizetype index = from.caret;
    const TextRange line = m_text.lineContents(m_text.lineAt(index));
    switch (movement) {
    case TextMovement::Left:
        return TextSelection::at(besides(index, false));
    case TextMovement::Right:
        return TextSelection::at(besides(index, true));
    case TextMovement::WordLeft:
        return TextSelection::at(isRightToLeftAt(index) ? nextWord(m_text, index)
                                                        : previousWord(m_text, index));
    case TextMovement::WordRight:
        return TextSelection::at(isRightToLeftAt(index) ? previousWord(m_text, index)
                                                        : nextWord(m_text, index));
    case TextMovement::Backward:
        return TextSelection::at(startOfBackspace(m_text, index));
    case TextMovement::Forward:
        return TextSelection::at(nextCluster(m_text, index));
    case TextMovement::WordBackward:
        return TextSelection::at(previousWord(m_text, index));
    case TextMovement::WordForward:
        return TextSelection::at(nextWord(m_text, index));
    case TextMovement::Up:
        return vertically(from, -1);
    case TextMovement::Down:
        return vertically(from, 1);
    case TextMovement::PageUp:
        return vertically(from, -m_pageRows);
    case TextMovement::PageDown:
        return vertically(from, m_pageRows);
    case TextMovement::RowStart:
        return edgeOfRow(from, false);
    case TextMovement::RowEnd:
        return edgeOfRow(from, true);
    case TextMovement::LineStart:
        return TextSelection::at(line.location);
    case TextMovement::LineEnd:
        return TextSelection::at(line.end());
    case TextMovement::TextStart:
        return TextSelection::at(0);
    case TextMovement::TextEnd:
        return TextSelection::at(m_text.length());
    }
    return from;
}

qsizetype TextNavigator::besides(qsizetype index, bool toTheRight) const
{
    const qsizetype line = m_text.lineAt(index);
    const TextRange contents = m_text.lineContents(line);
    const bool isForward = toTheRight != isRightToLeft(m_text, line);
    if (index <= contents.end() && isBidirectional(m_text, contents, index)) {
        LineLayout &layout = m_layout.line(line);
        const qsizetype offset = index - contents.location;
        const qsizetype found = toTheRight ? layout.rightOf(offset) : layout.leftOf(offset);
        if (found != offset) {
            const qsizetype next = contents.location + found;
            const bool isPlace = startOfCluster(m_text, next) == next;
            return isPlace          ? next
                   : found > offset ? nextCluster(m_text, index)
                                    : previousCluster(m_text, index);
        }
        return isForward ? m_text.lineRange({index, 0}).end()
                         : previousCluster(m_text, contents.location);
    }
    return isForward ? nextCluster(m_text, index) : previousCluster(m_text, index);
}

TextSelection TextNavigator::vertically(const TextSelection &from, qsizetype rows) const
{
    Place place = placeOf(from.caret);
    const qreal rowHeight = m_layout.style().rowHeight;
    const qreal goal = from.goal >= 0
                           ? from.goal
                           : m_layout.line(place.line).caretRect(place.offset, from.affinity).x();
    qsizetype row = m_layout.line(place.line).rowAt(place.offset, from.affinity) + rows;
    // What lies above in a long line may become another number of rows when it is looked at.
    for (int i = 0; i < 3 && rows < 0 && row >= 0; ++i) {
        LineLayout &line = m_layout.line(place.line);
        line.rowRange(row);
        row = line.rowAt(place.offset, from.affinity) + rows;
    }
    for (; row < 0; row += m_layout.line(place.line).rowCount()) {
        if (place.line == 0)
            return {from.anchor, 0, TextAffinity::Downstream, goal};
        place.line = m_layout.hiddenLines().shownAtOrBefore(place.line - 1);
        LineLayout &line = m_layout.line(place.line);
        line.rowAt(line.length());
    }
    for (qsizetype count = m_layout.line(place.line).rowCount(); row >= count;
         count = m_layout.line(place.line).rowCount()) {
        row -= count;
        place.line = m_layout.hiddenLines().shownAtOrAfter(place.line + 1);
        if (place.line == m_text.lineCount())
            return {from.anchor, m_text.length(), TextAffinity::Downstream, goal};
    }
    TextSelection result{from.anchor, 0, TextAffinity::Downstream, goal};
    const qsizetype offset =
        m_layout.line(place.line)
            .offsetAt({goal, (qreal(row) + 0.5) * rowHeight}, &result.affinity);
    result.caret = startOfCluster(m_text, m_text.lineStart(place.line) + offset);
    return result;
}

TextSelection TextNavigator::edgeOfRow(const TextSelection &from, bool isEnd) const
{
    const Place place = placeOf(from.caret);
    LineLayout &line = m_layout.line(place.line);
    const TextRange row = line.rowRange(line.rowAt(place.offset, from.affinity));
    TextSelection result =
        TextSelection::at(m_text.lineStart(place.line) + (isEnd ? row.end() : row.location));
    if (isEnd && row.end() < line.length())
        result.affinity = TextAffinity::Upstream;
    return result;
}

} // namespace platform
