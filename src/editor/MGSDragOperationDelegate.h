#pragma once

#include <optional>

class QDragEnterEvent;
class QDragLeaveEvent;
class QDragMoveEvent;
class QDropEvent;

/// What the delegate of an SMLTextView may be as well, to take over what is dragged onto the view.
/// An operation that answers leaves the usual handling undone; those that are not overridden say
/// "not implemented". Accept or ignore the event as an event handler would.
class MGSDragOperationDelegate
{
public:
    virtual ~MGSDragOperationDelegate() = default;

    /// True: handled.
    virtual bool draggingEntered(QDragEnterEvent *) { return false; }
    virtual bool draggingUpdated(QDragMoveEvent *) { return false; }
    virtual void draggingExited(QDragLeaveEvent *) {}

    /// Whether updates come while the drag stands still, too. Asked at each.
    virtual bool wantsPeriodicDraggingUpdates() { return false; }

    /// After a drag that is accepted has entered: what it carries may be looked at.
    virtual void updateDraggingItemsForDrag(QDragEnterEvent *) {}

    /// In this order for a drop. A false answer to one of the first two ends it there.
    virtual std::optional<bool> prepareForDragOperation(QDropEvent *) { return std::nullopt; }
    virtual std::optional<bool> performDragOperation(QDropEvent *) { return std::nullopt; }
    virtual void concludeDragOperation(QDropEvent *) {}
    virtual void draggingEnded() {} ///< Dropped or not.
};
