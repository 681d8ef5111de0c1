#pragma once

#include "platform/text/PieceLayout.h"
#include "platform/text/PlainGlyphs.h"
#include <memory>

namespace platform {

/// One row of text that needs no shaping, from left to right. Several times faster than a shaped
/// one, and equal to it pixel by pixel.
class PlainLayout : public PieceLayout
{
public:
    /// Null for a text that must be shaped.
    static std::unique_ptr<PlainLayout> of(const QString &text, const LineStyle &style);

    qsizetype rowCount() const override { return 1; }
    qreal width() const override { return m_places.back(); }
    qsizetype rowAt(qsizetype, TextAffinity) const override { return 0; }
    TextRange rowRange(qsizetype) const override { return {0, length()}; }
    qreal xOf(qsizetype offset, qsizetype) const override { return m_places[size_t(offset)]; }
    qsizetype offsetAt(qreal x, qsizetype row) const override;
    TextRange clusterAt(qreal x, qsizetype row) const override;
    qsizetype leftOf(qsizetype offset) const override { return qMax<qsizetype>(0, offset - 1); }
    qsizetype rightOf(qsizetype offset) const override { return qMin(offset + 1, length()); }
    std::vector<std::pair<qreal, qreal>> spansOf(TextRange offsets, qsizetype row) const override;
    QList<QGlyphRun> glyphsOf(TextRange offsets, qsizetype row) const override;

private:
    PlainLayout(const QString &text, std::vector<qreal> places, const LineStyle &style);
    qsizetype length() const { return m_text.size(); }

    QString m_text;
    std::vector<qreal> m_places; ///< Left edges, and the last one's right.
    std::shared_ptr<const PlainGlyphs> m_glyphs;
    qreal m_baseline;
};

} // namespace platform
