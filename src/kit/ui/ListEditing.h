#pragma once

#include <functional>
#include <QObject>

class QAbstractItemView;
class QToolButton;

namespace zq {

/// What buttons and keys do with rows that are edited in place: "+" adds one and edits it, "−" and
/// Delete remove what is selected, Return edits. The first column has the names. Owned by the view;
/// the view has its model. Main thread.
class ListEditing : public QObject
{
    Q_OBJECT

public:
    using Append = std::function<void()>; ///< Adds a row to the end of the model.

    ListEditing(QAbstractItemView *view, QToolButton *addButton, QToolButton *removeButton,
                Append append);

    void finishEditing(); ///< What is still being typed counts as typed.

private:
    void add();
    void editCurrentRow();
    void removeSelectedRows();

    QAbstractItemView *m_view;
    Append m_append;
};

} // namespace zq
