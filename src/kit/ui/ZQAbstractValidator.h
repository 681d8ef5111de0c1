#pragma once

#include <QObject>

/// Turns an action's name into that of the operation which decides whether the action is enabled:
/// `saveAction` with the prefix "validate" gives `validateSaveAction`. Main thread.
class ZQAbstractValidator
{
public:
    /// Calls the invokable `bool PREFIXSelector(QObject *item)` of the target and gives its answer;
    /// true when the target has no such operation (or is null).
    static bool validateAbstractItem(QObject *item, const QString &withSelector,
                                     QObject *withTarget, const QString &validationSelectorPrefix);
};
