#include "platform/text/view/TextViewAnnouncer.h"

#include "platform/text/view/TextView.h"
#include <QAccessible>

namespace platform {

namespace {

constexpr qsizetype longestAnnounced = 100'000; // units; nobody listens to the end of more

TextRange shortened(TextRange range)
{
    return {range.location, qMin(range.length, longestAnnounced)};
}

} // namespace

TextViewAnnouncer::TextViewAnnouncer(TextView *view)
    : QObject(view), m_view(view), m_selected(view->selectedRange())
{
    connect(view->layoutManager(), &LayoutManager::textStorageDidChange, this,
            &TextViewAnnouncer::observeTextStorage);
    connect(view, &TextView::selectionDidChange, this, &TextViewAnnouncer::selectionDidChange);
    observeTextStorage();
}

bool TextViewAnnouncer::isHeard() const
{
    return QAccessible::isActive();
}

void TextViewAnnouncer::tell(QAccessibleEvent *event)
{
    QAccessible::updateAccessibility(event);
}

void TextViewAnnouncer::observeTextStorage()
{
    if (m_storage)
        m_storage->disconnect(this);
    m_storage = m_view->textStorage();
    connect(m_storage, &TextStorage::charactersWillBeReplaced, this,
            &TextViewAnnouncer::textWillChange);
    connect(m_storage, &TextStorage::charactersReplaced, this, &TextViewAnnouncer::textDidChange);
}

void TextViewAnnouncer::textWillChange(TextRange range)
{
    m_removed = isHeard() ? m_storage->substring(shortened(range)) : QString();
}

void TextViewAnnouncer::textDidChange(TextRange range, qsizetype)
{
    if (!isHeard())
        return;
    const QString inserted = m_storage->substring(shortened(range));
    const int location = int(range.location);
    if (m_removed.isEmpty()) {
        QAccessibleTextInsertEvent event(m_view, location, inserted);
        tell(&event);
    } else if (inserted.isEmpty()) {
        QAccessibleTextRemoveEvent event(m_view, location, m_removed);
        tell(&event);
    } else {
        QAccessibleTextUpdateEvent event(m_view, location, m_removed, inserted);
        tell(&event);
    }
}

void TextViewAnnouncer::selectionDidChange()
{
    if (!isHeard())
        return;
    const TextRange selected = m_view->selectedRange();
    if (!selected.isEmpty() || !m_selected.isEmpty()) {
        QAccessibleTextSelectionEvent event(m_view, int(selected.location), int(selected.end()));
        tell(&event);
    }
    m_selected = selected;
    QAccessibleTextCursorEvent event(m_view, int(m_view->selections().main().caret));
    tell(&event);
}

} // namespace platform
