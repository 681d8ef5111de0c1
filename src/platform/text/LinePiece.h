#pragma once

#include "platform/text/PieceLayout.h"
#include <memory>
#include <QPainter>

namespace platform {

/// A stretch of a line that is laid out as one: a whole ordinary line, or a few thousand characters
/// of a long one. Offsets count from the piece's start, places from its left top corner. Until it
/// is laid out its size is an estimate. Owned by its line.
class LinePiece
{
public:
    /// `text` is shown with signs in place of what has none.
    LinePiece(const QString &text, const LineStyle &style);

    const QString &text() const { return m_text; } ///< As it is shown.
    qsizetype length() const { return m_text.size(); }
    qsizetype rowCount() const { return m_rowCount; }
    qreal width() const { return m_width; } ///< Pixels, of the longest row.

    bool isLaidOut() const { return m_layout != nullptr; }
    /// Lays it out if that has not been done since the formats changed. `location`: in the text.
    void layOut(const LineStyle &style, const LineFormats &formats, qsizetype location);
    void forgetLayout(); ///< The size stays known.
    void formatsDidChange() { m_formatsAreFresh = false; }

    // Of a piece that is laid out.
    void drawBackground(QPainter *painter, QPointF origin) const;
    void draw(QPainter *painter, QPointF origin, const QRectF &clip) const;
    const PieceLayout &layout() const { return *m_layout; }

private:
    /// Glyphs of one row and colour. Colours are none of the layout's business, so that another
    /// colour does not cost another layout.
    struct Stroke
    {
        QGlyphRun glyphs;
        QPointF start; ///< On the base line.
        QColor color;  ///< Invalid: the painter's.
    };

    void collectStrokes();
    void addStroke(TextRange offsets, const QColor &color);
    void drawUnderlines(QPainter *painter, QPointF origin) const;
    template <class Function>
    void forEachRect(TextRange offsets, QPointF origin, Function function) const;

    QString m_text;
    std::unique_ptr<PieceLayout> m_layout;
    std::vector<LineFormats::Run> m_runs; ///< By offsets; what the strokes were made by.
    std::vector<Stroke> m_strokes;
    qreal m_rowHeight = 0;
    qsizetype m_rowCount = 1;
    qreal m_width = 0;
    bool m_formatsAreFresh = false;
};

} // namespace platform
