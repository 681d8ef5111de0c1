// What is dragged onto the view goes to a delegate that takes it, or the usual way.
#include "editor/MGSDragOperationDelegate.h"
#include "editor/SMLTextView.h"

#include <QDropEvent>

namespace {

MGSDragOperationDelegate *dragDelegate(const SMLTextView &view)
{
    return dynamic_cast<MGSDragOperationDelegate *>(view.delegate());
}

} // namespace

void SMLTextView::dragEnterEvent(QDragEnterEvent *event)
{
    MGSDragOperationDelegate *delegate = dragDelegate(*this);
    if (!delegate || !delegate->draggingEntered(event))
        TextView::dragEnterEvent(event);
}

void SMLTextView::dragMoveEvent(QDragMoveEvent *event)
{
    MGSDragOperationDelegate *delegate = dragDelegate(*this);
    if (!delegate || !delegate->draggingUpdated(event))
        TextView::dragMoveEvent(event);
}

void SMLTextView::dragLeaveEvent(QDragLeaveEvent *event)
{
    MGSDragOperationDelegate *delegate = dragDelegate(*this);
    if (!delegate || !delegate->draggingExited(event))
        TextView::dragLeaveEvent(event);
    if (delegate)
        delegate->draggingEnded();
}

void SMLTextView::dropEvent(QDropEvent *event)
{
    MGSDragOperationDelegate *delegate = dragDelegate(*this);
    if (!delegate)
        return TextView::dropEvent(event);
    if (!delegate->prepareForDragOperation(event).value_or(true)) {
        event->ignore();
    } else {
        const std::optional<bool> isPerformed = delegate->performDragOperation(event);
        if (!isPerformed)
            TextView::dropEvent(event);
        if (isPerformed.value_or(true))
            delegate->concludeDragOperation(event);
    }
    delegate->draggingEnded();
}
