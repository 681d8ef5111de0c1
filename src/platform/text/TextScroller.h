#pragma once

#include "platform/text/LayoutManager.h"
#include <functional>
#include <optional>
#include <QSizeF>

namespace platform {

/// Where a view is scrolled to: the line at its top, and the pixels of that line above the edge.
struct ScrollPosition
{
    qsizetype line = 0;
    qreal above = 0; ///< Pixels, at least 0.
    qreal left = 0;  ///< Pixels that lie left of the edge.
    bool operator==(const ScrollPosition &) const = default;
};

/// Which part of a text lies in a window of some size: scrolls by lines and pixels without knowing
/// the height of the text. Only lines in or near the window are looked at. Pixels are whole.
/// Borrows the layout manager.
class TextScroller
{
public:
    using HeightOfLine = std::function<qreal(qsizetype)>;

    TextScroller(LayoutManager &layout, HeightOfLine heightOfLine);

    QSizeF size() const { return m_size; } ///< Of the window.
    void setSize(QSizeF size);

    const ScrollPosition &position() const { return m_position; }
    /// The nearest that the text allows: its last line does not leave the window's bottom edge, as
    /// long as there is something above.
    void setPosition(const ScrollPosition &position);
    void scrollBy(QPointF delta);

    /// Scrolls as little as needed to see the rectangle, which counts from the line's left top
    /// corner; into the middle, when it is far away.
    void reveal(qsizetype line, const QRectF &rect);

    /// The text was edited: the same lines stay in sight, and what has become too short is mended.
    void textDidChange(TextRange range, qsizetype changeInLength);
    void textStorageDidChange(); ///< Another text: from its start.

    /// The line's top below the window's; nullopt out of sight, and for a hidden line.
    std::optional<qreal> topOfLine(qsizetype line) const;
    qsizetype lineAtY(qreal y) const; ///< The nearest in sight.

    /// The furthest position.
    ScrollPosition end() const;

    /// Of the widest line seen so far, in pixels.
    qreal width() const { return m_width; }
    void noteWidth(qreal width) { m_width = qMax(m_width, width); }
    void forgetWidth() { m_width = 0; }

private:
    qsizetype lineAfter(qsizetype line) const; ///< That is not hidden.
    qsizetype lineBefore(qsizetype line) const;
    ScrollPosition normalized(ScrollPosition position) const;
    std::optional<qreal> topNear(qsizetype line) const;
    ScrollPosition estimatedEnd() const;
    bool isEstimated(const LineLayout &line) const;
    qreal knownAbove(qsizetype line, qreal from, qreal to) const;

    LayoutManager &m_layout;
    HeightOfLine m_heightOfLine;
    ScrollPosition m_position;
    QSizeF m_size;
    qreal m_width = 0;
    qsizetype m_lineCount;
};

} // namespace platform
