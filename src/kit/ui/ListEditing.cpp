#include "kit/ui/ListEditing.h"

#include "kit/ui/TintedIcon.h"

#include <algorithm>
#include <QAbstractItemView>
#include <QShortcut>
#include <QToolButton>

namespace zq {

ListEditing::ListEditing(QAbstractItemView *view, QToolButton *addButton, QToolButton *removeButton,
                         Append append)
    : QObject(view), m_view(view), m_append(std::move(append))
{
    addButton->setIcon(tintedIcon(QStringLiteral("Add")));
    removeButton->setIcon(tintedIcon(QStringLiteral("Remove")));
    connect(addButton, &QToolButton::clicked, this, &ListEditing::add);
    connect(removeButton, &QToolButton::clicked, this, &ListEditing::removeSelectedRows);
    const std::pair<Qt::Key, void (ListEditing::*)()> keys[] = {
        {Qt::Key_Return, &ListEditing::editCurrentRow},
        {Qt::Key_Enter, &ListEditing::editCurrentRow},
        {Qt::Key_Delete, &ListEditing::removeSelectedRows},
        {Qt::Key_Backspace, &ListEditing::removeSelectedRows},
    };
    for (const auto &[key, action] : keys) {
        auto *shortcut = new QShortcut(key, view);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, action);
    }
    const auto updateButton = [view, removeButton] {
        removeButton->setEnabled(view->selectionModel()->hasSelection());
    };
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, removeButton,
            updateButton);
    view->setCurrentIndex(view->model()->index(0, 0));
    updateButton();
}

void ListEditing::finishEditing()
{
    if (QWidget *editor = m_view->indexWidget(m_view->currentIndex())) {
        Q_EMIT m_view->itemDelegate()->commitData(editor);
        Q_EMIT m_view->itemDelegate()->closeEditor(editor);
    }
}

void ListEditing::add()
{
    finishEditing();
    m_append();
    m_view->setCurrentIndex(m_view->model()->index(m_view->model()->rowCount() - 1, 0));
    editCurrentRow();
}

void ListEditing::editCurrentRow()
{
    if (m_view->currentIndex().isValid())
        m_view->edit(m_view->currentIndex().siblingAtColumn(0));
}

void ListEditing::removeSelectedRows()
{
    QModelIndexList rows = m_view->selectionModel()->selectedRows();
    if (rows.isEmpty())
        return;
    std::ranges::sort(rows, std::greater(), &QModelIndex::row);
    for (const QModelIndex &index : std::as_const(rows))
        m_view->model()->removeRow(index.row());
    const int next = qMin(rows.constLast().row(), m_view->model()->rowCount() - 1);
    m_view->setCurrentIndex(m_view->model()->index(next, 0));
}

} // namespace zq
