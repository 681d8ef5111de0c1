#include "workbench/LSMOutlineItemDelegate.h"

#include "kit/ui/TintedIcon.h"
#include "library/LSMDesignTemplate.h"
#include "platform/Appearance.h"
#include "platform/Bundle.h"
#include "workbench/LSMOutlineView.h"

#include <QPainter>
#include <QPainterPath>

using platform::namedColor;

namespace {

constexpr int margin = 8;
constexpr int designHeight = 48;
constexpr int groupHeight = 30;
constexpr QSize thumbnailSize(44, 33);
constexpr qreal corner = 5;

QFont smaller(QFont font, qreal factor)
{
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(false);
    return font;
}

void drawElided(QPainter *painter, const QRect &rect, const QString &text)
{
    painter->drawText(rect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(text, Qt::ElideRight, rect.width()));
}

} // namespace

LSMOutlineItemDelegate::LSMOutlineItemDelegate(LSMOutlineView *view, DesignAt designAt)
    : QStyledItemDelegate(view), m_view(view), m_designAt(std::move(designAt)),
      m_thumbnails(new LSMThumbnailLoader(this))
{
    connect(m_thumbnails, &LSMThumbnailLoader::thumbnailDidLoad, view,
            [view] { view->viewport()->update(); });
}

QSize LSMOutlineItemDelegate::sizeHint(const QStyleOptionViewItem &option,
                                       const QModelIndex &index) const
{
    const int lines = QFontMetrics(option.font).height() * 2;
    return {120, index.parent().isValid() ? qMax(designHeight, lines + margin) : groupHeight};
}

void LSMOutlineItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                   const QModelIndex &index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (const LSMDesignTemplate *design = m_designAt(index))
        paintDesign(painter, option, *design);
    else
        paintGroup(painter, option, index);
    painter->restore();
}

void LSMOutlineItemDelegate::paintGroup(QPainter *painter, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    const QRect row = option.rect.adjusted(margin + 2, 4, -margin, 0);
    QFont font = smaller(option.font, 0.88);
    font.setWeight(QFont::DemiBold);
    painter->setFont(font);
    painter->setPen(namedColor(QStringLiteral("secondaryLabelColor")));

    QPolygonF arrow{{0, -3.5}, {4, 0}, {0, 3.5}};
    painter->save();
    painter->translate(row.left() + 4, row.center().y() + 0.5);
    painter->rotate(m_view->isExpanded(index) ? 90 : 0);
    painter->translate(-2, 0);
    painter->setPen(QPen(painter->pen().color(), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(arrow);
    painter->restore();

    drawElided(painter, row.adjusted(16, 0, -40, 0), index.data().toString());
    painter->drawText(row, Qt::AlignVCenter | Qt::AlignRight,
                      QLocale().toString(index.model()->rowCount(index)));
}

void LSMOutlineItemDelegate::paintDesign(QPainter *painter, const QStyleOptionViewItem &option,
                                         const LSMDesignTemplate &design) const
{
    const bool selected = option.state & QStyle::State_Selected;
    const bool active = selected && (option.state & QStyle::State_Active) && m_view->hasFocus();
    const QRect row = option.rect.adjusted(margin - 2, 1, -margin + 2, -1);
    if (selected) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(namedColor(active ? QStringLiteral("selectionBackground")
                                            : QStringLiteral("inactiveSelectionBackground")));
        painter->drawRoundedRect(row, corner, corner);
    }

    const QRect picture(QPoint(row.left() + margin, row.center().y() - thumbnailSize.height() / 2),
                        thumbnailSize);
    paintThumbnail(painter, picture, design);

    const QString titleColor = design.outlineViewTextColor().isValid()
                                   ? QStringLiteral("paidTemplateColor")
                                   : QStringLiteral("labelColor");
    const QRect text(picture.right() + 10, row.top(), row.right() - picture.right() - 16,
                     row.height());
    const int middle = text.center().y() + 1;

    painter->setFont(design.outlineViewTextFont());
    painter->setPen(namedColor(titleColor));
    const int titleHeight = painter->fontMetrics().height();
    drawElided(painter, {text.left(), middle - titleHeight, text.width(), titleHeight},
               design.templateName());
    painter->setFont(smaller(option.font, 0.85));
    painter->setPen(namedColor(QStringLiteral("secondaryLabelColor")));
    drawElided(painter, {text.left(), middle + 1, text.width(), painter->fontMetrics().height()},
               design.isOldVersion() ? platform::localized("Old single-file design")
                                     : design.templateIdentifier());
}

// A picture that was pasted stands in no file.
QImage LSMOutlineItemDelegate::thumbnail(const LSMDesignTemplate &design, const QSize &size) const
{
    const QString path = design.templateImagePath();
    if (!path.isEmpty())
        return m_thumbnails->thumbnail(path, size);
    const QImage image = design.templateImage();
    return image.isNull()
               ? image
               : image.scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
}

void LSMOutlineItemDelegate::paintThumbnail(QPainter *painter, const QRect &frame,
                                            const LSMDesignTemplate &design) const
{
    QPainterPath clip;
    clip.addRoundedRect(QRectF(frame), 3, 3);
    painter->fillPath(clip, namedColor(QStringLiteral("contentBackground")));
    const qreal ratio = painter->device()->devicePixelRatioF();
    QImage image = thumbnail(design, thumbnailSize * ratio);
    if (image.isNull()) {
        zq::tintedIcon(QStringLiteral("Picture"))
            .paint(painter, frame.adjusted(12, 6, -12, -6), Qt::AlignCenter, QIcon::Disabled);
    } else {
        painter->save();
        painter->setClipPath(clip);
        image.setDevicePixelRatio(ratio);
        painter->drawImage(frame.topLeft(), image);
        painter->restore();
    }
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(namedColor(QStringLiteral("thumbnailBorder")), 1));
    painter->drawRoundedRect(QRectF(frame).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}
