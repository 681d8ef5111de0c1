#pragma once

#include <QStyledItemDelegate>

/// Paints the cells of the property table, each with the control of its type: a popup's arrow, a
/// colour well, a check box, the summary of a list of values with the sign that opens it. Edits
/// texts in place: each key goes to the model, Escape puts back what was there. Main thread.
class LSMPropertyCellDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    bool eventFilter(QObject *editor, QEvent *event) override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    void paintBackground(QPainter *painter, const QStyleOptionViewItem &item) const;

    /// Paints the control at the cell's left and gives what it leaves for the text.
    QRect paintControl(QPainter *painter, const QStyleOptionViewItem &item,
                       const QModelIndex &index) const;
};
