#pragma once

#include <QObject>

namespace zq {

/// The target of the Edit menu's commands: passes them to the widget that has the keyboard, if that
/// has a slot of the same name, and knows which of them have something to do: by itself for texts,
/// for other widgets by their properties `canUndo`, `canRedo`, `canCopy` and `canPaste`. Main
/// thread.
class FirstResponder : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

public Q_SLOTS:
    void undo(QObject *sender = nullptr);
    void redo(QObject *sender = nullptr);
    void cut(QObject *sender = nullptr);
    void copy(QObject *sender = nullptr);
    void paste(QObject *sender = nullptr);
    void selectAll(QObject *sender = nullptr);

public:
    Q_INVOKABLE bool validateUndo(QObject *item);
    Q_INVOKABLE bool validateRedo(QObject *item);
    Q_INVOKABLE bool validateCut(QObject *item);
    Q_INVOKABLE bool validateCopy(QObject *item);
    Q_INVOKABLE bool validatePaste(QObject *item);
    Q_INVOKABLE bool validateSelectAll(QObject *item);
};

} // namespace zq
