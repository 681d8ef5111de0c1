#include "workbench/LSMPropertyTable.h"

#include "platform/Appearance.h"

#include <algorithm>
#include <QDrag>
#include <QDragMoveEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QUndoStack>

using platform::namedColor;

namespace {

constexpr int heightOfRow = 30;
constexpr int margin = 24; // around the placeholder

} // namespace

/// The rows travel as they are: a drag within the program hands the object itself over.
class LSMPropertyTable::DraggedRows : public QMimeData
{
public:
    DraggedRows(const LSMPropertyTable *source, QList<qsizetype> indexes)
        : table(source), rows(std::move(indexes))
    {
        setData(LSMPropertyDataPbType, {});
    }

    const LSMPropertyTable *const table;
    const QList<qsizetype> rows;
};

LSMPropertyTable::LSMPropertyTable(QWidget *parent) : QTableView(parent)
{
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(heightOfRow);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setHighlightSections(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setSelectionBehavior(SelectRows);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setVerticalScrollMode(ScrollPerPixel);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    setDefaultDropAction(Qt::MoveAction);
    connect(this, &QTableView::clicked, this, &LSMPropertyTable::cellWasClicked);
}

bool LSMPropertyTable::canUndo() const
{
    return m_undoStack && m_undoStack->canUndo();
}

bool LSMPropertyTable::canRedo() const
{
    return m_undoStack && m_undoStack->canRedo();
}

void LSMPropertyTable::undo()
{
    if (m_undoStack)
        m_undoStack->undo();
}

void LSMPropertyTable::redo()
{
    if (m_undoStack)
        m_undoStack->redo();
}

void LSMPropertyTable::setPlaceholderText(const QString &text)
{
    m_placeholderText = text;
    viewport()->update();
}

QList<qsizetype> LSMPropertyTable::selectedRows() const
{
    QList<qsizetype> rows;
    for (const QModelIndex &index : selectionModel()->selectedRows())
        rows.append(index.row());
    std::ranges::sort(rows);
    return rows;
}

// A click opens what a cell has, but for texts, which wait for a second one, and check boxes.
void LSMPropertyTable::cellWasClicked(const QModelIndex &index)
{
    if (!QGuiApplication::keyboardModifiers() &&
        !(index.flags() & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable)))
        Q_EMIT cellWasActivated(index);
}

// The keys begin with the first row, and it shows.
void LSMPropertyTable::focusInEvent(QFocusEvent *event)
{
    QTableView::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && !selectionModel()->hasSelection() &&
        currentIndex().isValid())
        selectRow(currentIndex().row());
}

void LSMPropertyTable::keyPressEvent(QKeyEvent *event)
{
    if (state() == EditingState) { // what a field leaves over
        QTableView::keyPressEvent(event);
        return;
    }
    const bool isArrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    const bool isCheckBox = currentIndex().flags() & Qt::ItemIsUserCheckable;
    switch (event->key()) {
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        Q_EMIT removalWasAskedFor();
        return;
    case Qt::Key_Space:
        if (isCheckBox)
            break;
        [[fallthrough]];
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (currentIndex().isValid())
            Q_EMIT cellWasActivated(currentIndex());
        return;
    default:
        if (isArrow && event->modifiers() == Qt::AltModifier) {
            moveSelection(event->key() == Qt::Key_Up ? -1 : 1);
            return;
        }
    }
    QTableView::keyPressEvent(event);
}

// The gap above the row before the first, or below the one behind the last.
void LSMPropertyTable::moveSelection(int by)
{
    const QList<qsizetype> rows = selectedRows();
    if (rows.isEmpty())
        return;
    const qsizetype gap = by < 0 ? rows.constFirst() : rows.constLast() + 2;
    if (gap > 0 && gap <= model()->rowCount() && mayMove(rows))
        Q_EMIT rowsWereDropped(rows, gap);
}

bool LSMPropertyTable::mayMove(const QList<qsizetype> &rows) const
{
    return !rows.isEmpty() && std::ranges::all_of(rows, [this](qsizetype row) {
        return bool(model()->index(int(row), 0).flags() & Qt::ItemIsDragEnabled);
    });
}

QMimeData *LSMPropertyTable::writeRows(const QList<qsizetype> &rows) const
{
    return mayMove(rows) ? new DraggedRows(this, rows) : nullptr;
}

void LSMPropertyTable::startDrag(Qt::DropActions)
{
    const QList<qsizetype> rows = selectedRows();
    QMimeData *dragged = writeRows(rows);
    if (!dragged)
        return;
    const QRect first = visualRect(model()->index(int(rows.constFirst()), 0));
    auto *drag = new QDrag(this);
    drag->setMimeData(dragged);
    drag->setPixmap(viewport()->grab({0, first.top(), viewport()->width(), first.height()}));
    drag->exec(Qt::MoveAction);
}

bool LSMPropertyTable::takes(const QMimeData *dragged) const
{
    const auto *rows = dynamic_cast<const DraggedRows *>(dragged);
    return rows && rows->table == this;
}

void LSMPropertyTable::dragEnterEvent(QDragEnterEvent *event)
{
    QTableView::dragEnterEvent(event);
    event->setAccepted(takes(event->mimeData()));
}

void LSMPropertyTable::dragMoveEvent(QDragMoveEvent *event)
{
    QTableView::dragMoveEvent(event); // scrolls at the edges
    const bool isTaken = takes(event->mimeData());
    setGap(isTaken ? gapAt(event->position().toPoint()) : -1);
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(isTaken);
}

void LSMPropertyTable::dragLeaveEvent(QDragLeaveEvent *event)
{
    QTableView::dragLeaveEvent(event);
    setGap(-1);
}

void LSMPropertyTable::dropEvent(QDropEvent *event)
{
    setGap(-1);
    setState(NoState);
    stopAutoScroll();
    event->setAccepted(takes(event->mimeData()));
    if (!event->isAccepted())
        return;
    event->setDropAction(Qt::MoveAction);
    Q_EMIT rowsWereDropped(static_cast<const DraggedRows *>(event->mimeData())->rows,
                           gapAt(event->position().toPoint()));
}

int LSMPropertyTable::gapAt(const QPoint &place) const
{
    const int row = rowAt(place.y());
    if (row < 0)
        return place.y() < 0 ? 0 : model()->rowCount();
    return row + (place.y() > rowViewportPosition(row) + heightOfRow / 2);
}

void LSMPropertyTable::setGap(int gap)
{
    if (std::exchange(m_gap, gap) != gap)
        viewport()->update();
}

void LSMPropertyTable::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    QPainter painter(viewport());
    if (m_gap >= 0) {
        const int below = m_gap == model()->rowCount();
        const int y = rowViewportPosition(m_gap - below) + below * heightOfRow;
        painter.fillRect(0, y - 1, viewport()->width(), 2,
                         namedColor(QStringLiteral("accentColor")));
    }
    if (model() && model()->rowCount() == 0) {
        painter.setPen(namedColor(QStringLiteral("secondaryLabelColor")));
        painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                         Qt::AlignCenter | Qt::TextWordWrap, m_placeholderText);
    }
}
