#include "workbench/LSMOutlineView.h"

#include "platform/Appearance.h"

#include <QContextMenuEvent>
#include <QPainter>

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
    if (!isSelectable(index)) {
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

bool LSMOutlineView::isSelectable(const QModelIndex &index) const
{
    return index.flags() & Qt::ItemIsSelectable;
}

QItemSelectionModel::SelectionFlags LSMOutlineView::selectionCommand(const QModelIndex &index,
                                                                     const QEvent *event) const
{
    if (!isSelectable(index))
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
    while (index.isValid() && !isSelectable(index)) {
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
    if (isSelectable(index))
        return QTreeView::mousePressEvent(event);
    if (index.isValid() && event->button() == Qt::LeftButton)
        setExpanded(index, !isExpanded(index));
    event->accept();
}

void LSMOutlineView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool byKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKeyboard ? currentIndex() : indexAt(event->pos());
    Q_EMIT contextMenuWasAskedFor(byKeyboard ? viewport()->mapToGlobal(visualRect(index).center())
                                             : event->globalPos(),
                                  isSelectable(index));
}

void LSMOutlineView::setNote(const QString &note)
{
    m_note = note;
    setAccessibleDescription(note);
    viewport()->update();
}

void LSMOutlineView::paintEvent(QPaintEvent *event)
{
    QTreeView::paintEvent(event);
    QPainter painter(viewport());
    if (hasFocus() && !selectionModel()->hasSelection()) { // else the row shows it
        painter.setPen(platform::namedColor(QStringLiteral("accentColor")));
        painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
    }
    if (m_note.isEmpty())
        return;
    QModelIndex last = model()->index(0, 0);
    while (indexBelow(last).isValid())
        last = indexBelow(last);
    painter.setPen(platform::namedColor(QStringLiteral("secondaryLabelColor")));
    QTextOption option(Qt::AlignHCenter | Qt::AlignTop);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    painter.drawText(viewport()->rect().adjusted(16, visualRect(last).bottom() + 24, -16, 0),
                     m_note, option);
}
