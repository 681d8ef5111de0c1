#include "workbench/LSMSampleDelegate.h"

#include "kit/ui/TintedIcon.h"
#include "platform/Appearance.h"
#include "workbench/LSMSampleThumbnails.h"

#include <QPainter>

using platform::namedColor;

namespace {

constexpr int margin = 10;
constexpr QSize pageSize(240, 180);
constexpr qreal corner = 6;

} // namespace

LSMSampleDelegate::LSMSampleDelegate(LSMSampleThumbnails *thumbnails, QObject *parent)
    : QStyledItemDelegate(parent), m_thumbnails(thumbnails)
{
}

QSize LSMSampleDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return pageSize.grownBy({margin, margin, margin, margin}) +
           QSize(0, option.fontMetrics.height() + margin / 2);
}

void LSMSampleDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    const bool selected = option.state & QStyle::State_Selected;
    const bool active = selected && (option.state & QStyle::State_HasFocus);
    if (selected) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(namedColor(active ? QStringLiteral("selectionBackground")
                                            : QStringLiteral("inactiveSelectionBackground")));
        painter->drawRoundedRect(option.rect.adjusted(1, 1, -1, -1), corner, corner);
    }
    const QRect page(option.rect.topLeft() + QPoint(margin, margin), pageSize);
    const QImage picture = m_thumbnails->thumbnail(index.data(Qt::UserRole).toString());
    painter->fillRect(page, namedColor(QStringLiteral("contentBackground")));
    if (picture.isNull())
        zq::tintedIcon(QStringLiteral("Picture"))
            .paint(painter, page.adjusted(90, 60, -90, -60), Qt::AlignCenter, QIcon::Disabled);
    else
        painter->drawImage(page, picture);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(namedColor(QStringLiteral("thumbnailBorder")));
    painter->drawRect(QRectF(page).adjusted(0.5, 0.5, -0.5, -0.5));

    const QRect text = option.rect.adjusted(margin, margin + pageSize.height(), -margin, 0);
    painter->setPen(namedColor(QStringLiteral("labelColor")));
    painter->drawText(
        text, Qt::AlignCenter,
        option.fontMetrics.elidedText(index.data().toString(), Qt::ElideMiddle, text.width()));
    painter->restore();
}
