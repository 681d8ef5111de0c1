// Input methods.
#include "platform/text/view/TextComposition.h"
#include "platform/text/view/TextView.h"
#include <QInputMethodEvent>

namespace platform {

namespace {

constexpr qsizetype surroundings = 1024; // units told of at either side of the caret

} // namespace

// What input methods see of the text: the neighbourhood of the main caret in its line.
TextRange TextView::surroundingText() const
{
    const qsizetype caret = m_selections.main().caret;
    const TextRange line = textStorage()->lineContents(textStorage()->lineAt(caret));
    return line.intersected(TextRange::around(caret, surroundings));
}

void TextView::inputMethodEvent(QInputMethodEvent *event)
{
    event->setAccepted(m_isEditable);
    if (!m_isEditable)
        return;
    updateLines(selectedRange());
    m_composition->set({}, {});
    if (event->replacementLength() > 0) {
        std::vector<TextRange> ranges;
        const TextRange whole{0, textStorage()->length()};
        for (const TextSelection &selection : m_selections.all()) {
            const qsizetype start = qMax<qsizetype>(0, selection.caret + event->replacementStart());
            ranges.push_back(whole.intersected({start, event->replacementLength()}));
        }
        setSelectedRanges(ranges);
    }
    if (!event->commitString().isEmpty() || event->replacementLength() > 0)
        insertText(event->commitString());
    for (const QInputMethodEvent::Attribute &attribute : event->attributes()) {
        const TextRange around = surroundingText();
        if (attribute.type == QInputMethodEvent::Selection)
            setSelections(TextSelection{
                qBound(around.location, around.location + attribute.start, around.end()),
                qBound(around.location, around.location + attribute.start + attribute.length,
                       around.end())});
    }
    if (!event->preeditString().isEmpty()) {
        if (!m_selections.isEmpty())
            replaceSelections({});
        m_composition->set(event->preeditString(), event->attributes());
    }
    updateFrom(caretRect(m_selections.main().caret).top());
    restartBlinking();
    scrollToCaret();
    updateMicroFocus();
}

QVariant TextView::inputMethodQuery(Qt::InputMethodQuery query) const
{
    auto *self = const_cast<TextView *>(this); // places cost a look at the layout
    const TextSelection main = m_selections.main();
    const TextRange around = surroundingText();
    const auto rectOf = [&](const TextSelection &selection) {
        return self->caretOf(selection).translated(viewport()->pos());
    };
    switch (query) {
    case Qt::ImEnabled:
        return m_isEditable;
    case Qt::ImReadOnly:
        return !m_isEditable;
    case Qt::ImFont:
        return m_layoutManager->style().font;
    case Qt::ImCursorRectangle:
        return rectOf(main);
    case Qt::ImAnchorRectangle:
        return rectOf(TextSelection::at(main.anchor));
    case Qt::ImCursorPosition:
        return int(main.caret - around.location);
    case Qt::ImAnchorPosition:
        return int(std::clamp(main.anchor, around.location, around.end()) - around.location);
    case Qt::ImAbsolutePosition:
        return int(main.caret);
    case Qt::ImSurroundingText:
        return textStorage()->substring(around);
    case Qt::ImTextBeforeCursor:
        return textStorage()->substring(TextRange::between(around.location, main.caret));
    case Qt::ImTextAfterCursor:
        return textStorage()->substring(TextRange::between(main.caret, around.end()));
    case Qt::ImCurrentSelection:
        return textStorage()->substring(around.intersected(main.range()));
    default:
        return QAbstractScrollArea::inputMethodQuery(query);
    }
}

} // namespace platform
