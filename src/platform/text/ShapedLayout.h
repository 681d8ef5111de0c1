#pragma once

#include "platform/text/PieceLayout.h"
#include <QTextLayout>

namespace platform {

/// Any text: shaped, with ligatures, marks, other fonts for missing characters and both directions.
class ShapedLayout : public PieceLayout
{
public:
    ShapedLayout(const QString &text, const LineStyle &style);

    QTextLine line(qsizetype row) const { return m_layout.lineAt(int(row)); }

    qsizetype rowCount() const override { return qMax(1, m_layout.lineCount()); }
    qreal width() const override { return m_width; }
    qsizetype rowAt(qsizetype offset, TextAffinity affinity) const override;
    TextRange rowRange(qsizetype row) const override;
    qreal xOf(qsizetype offset, qsizetype row) const override;
    qsizetype offsetAt(qreal x, qsizetype row) const override;
    TextRange clusterAt(qreal x, qsizetype row) const override;
    qsizetype leftOf(qsizetype offset) const override;
    qsizetype rightOf(qsizetype offset) const override;
    std::vector<std::pair<qreal, qreal>> spansOf(TextRange offsets, qsizetype row) const override;
    QList<QGlyphRun> glyphsOf(TextRange offsets, qsizetype row) const override;

private:
    qsizetype nextCluster(qsizetype offset) const;

    QTextLayout m_layout;
    qreal m_width = 0;
    bool m_hasRightToLeft;
};

} // namespace platform
