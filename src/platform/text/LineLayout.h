#pragma once

#include "platform/text/LinePiece.h"
#include <QPainter>

namespace platform {

/// One line of a text, without its line end, laid out in one row or, wrapped, in several. All rows
/// have one height, whatever fonts stand in for missing characters. Offsets are UTF-16 units from
/// the line's start, 0 to `length()`; places are pixels from the line's left top corner. Controls,
/// halves of surrogate pairs and the like are shown as a visible sign, never as a line break.
///
/// A line above `longestPiece` is laid out in pieces, each when it is looked at: until then its
/// size counts by estimate, so that rows and places behind it move when it becomes known. When
/// lines wrap each piece begins a row. An edit changes only the piece that it falls in.
///
/// Owned by the layout manager; borrows style and formats from it. The main thread.
class LineLayout
{
public:
    LineLayout(const QString &text, const LineStyle &style, const LineFormats &formats);

    /// UTF-16 units, by the style.
    static qsizetype longestPiece(const LineStyle &style);

    qsizetype length() const { return m_length; }
    qsizetype rowCount();
    qreal height() { return qreal(rowCount()) * m_style.rowHeight; }
    qreal width() const; ///< Of the longest row.

    // Rows. An offset at a soft break is in the former row when upstream.
    qsizetype rowAt(qsizetype offset, TextAffinity affinity = TextAffinity::Downstream);
    TextRange rowRange(qsizetype row); ///< In offsets.

    /// The place of a caret: left edge, top, no width, the height of a row.
    QRectF caretRect(qsizetype offset, TextAffinity affinity = TextAffinity::Downstream);

    /// The nearest place for a caret; beyond the line that at its edge.
    qsizetype offsetAt(QPointF point, TextAffinity *affinity = nullptr);

    /// The cluster under the point, empty beyond the ends of its row.
    TextRange clusterAt(QPointF point);

    /// The next places for a caret by what is seen, in text of both directions; the same offset at
    /// the line's ends.
    qsizetype leftOf(qsizetype offset);
    qsizetype rightOf(qsizetype offset);

    /// What of the range lies in `clip`: one rectangle per row and direction, from left to right.
    std::vector<QRectF> rectsOf(TextRange offsets, const QRectF &clip);

    /// What of the line lies in `clip`, with the line's left top corner at `origin`, in the
    /// painter's pen where no format says otherwise; its background apart, so that something can
    /// lie between. `clip` is in the painter's coordinates.
    void drawBackground(QPainter *painter, QPointF origin, const QRectF &clip);
    void draw(QPainter *painter, QPointF origin, const QRectF &clip);

    // The text around it.
    void setLocation(qsizetype location) { m_location = location; } ///< Of its start, in the text.
    void formatsDidChange(TextRange offsets);
    /// `range` has become `text`. Neither takes half a surrogate pair from or to its other half.
    void replace(TextRange range, const QString &text);

private:
    /// A piece and where it stands in its line.
    struct Place
    {
        size_t index = 0;
        qsizetype offset = 0;
        qsizetype row = 0;
        qreal x = 0;
    };

    bool isWrapped() const { return m_style.wrapWidth > 0; }
    void cut(const QString &text, std::vector<LinePiece> &pieces) const;
    Place first() const { return {}; }
    Place next(const Place &place) const;
    bool isLast(const Place &place) const { return place.index + 1 == m_pieces.size(); }
    Place placeOf(qsizetype offset, TextAffinity affinity) const;
    Place placeAtRow(qsizetype row) const;
    Place placeAt(QPointF point) const;
    qsizetype rowIn(const Place &place, qreal y) const;
    LinePiece &laidOut(const Place &place);
    template <class Function>
    void forEachPiece(QPointF origin, const QRectF &clip, Function function);
    void forgetFarPieces(size_t index);

    const LineStyle &m_style;
    const LineFormats &m_formats;
    std::vector<LinePiece> m_pieces; ///< Never none.
    size_t m_laidOut = 0;            ///< Pieces with a layout, at most.
    qsizetype m_length = 0;
    qsizetype m_location = 0;
};

} // namespace platform
