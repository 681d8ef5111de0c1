#pragma once

#include "platform/text/LineStyle.h"
#include <QGlyphRun>

namespace platform {

/// Where the characters of a short text stand that is broken into rows. Offsets are UTF-16 units
/// from the text's start, places pixels from its left top corner; rows count from 0.
class PieceLayout
{
public:
    virtual ~PieceLayout() = default;

    virtual qsizetype rowCount() const = 0; ///< At least 1.
    virtual qreal width() const = 0;        ///< Of the longest row.

    /// At a soft break the former row when upstream.
    virtual qsizetype rowAt(qsizetype offset, TextAffinity affinity) const = 0;
    virtual TextRange rowRange(qsizetype row) const = 0;

    virtual qreal xOf(qsizetype offset, qsizetype row) const = 0;
    virtual qsizetype offsetAt(qreal x, qsizetype row) const = 0;  ///< The nearest for a caret.
    virtual TextRange clusterAt(qreal x, qsizetype row) const = 0; ///< Empty beyond the row's ends.

    /// The next places for a caret by what is seen; the same offset at the ends.
    virtual qsizetype leftOf(qsizetype offset) const = 0;
    virtual qsizetype rightOf(qsizetype offset) const = 0;

    /// Left and right edges of what the row has of the range, from left to right.
    virtual std::vector<std::pair<qreal, qreal>> spansOf(TextRange offsets,
                                                         qsizetype row) const = 0;

    /// Of a range within the row.
    virtual QList<QGlyphRun> glyphsOf(TextRange offsets, qsizetype row) const = 0;
};

} // namespace platform
