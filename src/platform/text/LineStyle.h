#pragma once

#include "platform/text/TextAttributes.h"
#include "platform/text/TextRange.h"
#include <memory>
#include <QFont>
#include <vector>

namespace platform {

class PlainGlyphs;

/// Which side of a place between two characters is meant, where a soft line break or a change of
/// direction gives the place two positions on the screen.
enum class TextAffinity : quint8 { Upstream, Downstream };

/// How lines are laid out; the same for all lines of a text. Pixels.
struct LineStyle
{
    QFont font;
    std::shared_ptr<PlainGlyphs> plainGlyphs; ///< Of that font; null: everything is shaped.
    qreal tabInterval = 32;                   ///< Above 0.
    qreal wrapWidth = 0;                      ///< 0: lines do not wrap.
    qreal rowHeight = 16;                     ///< Of every row.
    qreal baseline = 12;                      ///< Below the top of a row.
    qreal characterWidth = 8; ///< Of a blank: what is not laid out yet counts by it.
};

/// Tells a line layout what is painted on a stretch of the text. Outlives the layouts that ask it.
class LineFormats
{
public:
    struct Run
    {
        TextRange range; ///< In the text.
        TextAttributes attributes;
        bool operator==(const Run &) const = default;
    };

    virtual std::vector<Run> runs(TextRange range) const = 0;

protected:
    ~LineFormats() = default;
};

} // namespace platform
