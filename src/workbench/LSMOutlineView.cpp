#include "workbench/LSMOutlineView.h"

#include <QMouseEvent>

LSMOutlineView::LSMOutlineView(QWidget *parent) : QTreeView(parent)
{
    setHeaderHidden(true);
    setIndentation(0);
    setFrameShape(QFrame::NoFrame);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setExpandsOnDoubleClick(false);
    setMouseTracking(true);
}

int LSMOutlineView::rowForIndex(const QModelIndex &index) const
{
    int row = 0;
    for (int top = 0; top < model()->rowCount(); ++top) {
        const QModelIndex group = model()->index(top, 0);
        if (group == index)
            return row;
        if (isExpanded(group) && index.parent() == group)
            return row + 1 + index.row();
        row += 1 + (isExpanded(group) ? model()->rowCount(group) : 0);
    }
    return -1;
}

QModelIndex LSMOutlineView::indexForRow(int row) const
{
    for (int top = 0; top < model()->rowCount(); ++top) {
        const QModelIndex group = model()->index(top, 0);
        const int children = isExpanded(group) ? model()->rowCount(group) : 0;
        if (row <= children)
            return row == 0 ? group : model()->index(row - 1, 0, group);
        row -= 1 + children;
    }
    return {};
}

QList<int> LSMOutlineView::selectedRowIndexes() const
{
    QList<int> rows;
    for (const QModelIndex &index : selectionModel()->selectedRows())
        rows.append(rowForIndex(index));
    rows.removeAll(-1);
    return rows;
}

void LSMOutlineView::selectRow(int row)
{
    const QModelIndex index = indexForRow(row);
    if (!index.isValid() || !(index.flags() & Qt::ItemIsSelectable)) {
        selectionModel()->clearSelection();
        return;
    }
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    reveal(index);
}

// With the first of a group its heading shows too.
void LSMOutlineView::reveal(const QModelIndex &index)
{
    scrollTo(index);
    if (index.row() == 0)
        scrollTo(index.parent());
}

// What was selected before the view had its size is brought into sight now.
void LSMOutlineView::showEvent(QShowEvent *event)
{
    QTreeView::showEvent(event);
    if (currentIndex().isValid())
        reveal(currentIndex());
}

QItemSelectionModel::SelectionFlags LSMOutlineView::selectionCommand(const QModelIndex &index,
                                                                     const QEvent *event) const
{
    if (!(index.flags() & Qt::ItemIsSelectable))
        return QItemSelectionModel::NoUpdate;
    return QTreeView::selectionCommand(index, event) & ~QItemSelectionModel::Toggle &
           ~QItemSelectionModel::Deselect;
}

QModelIndex LSMOutlineView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex start = currentIndex();
    if (action == MoveLeft || action == MoveRight)
        return start;
    QModelIndex index = QTreeView::moveCursor(action, modifiers);
    const bool up = action == MoveUp || action == MovePrevious || action == MovePageUp;
    while (index.isValid() && !(index.flags() & Qt::ItemIsSelectable)) {
        const QModelIndex next = up && action != MoveHome ? indexAbove(index) : indexBelow(index);
        if (!next.isValid())
            return start;
        index = next;
    }
    return index;
}

void LSMOutlineView::mousePressEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid() && !(index.flags() & Qt::ItemIsSelectable)) {
        setExpanded(index, !isExpanded(index));
        event->accept();
        return;
    }
    if (index.isValid())
        QTreeView::mousePressEvent(event);
}
