#include "kit/ui/TargetAction.h"

#include "kit/ui/SegmentedControl.h"
#include "kit/ui/ZQMenuItemValidator.h"
#include "kit/ui/ZQToolbarItem.h"

#include <QAbstractButton>
#include <QMetaMethod>
#include <QPointer>

namespace zq {

namespace {

constexpr auto selectorProperty = "selector";
constexpr auto targetProperty = "target";
constexpr auto tagProperty = "tag";

QMetaMethod methodTakingItem(const QObject *target, const QString &name)
{
    if (!target || name.isEmpty())
        return {};
    const QMetaObject *meta = target->metaObject();
    const QByteArray signature = name.toUtf8() + "(QObject*)";
    return meta->method(meta->indexOfMethod(signature.constData()));
}

void performWhenTriggered(QObject *item)
{
    const auto perform = [item] {
        performAction(item);
    };
    if (auto *action = qobject_cast<QAction *>(item))
        QObject::connect(action, &QAction::triggered, item, perform);
    else if (auto *button = qobject_cast<QAbstractButton *>(item))
        QObject::connect(button, &QAbstractButton::clicked, item, perform);
    else if (auto *control = qobject_cast<SegmentedControl *>(item))
        QObject::connect(control, &SegmentedControl::activated, item, perform);
}

} // namespace

void setTargetAndAction(QObject *item, QObject *target, const QString &action)
{
    const bool isConnected = item->property(targetProperty).isValid();
    item->setProperty(selectorProperty, action);
    item->setProperty(targetProperty, QVariant::fromValue(QPointer<QObject>(target)));
    if (!isConnected)
        performWhenTriggered(item);
}

QString action(const QObject *item)
{
    return item->property(selectorProperty).toString();
}

QObject *target(const QObject *item)
{
    return item->property(targetProperty).value<QPointer<QObject>>();
}

int tag(const QObject *item)
{
    return item->property(tagProperty).toInt();
}

void setTag(QObject *item, int tag)
{
    item->setProperty(tagProperty, tag);
}

void connectActions(QObject *root, QObject *target)
{
    for (QObject *item : QList<QObject *>{root} + root->findChildren<QObject *>())
        if (!action(item).isEmpty() && !zq::target(item))
            setTargetAndAction(item, target, action(item));
}

bool respondsToAction(const QObject *target, const QString &action)
{
    return methodTakingItem(target, action).isValid();
}

bool performAction(QObject *item)
{
    validateItem(item);
    QObject *target = zq::target(item);
    const QMetaMethod method = methodTakingItem(target, action(item));
    return method.isValid() && item->property("enabled").toBool() &&
           method.invoke(target, Qt::DirectConnection, Q_ARG(QObject *, item));
}

std::optional<bool> askTarget(QObject *target, const QString &operation, QObject *item)
{
    bool answer = false;
    const QMetaMethod method = methodTakingItem(target, operation);
    if (!method.isValid() || method.returnType() != QMetaType::Bool)
        return std::nullopt;
    if (!method.invoke(target, Qt::DirectConnection, Q_RETURN_ARG(bool, answer),
                       Q_ARG(QObject *, item)))
        return std::nullopt;
    return answer;
}

void validateItem(QObject *item)
{
    if (auto *toolbarItem = qobject_cast<ZQToolbarItem *>(item))
        return toolbarItem->validate();
    auto *menuItem = qobject_cast<QAction *>(item);
    QObject *target = zq::target(item);
    if (!menuItem || !target || action(item).isEmpty())
        return;
    const auto answer = askTarget(target, QStringLiteral("validateMenuItem"), item);
    menuItem->setEnabled(respondsToAction(target, action(item)) &&
                         (answer ? *answer : ZQMenuItemValidator::validateMenuItem(item, target)));
}

} // namespace zq
