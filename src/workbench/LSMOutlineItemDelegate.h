#pragma once

#include "workbench/LSMThumbnailLoader.h"

#include <QStyledItemDelegate>

class LSMDesignTemplate;
class LSMOutlineView;

/// Paints the outline's cells: "group", a small heading with its number of designs, and "design", a
/// thumbnail with title and identifier, bold when dirty and red when paid. Owned by the outline
/// controller; main thread.
class LSMOutlineItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using DesignAt = std::function<LSMDesignTemplate *(const QModelIndex &)>;

    /// `designAt` gives the design of a view's index, null for a group.
    LSMOutlineItemDelegate(LSMOutlineView *view, DesignAt designAt);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    void paintGroup(QPainter *painter, const QStyleOptionViewItem &option,
                    const QModelIndex &index) const;
    void paintDesign(QPainter *painter, const QStyleOptionViewItem &option,
                     const LSMDesignTemplate &design) const;
    void paintThumbnail(QPainter *painter, const QRect &frame,
                        const LSMDesignTemplate &design) const;
    QImage thumbnail(const LSMDesignTemplate &design, const QSize &size) const;

    LSMOutlineView *m_view;
    DesignAt m_designAt;
    LSMThumbnailLoader *m_thumbnails;
};
