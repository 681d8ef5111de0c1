#pragma once

#include <QTableView>

class QUndoStack;

/// The table of a design's properties: whole rows are selected, one cell has the keyboard.
///
///   arrows move; Return and Space open what the cell has (a text, a popup, a check box), and Space
///   toggles; Delete removes; Alt with up or down moves the selected rows; undo and redo
///
/// Rows are dragged within the table, several at once, and dropped between rows. The table changes
/// nothing itself: it tells what is asked for. Main thread.
class LSMPropertyTable : public QTableView
{
    Q_OBJECT
    Q_PROPERTY(bool canUndo READ canUndo)
    Q_PROPERTY(bool canRedo READ canRedo)

public:
    /// The pasteboard type of dragged rows. No other table and no other program takes them.
    static inline const QString LSMPropertyDataPbType = QStringLiteral("LSMPropertyDataPbType");

    explicit LSMPropertyTable(QWidget *parent = nullptr);

    void setUndoStack(QUndoStack *stack) { m_undoStack = stack; } ///< Borrowed; may be null.
    bool canUndo() const;
    bool canRedo() const;

    /// What stands in an empty table.
    void setPlaceholderText(const QString &text);

    QList<qsizetype> selectedRows() const; ///< Sorted.

    /// The rows as data for a drag; null when they may not be moved. The caller owns it.
    QMimeData *writeRows(const QList<qsizetype> &rows) const;

public Q_SLOTS:
    void undo();
    void redo();

Q_SIGNALS:
    void cellWasActivated(const QModelIndex &index); ///< By a click or a key.
    void removalWasAskedFor();

    /// The rows are to stand in the gap above row `row`, or below the last one.
    void rowsWereDropped(const QList<qsizetype> &rows, qsizetype row);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    class DraggedRows;

    void cellWasClicked(const QModelIndex &index);
    bool mayMove(const QList<qsizetype> &rows) const;
    bool takes(const QMimeData *dragged) const;
    int gapAt(const QPoint &place) const;
    void setGap(int gap);
    void moveSelection(int by);

    QUndoStack *m_undoStack = nullptr;
    QString m_placeholderText;
    int m_gap = -1; // where the dragged rows would land
};
