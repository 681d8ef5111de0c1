// Clipboard, the selection that the middle button pastes, and dragging of text.
#include "platform/text/TextStorage.h"
#include "platform/text/view/TextView.h"
#include <QClipboard>
#include <QDrag>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QScopedValueRollback>

namespace platform {

namespace {

constexpr qsizetype longestPrimary = 4 << 20; // units; it is copied whenever the selection changes
constexpr qreal dragEdge = 20;                // pixels from an edge that scroll

QMimeData *mimeDataOf(const QString &text)
{
    auto *data = new QMimeData;
    data->setText(text);
    return data;
}

// Without their ends; a line end at the text's end ends the last line.
QStringList linesOf(const QString &text)
{
    TextStorage storage;
    storage.setString(text);
    QStringList lines;
    for (qsizetype line = 0; line < storage.lineCount(); ++line)
        lines << storage.substring(storage.lineContents(line));
    if (lines.size() > 1 && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

} // namespace

void TextView::copy()
{
    if (!m_selections.isEmpty())
        QGuiApplication::clipboard()->setMimeData(mimeDataOf(selectedText()));
}

void TextView::cut()
{
    if (!m_isEditable || m_selections.isEmpty())
        return;
    copy();
    replaceSelections({});
}

void TextView::paste()
{
    const QMimeData *content = QGuiApplication::clipboard()->mimeData();
    if (!content || !m_isEditable)
        return;
    insertMimeData(*content);
    didPaste();
}

// As many lines as carets: one for each.
void TextView::insertMimeData(const QMimeData &content)
{
    if (!content.hasText())
        return;
    const QString text = content.text();
    const QStringList lines = m_selections.isMultiple() ? linesOf(text) : QStringList();
    if (lines.size() == qsizetype(m_selections.all().size()))
        changeText(selectedRanges(), lines);
    else
        replaceSelections(text);
}

void TextView::putOnPrimarySelection()
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    qsizetype length = 0;
    for (const TextRange range : selectedRanges())
        length += range.length;
    if (clipboard->supportsSelection() && hasFocus() && length > 0 && length <= longestPrimary)
        clipboard->setMimeData(mimeDataOf(selectedText()), QClipboard::Selection);
}

void TextView::pastePrimarySelection(QPointF point)
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    const QMimeData *content =
        clipboard->supportsSelection() ? clipboard->mimeData(QClipboard::Selection) : nullptr;
    if (!content || !m_isEditable)
        return;
    if (m_primaryTimer.isActive()) {
        m_primaryTimer.stop();
        putOnPrimarySelection();
        content = clipboard->mimeData(QClipboard::Selection);
    }
    const QString text = content->text();
    if (!text.isEmpty() && changeText({indexAt(point), 0}, text))
        didPaste();
}

void TextView::startDrag()
{
    m_mouse.reset();
    auto *drag = new QDrag(viewport());
    drag->setMimeData(mimeDataOf(selectedText()));
    m_dragsSelection = true;
    m_droppedHere = false;
    const QPointer<TextView> alive(this);
    const Qt::DropActions actions =
        m_isEditable ? Qt::CopyAction | Qt::MoveAction : Qt::DropActions(Qt::CopyAction);
    const Qt::DropAction action =
        drag->exec(actions, m_isEditable ? Qt::MoveAction : Qt::CopyAction);
    if (!alive)
        return;
    m_dragsSelection = false;
    setDropIndex(NotFound);
    if (action == Qt::MoveAction && !m_droppedHere && m_isEditable)
        replaceSelections({});
}

void TextView::setDropIndex(qsizetype index)
{
    if (index == m_dropIndex)
        return;
    for (const qsizetype changed : {std::exchange(m_dropIndex, index), index}) {
        if (changed != NotFound)
            viewport()->update(caretOf(TextSelection::at(changed)).toAlignedRect());
    }
}

void TextView::dragEnterEvent(QDragEnterEvent *event)
{
    dragMoveEvent(event);
}

void TextView::dragMoveEvent(QDragMoveEvent *event)
{
    event->setAccepted(m_isEditable && event->mimeData()->hasText());
    if (!event->isAccepted())
        return setDropIndex(NotFound);
    if (m_dragsSelection)
        event->setDropAction(event->modifiers().testFlag(Qt::ControlModifier) ? Qt::CopyAction
                                                                              : Qt::MoveAction);
    else
        event->acceptProposedAction();
    const QPointF at = event->position();
    const qreal row = m_layoutManager->style().rowHeight;
    if (at.y() < dragEdge)
        scrollByPixels({0, -row});
    else if (at.y() > viewport()->height() - dragEdge)
        scrollByPixels({0, row});
    setDropIndex(indexAt(at));
}

void TextView::dragLeaveEvent(QDragLeaveEvent *)
{
    setDropIndex(NotFound);
}

void TextView::dropEvent(QDropEvent *event)
{
    setDropIndex(NotFound);
    event->setAccepted(m_isEditable && event->mimeData()->hasText());
    if (!event->isAccepted())
        return;
    const qsizetype index = indexAt(event->position());
    setFocus(Qt::MouseFocusReason);
    if (m_dragsSelection) {
        m_droppedHere = true;
        dropSelected(index, event->dropAction() != Qt::CopyAction);
        return;
    }
    event->acceptProposedAction();
    const QString text = event->mimeData()->text();
    changeText({{index, 0}}, {text}, TextUndo::Kind::Other,
               TextSelection::of({index, text.size()}));
}

// As one change; what was dropped is selected then. Within the selection nothing happens.
void TextView::dropSelected(qsizetype index, bool isMove)
{
    const QString text = selectedText();
    std::vector<TextRange> ranges;
    QStringList replacements;
    qsizetype start = index;
    for (const TextRange range : selectedRanges()) {
        if (isMove && index >= range.location && index <= range.end())
            return;
        if (isMove && !range.isEmpty()) {
            ranges.push_back(range);
            replacements << QString();
            start -= range.location < index ? range.length : 0;
        }
    }
    const auto at = std::ranges::lower_bound(ranges, index, {}, &TextRange::location);
    replacements.insert(at - ranges.begin(), text);
    ranges.insert(at, {index, 0});
    changeText(ranges, replacements, TextUndo::Kind::Other,
               TextSelection::of({start, text.size()}));
}

} // namespace platform
