// What is dragged onto the view goes to a delegate that takes it, or the usual way.
#include "editor/MGSDragOperationDelegate.h"
#include "editor/SMLTextView.h"

#include <QDropEvent>

namespace {

MGSDragOperationDelegate *dragDelegate(const SMLTextView &view)
{
    return dynamic_cast<MGSDragOperationDelegate *>(view.delegate());
}

constexpr int updateInterval = 100; // milliseconds

} // namespace

void SMLTextView::dragEnterEvent(QDragEnterEvent *event)
{
    MGSDragOperationDelegate *delegate = dragDelegate(*this);
    if (!delegate || !delegate->draggingEntered(event))
        TextView::dragEnterEvent(event);
    if (delegate && event->isAccepted())
        delegate->updateDraggingItemsForDrag(event);
}

void SMLTextView::dragMoveEvent(QDragMoveEvent *event)
{
    MGSDragOperationDelegate *delegate = dragDelegate(*this);
    if (!delegate || !delegate->draggingUpdated(event))
        TextView::dragMoveEvent(event);
    else
        hideDropMark();
    if (delegate && delegate->wantsPeriodicDraggingUpdates())
        repeatDragMove(*event);
}

void SMLTextView::repeatDragMove(const QDragMoveEvent &event)
{
    if (&event != m_lastDragMove.get())
        m_lastDragMove.reset(event.clone());
    m_draggedData = event.mimeData();
    m_dragTimer.start(updateInterval);
}

void SMLTextView::dragTimerDidFire()
{
    if (m_draggedData) // else the drag is gone
        dragMoveEvent(m_lastDragMove.get());
}

/// The mark is the usual handling's, which does not hear of what delegates take over.
void SMLTextView::hideDropMark()
{
    QDragLeaveEvent leave;
    TextView::dragLeaveEvent(&leave);
}

void SMLTextView::dragLeaveEvent(QDragLeaveEvent *event)
{
    m_dragTimer.stop();
    TextView::dragLeaveEvent(event);
    if (MGSDragOperationDelegate *delegate = dragDelegate(*this)) {
        delegate->draggingExited(event);
        delegate->draggingEnded();
    }
}

void SMLTextView::dropEvent(QDropEvent *event)
{
    m_dragTimer.stop();
    MGSDragOperationDelegate *delegate = dragDelegate(*this);
    if (!delegate)
        return TextView::dropEvent(event);
    hideDropMark();
    if (!delegate->prepareForDragOperation(event).value_or(true)) {
        event->ignore();
    } else {
        const std::optional<bool> isPerformed = delegate->performDragOperation(event);
        if (!isPerformed)
            TextView::dropEvent(event);
        if (isPerformed.value_or(event->isAccepted()))
            delegate->concludeDragOperation(event);
    }
    delegate->draggingEnded();
}
