#pragma once

#include <QTreeView>

/// The outline's view: one column, groups that open and close but are never selected, neither by
/// mouse nor by keyboard, and a selection that a click beside the rows leaves alone. A note may
/// stand below the rows.
///
/// Rows are counted as they stand on screen, from 0, groups included.
class LSMOutlineView : public QTreeView
{
    Q_OBJECT

public:
    explicit LSMOutlineView(QWidget *parent = nullptr);

    int rowForIndex(const QModelIndex &index) const; ///< -1 where it does not show.
    QModelIndex indexForRow(int row) const;
    QList<int> selectedRowIndexes() const;

    /// Selects that row alone and scrolls it into view; a row that cannot be selected selects none.
    void selectRow(int row);

    void setNote(const QString &note); ///< Empty: none.
    QString note() const { return m_note; }

public Q_SLOTS:
    void undo() { Q_EMIT undoWasAskedFor(); } ///< By the menu, while the property `canUndo` is set.

Q_SIGNALS:
    void undoWasAskedFor();
    /// By the right button or the keyboard. `onDesign` is false beside the designs.
    void contextMenuWasAskedFor(const QPoint &globalPosition, bool onDesign);

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void drawBranches(QPainter *, const QRect &, const QModelIndex &) const override {}
    void mousePressEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void reveal(const QModelIndex &index);
    bool isSelectable(const QModelIndex &index) const;

    QString m_note;
};
