#pragma once

#include <optional>
#include <QAction>
#include <QObject>
#include <QString>

/// The target-action pattern over any item that a user can trigger: a QAction, a QAbstractButton, a
/// `zq::SegmentedControl`. An item carries its action (the name of a slot `NAME(QObject *sender)`),
/// its target (borrowed) and its tag as the dynamic properties "selector", "target" and "tag", so a
/// .ui file can set them. Main thread.
namespace zq {

/// Gives the item its action and target. From now on triggering it performs the action. A null
/// target or an empty name means that nothing happens. May be called again with other values.
void setTargetAndAction(QObject *item, QObject *target, const QString &action);

QString action(const QObject *item); ///< "saveAction"; null without one.
QObject *target(const QObject *item);
int tag(const QObject *item); ///< 0 without one.
void setTag(QObject *item, int tag);

/// Gives `target` to every action and button below `root` (and `root` itself) that has the
/// property "selector" and no target yet.
void connectActions(QObject *root, QObject *target);

/// Whether `target` has the slot or invokable `action(QObject *)`.
bool respondsToAction(const QObject *target, const QString &action);

/// Validates the item once more and, if it is enabled then, invokes its action on its target with
/// the item as sender. False if nothing was invoked.
bool performAction(QObject *item);

/// Calls the invokable `bool operation(QObject *item)` of the target; no answer without one.
std::optional<bool> askTarget(QObject *target, const QString &operation, QObject *item);

/// Sets the action enabled as its target says: a toolbar item by `ZQToolbarItem::validate`; any
/// other by the target's invokable `bool validateMenuItem(QObject *item)`, else by
/// `ZQMenuItemValidator`. Without target and action it is left alone, as are items that are no
/// QAction; a target that does not respond to the action disables it.
void validateItem(QObject *item);

} // namespace zq
