// What keys do.
#include "platform/text/view/TextView.h"
#include <QHash>
#include <QKeyEvent>

namespace platform {

namespace {

/// What must hold for a key to be taken; otherwise it goes on to those around the view.
enum class Need { Nothing, Editable, Selection };

using Action = void (*)(TextView &);

template <TextMovement movement>
void move(TextView &view)
{
    view.moveCarets(movement, TextMode::Move);
}

template <TextMovement movement>
void select(TextView &view)
{
    view.moveCarets(movement, TextMode::Select);
}

template <TextMovement movement>
void erase(TextView &view)
{
    view.deleteText(movement);
}

template <void (TextView::*function)()>
void call(TextView &view)
{
    (view.*function)();
}

template <int steps>
void zoom(TextView &view)
{
    view.zoom(steps);
}

using M = TextMovement;

struct StandardBinding
{
    QKeySequence::StandardKey key;
    Action act;
    Need need = Need::Nothing;
};

constexpr StandardBinding standardBindings[] = {
    {QKeySequence::MoveToNextChar, move<M::Right>},
    {QKeySequence::MoveToPreviousChar, move<M::Left>},
    {QKeySequence::MoveToNextWord, move<M::WordRight>},
    {QKeySequence::MoveToPreviousWord, move<M::WordLeft>},
    {QKeySequence::MoveToNextLine, move<M::Down>},
    {QKeySequence::MoveToPreviousLine, move<M::Up>},
    {QKeySequence::MoveToNextPage, move<M::PageDown>},
    {QKeySequence::MoveToPreviousPage, move<M::PageUp>},
    {QKeySequence::MoveToStartOfLine, move<M::RowStart>},
    {QKeySequence::MoveToEndOfLine, move<M::RowEnd>},
    {QKeySequence::MoveToStartOfBlock, move<M::LineStart>},
    {QKeySequence::MoveToEndOfBlock, move<M::LineEnd>},
    {QKeySequence::MoveToStartOfDocument, move<M::TextStart>},
    {QKeySequence::MoveToEndOfDocument, move<M::TextEnd>},
    {QKeySequence::SelectNextChar, select<M::Right>},
    {QKeySequence::SelectPreviousChar, select<M::Left>},
    {QKeySequence::SelectNextWord, select<M::WordRight>},
    {QKeySequence::SelectPreviousWord, select<M::WordLeft>},
    {QKeySequence::SelectNextLine, select<M::Down>},
    {QKeySequence::SelectPreviousLine, select<M::Up>},
    {QKeySequence::SelectNextPage, select<M::PageDown>},
    {QKeySequence::SelectPreviousPage, select<M::PageUp>},
    {QKeySequence::SelectStartOfLine, select<M::RowStart>},
    {QKeySequence::SelectEndOfLine, select<M::RowEnd>},
    {QKeySequence::SelectStartOfBlock, select<M::LineStart>},
    {QKeySequence::SelectEndOfBlock, select<M::LineEnd>},
    {QKeySequence::SelectStartOfDocument, select<M::TextStart>},
    {QKeySequence::SelectEndOfDocument, select<M::TextEnd>},
    {QKeySequence::ZoomIn, zoom<1>},
    {QKeySequence::ZoomOut, zoom<-1>},
    {QKeySequence::SelectAll, call<&TextView::selectAll>},
    {QKeySequence::Copy, call<&TextView::copy>},
    {QKeySequence::Cut, call<&TextView::cut>, Need::Editable},
    {QKeySequence::Paste, call<&TextView::paste>, Need::Editable},
    {QKeySequence::Undo, call<&TextView::undo>, Need::Editable},
    {QKeySequence::Redo, call<&TextView::redo>, Need::Editable},
    {QKeySequence::Delete, erase<M::Forward>, Need::Editable},
    {QKeySequence::DeleteStartOfWord, erase<M::WordBackward>, Need::Editable},
    {QKeySequence::DeleteEndOfWord, erase<M::WordForward>, Need::Editable},
    {QKeySequence::DeleteEndOfLine, erase<M::LineEnd>, Need::Editable},
    {QKeySequence::DeleteCompleteLine, call<&TextView::deleteLines>, Need::Editable},
    {QKeySequence::InsertParagraphSeparator, call<&TextView::insertNewline>, Need::Editable},
    {QKeySequence::InsertLineSeparator, call<&TextView::insertNewline>, Need::Editable},
};

struct Binding
{
    int key; ///< With its modifiers.
    Action act;
    Need need = Need::Nothing;
};

constexpr int control = int(Qt::ControlModifier);
constexpr int shift = int(Qt::ShiftModifier);
constexpr int alt = int(Qt::AltModifier);

/// These come before the platform's.
constexpr Binding furtherBindings[] = {
    {Qt::Key_Tab, call<&TextView::insertTab>, Need::Editable},
    {Qt::Key_Backtab, call<&TextView::insertBacktab>, Need::Editable},
    {shift | Qt::Key_Backtab, call<&TextView::insertBacktab>, Need::Editable},
    {shift | Qt::Key_Tab, call<&TextView::insertBacktab>, Need::Editable},
    {Qt::Key_Backspace, erase<M::Backward>, Need::Editable},
    {shift | Qt::Key_Backspace, erase<M::Backward>, Need::Editable},
    {control | Qt::Key_Space, call<&TextView::complete>, Need::Editable},
    {alt | shift | Qt::Key_Up, call<&TextView::addCaretAbove>},
    {alt | shift | Qt::Key_Down, call<&TextView::addCaretBelow>},
    {control | Qt::Key_D, call<&TextView::selectNextOccurrence>},
    {control | Qt::Key_Equal, zoom<1>}, // where "+" needs the shift key
    {control | shift | Qt::Key_Plus, zoom<1>},
    {control | Qt::Key_0, zoom<0>},
    {Qt::Key_Escape, call<&TextView::selectOne>, Need::Selection},
};

QHash<int, Binding> allBindings()
{
    QHash<int, Binding> all;
    for (const StandardBinding &binding : standardBindings) {
        for (const QKeySequence &keys : QKeySequence::keyBindings(binding.key)) {
            if (keys.count() == 1 && !all.contains(keys[0].toCombined()))
                all.insert(keys[0].toCombined(), {0, binding.act, binding.need});
        }
    }
    for (const Binding &binding : furtherBindings)
        all.insert(binding.key, binding);
    return all;
}

bool isMet(Need need, const TextView &view)
{
    switch (need) {
    case Need::Editable:
        return view.isEditable();
    case Need::Selection:
        return view.selections().isMultiple() || !view.selections().isEmpty();
    case Need::Nothing:
        break;
    }
    return true;
}

Action actionFor(const QKeyEvent &event, const TextView &view)
{
    static const QHash<int, Binding> bindings = allBindings();
    constexpr auto ofTheKeyboard = Qt::KeypadModifier | Qt::GroupSwitchModifier;
    const QKeyCombination keys(event.modifiers() & ~ofTheKeyboard, Qt::Key(event.key()));
    const auto found = bindings.constFind(keys.toCombined());
    return found != bindings.constEnd() && isMet(found->need, view) ? found->act : nullptr;
}

// Control and Alt together are what some keyboards have a third level by.
bool isTyped(const QKeyEvent &event)
{
    const QString text = event.text();
    if (text.isEmpty())
        return false;
    const QChar first = text.front();
    if (first.category() == QChar::Other_Format)
        return true;
    const auto modifiers =
        event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (modifiers != Qt::NoModifier && modifiers != (Qt::ControlModifier | Qt::AltModifier))
        return false;
    return first.isPrint() || first.isSurrogate() || first.category() == QChar::Other_PrivateUse;
}

} // namespace

bool TextView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (actionFor(*key, *this) || (m_isEditable && isTyped(*key)))
            event->accept();
    }
    return QAbstractScrollArea::event(event);
}

void TextView::keyPressEvent(QKeyEvent *event)
{
    event->accept();
    if (const Action act = actionFor(*event, *this))
        act(*this);
    else if (m_isEditable && isTyped(*event))
        insertText(event->text());
    else
        event->ignore();
}

bool TextView::focusNextPrevChild(bool next)
{
    return m_isEditable ? false : QAbstractScrollArea::focusNextPrevChild(next);
}

} // namespace platform
