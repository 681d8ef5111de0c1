#pragma once

#include "kit/ui/ZQKeywordViewDelegate.h"

#include <array>
#include <QHash>
#include <QImage>
#include <QPixmap>

namespace zq {

/// The finished pictures of badges, one for each keyword and state, made when first asked for: an
/// image resource in three slices, in the named colour of its state, and the text over it. The
/// resources are line drawings, so that a badge is sharp at any device pixel ratio. Owned by the
/// view that shows them; main thread.
class KeywordBadges
{
public:
    enum State { Normal, Selected, Hover, HoverSelected, Pressed, PressedSelected, StateCount };

    struct Measures // pixels
    {
        double height = 18;
        double minWidth = 70;   ///< Of the text's part.
        double cornerWidth = 9; ///< Of an end piece; at most half of the image resource.
        QSizeF labelOffset;     ///< Upwards is positive.

        friend bool operator==(const Measures &, const Measures &) = default;
    };

    /// Both forget all pictures, if anything is different.
    void setMeasures(const Measures &measures);
    void setDevicePixelRatio(qreal ratio);
    void forgetImages(); ///< The colours are others.

    /// Before the keyword's width or image is asked for. Another text forgets its pictures.
    void setText(const QString &keyword, const ZQKeywordText &text);
    QString text(const QString &keyword) const;
    double width(const QString &keyword) const;

    /// The state's image. Without the resource for it: null, or a programming fault for the states
    /// Normal and Selected.
    QPixmap image(const QString &keyword, State state);

    static QFont labelFont();

private:
    struct Badge
    {
        ZQKeywordText text;
        double textWidth = 0;
        std::array<QPixmap, StateCount> images;
    };

    double middleWidth(const Badge &badge) const;
    QImage badgeImage(State state) const;
    QPixmap computeImage(const Badge &badge, State state);
    void drawText(QPainter &painter, const Badge &badge, State state) const;

    Measures m_measures;
    qreal m_ratio = 1;
    QHash<QString, Badge> m_badges;
    std::array<QImage, StateCount> m_badgeImages;
};

} // namespace zq
