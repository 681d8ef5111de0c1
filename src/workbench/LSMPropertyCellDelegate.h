#pragma once

#include "workbench/LSMTextCellDelegate.h"

struct LSMAttributedText;

/// Paints the cells of the property table, each with its control (LSMPropertyTableModel::Control).
/// Main thread.
class LSMPropertyCellDelegate : public LSMTextCellDelegate
{
    Q_OBJECT

public:
    using LSMTextCellDelegate::LSMTextCellDelegate;

protected:
    QRect paintControl(QPainter *painter, const QStyleOptionViewItem &item,
                       const QModelIndex &index, QRect frame) const override;
    void paintContent(QPainter *painter, const QStyleOptionViewItem &item, const QModelIndex &index,
                      const QRect &frame) const override;

private:
    static void paintSummary(QPainter *painter, QRect frame, const LSMAttributedText &text);
};
