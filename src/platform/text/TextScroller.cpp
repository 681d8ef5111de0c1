#include "platform/text/TextScroller.h"

#include <cmath>

namespace platform {

TextScroller::TextScroller(LayoutManager &layout, HeightOfLine heightOfLine)
    : m_layout(layout), m_heightOfLine(std::move(heightOfLine)),
      m_lineCount(layout.textStorage()->lineCount())
{
}

void TextScroller::setSize(QSizeF size)
{
    m_size = size;
    setPosition(m_position);
}

void TextScroller::setPosition(const ScrollPosition &position)
{
    m_position = normalized(position);
    const qsizetype rowsBelow =
        m_layout.textStorage()->lineCount() - m_position.line - m_layout.hiddenLines().count();
    if (qreal(rowsBelow - 1) * m_layout.style().rowHeight <= m_size.height() + m_position.above) {
        const ScrollPosition furthest = end();
        if (std::pair(m_position.line, m_position.above) >
            std::pair(furthest.line, furthest.above)) {
            m_position.line = furthest.line;
            m_position.above = furthest.above;
        }
    }
    m_position.left =
        std::round(std::clamp<qreal>(position.left, 0, qMax<qreal>(0, m_width - m_size.width())));
}

qsizetype TextScroller::lineAfter(qsizetype line) const
{
    return m_layout.hiddenLines().shownAtOrAfter(line + 1);
}

qsizetype TextScroller::lineBefore(qsizetype line) const
{
    return m_layout.hiddenLines().shownAtOrBefore(line - 1);
}

ScrollPosition TextScroller::normalized(ScrollPosition position) const
{
    const qsizetype last = m_layout.textStorage()->lineCount() - 1;
    position.line = std::clamp<qsizetype>(position.line, 0, last);
    position.above = std::round(position.above);
    while (position.above < 0 && position.line > 0) {
        position.line = lineBefore(position.line);
        position.above += m_heightOfLine(position.line);
    }
    position.above = qMax<qreal>(0, position.above);
    for (qreal height = m_heightOfLine(position.line);
         position.above >= height && position.line < last; height = m_heightOfLine(position.line)) {
        position.above -= height;
        position.line = lineAfter(position.line);
    }
    return position;
}

ScrollPosition TextScroller::end() const
{
    const ScrollPosition estimate = estimatedEnd();
    LineLayout &line = m_layout.line(estimate.line);
    if (!isEstimated(line))
        return estimate;
    line.rowAt(line.length());
    line.offsetAt({0, estimate.above});
    return estimatedEnd();
}

ScrollPosition TextScroller::estimatedEnd() const
{
    qsizetype line = m_layout.textStorage()->lineCount();
    qreal above = -m_size.height();
    do {
        line = lineBefore(line);
        above += m_heightOfLine(line);
    } while (above < 0 && line > 0);
    return {line, std::round(qMax<qreal>(0, above)), 0};
}

// A long line may turn out longer or shorter where it comes into sight.
bool TextScroller::isEstimated(const LineLayout &line) const
{
    return m_layout.style().wrapWidth > 0 &&
           line.length() > LineLayout::longestPiece(m_layout.style());
}

void TextScroller::scrollBy(QPointF delta)
{
    ScrollPosition position = m_position;
    position.left += delta.x();
    const qreal wanted = position.above + delta.y();
    if (delta.y() < 0) {
        position.above += knownAbove(position.line, position.above, qMax<qreal>(wanted, 0));
        if (wanted < 0 && position.line > 0) {
            LineLayout &line = m_layout.line(lineBefore(position.line));
            line.rowAt(line.length());
        }
    }
    position.above += delta.y();
    setPosition(position);
}

// What was at the top of the window is to stay there, so this gives by how much it has moved.
qreal TextScroller::knownAbove(qsizetype line, qreal from, qreal to) const
{
    LineLayout &layout = m_layout.line(line);
    if (!isEstimated(layout))
        return 0;
    const qsizetype offset = layout.offsetAt({0, from});
    const qreal before = layout.caretRect(offset).y();
    layout.offsetAt({0, to});
    return layout.caretRect(offset).y() - before;
}

void TextScroller::reveal(qsizetype line, const QRectF &rect)
{
    ScrollPosition position = m_position;
    const qreal far = m_size.height();
    const std::optional<qreal> top = topNear(line);
    if (!top || *top + rect.top() > 2 * far || *top + rect.bottom() < -far) {
        position.line = line;
        position.above = rect.center().y() - far / 2;
    } else if (*top + rect.top() < 0) {
        position.line = line;
        position.above = rect.top();
    } else if (*top + rect.bottom() > far) {
        position.line = line;
        position.above = rect.bottom() - far;
    }
    if (position.left > rect.left() || rect.width() > m_size.width())
        position.left = rect.left();
    else if (position.left < rect.right() - m_size.width())
        position.left = rect.right() - m_size.width();
    if (position != m_position)
        setPosition(position);
}

void TextScroller::textDidChange(TextRange range, qsizetype)
{
    const TextStorage &text = *m_layout.textStorage();
    const qsizetype added = text.lineCount() - m_lineCount;
    m_lineCount = text.lineCount();
    const qsizetype first = text.lineAt(range.location);
    const qsizetype last = text.lineAt(range.end());
    if (added == 0 || first >= m_position.line)
        return;
    if (last - added < m_position.line)
        m_position.line += added;
    else
        m_position = {std::clamp(m_position.line, first, last), 0, m_position.left};
}

void TextScroller::textStorageDidChange()
{
    m_lineCount = m_layout.textStorage()->lineCount();
    m_position = {};
    m_width = 0;
}

std::optional<qreal> TextScroller::topOfLine(qsizetype line) const
{
    const std::optional<qreal> top = line < m_position.line ? std::nullopt : topNear(line);
    return top && *top < m_size.height() ? top : std::nullopt;
}

// Within a window's height above and below the window.
std::optional<qreal> TextScroller::topNear(qsizetype line) const
{
    qreal top = -m_position.above;
    qsizetype at = m_position.line;
    while (at > line && top > -m_size.height()) {
        at = lineBefore(at);
        top -= m_heightOfLine(at);
    }
    while (at < line && top < 2 * m_size.height()) {
        top += m_heightOfLine(at);
        at = lineAfter(at);
    }
    return at == line ? std::optional(top) : std::nullopt;
}

qsizetype TextScroller::lineAtY(qreal y) const
{
    const qsizetype last = m_layout.textStorage()->lineCount() - 1;
    qreal bottom = m_heightOfLine(m_position.line) - m_position.above;
    qsizetype line = m_position.line;
    while (bottom <= qMin(y, m_size.height()) && line < last) {
        line = lineAfter(line);
        bottom += m_heightOfLine(line);
    }
    return line;
}

} // namespace platform
