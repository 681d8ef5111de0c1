#include "kit/ui/FirstResponder.h"

#include "platform/text/view/TextView.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace zq {

namespace {

struct Abilities
{
    bool undo = false;
    bool redo = false;
    bool hasSelection = false;
    bool editable = false;
    bool text = false;
};

template <class View>
Abilities abilitiesOfTextView(const View &view)
{
    const bool editable = !view.isReadOnly();
    return {editable && view.document()->isUndoAvailable(),
            editable && view.document()->isRedoAvailable(), view.textCursor().hasSelection(),
            editable, true};
}

Abilities abilities()
{
    const QWidget *focus = QApplication::focusWidget();
    if (const auto *field = qobject_cast<const QLineEdit *>(focus))
        return {field->isUndoAvailable(), field->isRedoAvailable(), field->hasSelectedText(),
                !field->isReadOnly(), true};
    if (const auto *view = qobject_cast<const platform::TextView *>(focus))
        return {view->isEditable() && view->undoHistory().canUndo(),
                view->isEditable() && view->undoHistory().canRedo(), !view->selections().isEmpty(),
                view->isEditable(), true};
    if (const auto *view = qobject_cast<const QPlainTextEdit *>(focus))
        return abilitiesOfTextView(*view);
    if (const auto *view = qobject_cast<const QTextEdit *>(focus))
        return abilitiesOfTextView(*view);
    return {};
}

// What is no text says so itself, by a property.
bool focusWidgetTells(const char *property)
{
    const QWidget *focus = QApplication::focusWidget();
    return focus && focus->property(property).toBool();
}

void tellFocusWidget(const char *slot)
{
    if (QWidget *focus = QApplication::focusWidget())
        QMetaObject::invokeMethod(focus, slot);
}

} // namespace

void FirstResponder::undo(QObject *)
{
    tellFocusWidget("undo");
}

void FirstResponder::redo(QObject *)
{
    tellFocusWidget("redo");
}

void FirstResponder::cut(QObject *)
{
    tellFocusWidget("cut");
}

void FirstResponder::copy(QObject *)
{
    tellFocusWidget("copy");
}

void FirstResponder::paste(QObject *)
{
    tellFocusWidget("paste");
}

void FirstResponder::selectAll(QObject *)
{
    tellFocusWidget("selectAll");
}

bool FirstResponder::validateUndo(QObject *)
{
    return abilities().undo || focusWidgetTells("canUndo");
}

bool FirstResponder::validateRedo(QObject *)
{
    return abilities().redo || focusWidgetTells("canRedo");
}

bool FirstResponder::validateCut(QObject *)
{
    return abilities().editable && abilities().hasSelection;
}

bool FirstResponder::validateCopy(QObject *)
{
    return abilities().hasSelection || focusWidgetTells("canCopy");
}

bool FirstResponder::validatePaste(QObject *)
{
    return focusWidgetTells("canPaste") ||
           (abilities().editable && !QApplication::clipboard()->text().isEmpty());
}

bool FirstResponder::validateSelectAll(QObject *)
{
    return abilities().text;
}

} // namespace zq
