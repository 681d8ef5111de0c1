#pragma once

#include <QStyledItemDelegate>

class LSMSampleThumbnails;

/// Paints a tile of the contact sheet: the sample's thumbnail with the layout's name below. Asks
/// for the thumbnails of what it paints, so only those in sight are rendered. Owned by the sheet.
class LSMSampleDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// The sample's path is the items' `Qt::UserRole`.
    LSMSampleDelegate(LSMSampleThumbnails *thumbnails, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    LSMSampleThumbnails *m_thumbnails;
};
