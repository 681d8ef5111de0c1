#pragma once

#include <QStyledItemDelegate>

/// The cells of the tables of properties and of values: a text in one line, a check box where the
/// model has one. Edits texts in place: each key goes to the model, Escape puts back what was
/// there. Main thread.
class LSMTextCellDelegate : public QStyledItemDelegate
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

protected:
    static constexpr int margin = 8; ///< Pixels at either side of a cell.

    /// Paints what stands beside the text and gives what it leaves of `frame` for that.
    virtual QRect paintControl(QPainter *painter, const QStyleOptionViewItem &item,
                               const QModelIndex &index, QRect frame) const;
    virtual void paintContent(QPainter *painter, const QStyleOptionViewItem &item,
                              const QModelIndex &index, const QRect &frame) const;

    static void paintLine(QPainter *painter, const QRect &frame, const QString &text);
};
