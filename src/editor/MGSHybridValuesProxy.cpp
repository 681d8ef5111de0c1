#include "editor/MGSHybridValuesProxy.h"

#include "editor/MGSHybridUserDefaultsController.h"
#include "editor/MGSUserDefaultsController.h"

MGSHybridValuesProxy::MGSHybridValuesProxy(MGSHybridUserDefaultsController *controller)
    : m_controller(controller)
{
    for (const MGSUserDefaultsController *source : controller->controllers()) {
        connect(source->values().get(), &ObservableDictionary::valueChanged, this,
                [this, source](const QString &key) {
                    if (m_controller && m_controller->controllerOf(key) == source)
                        Q_EMIT valueChanged(key);
                });
    }
}

bool MGSHybridValuesProxy::contains(const QString &key) const
{
    return m_controller && m_controller->controllerOf(key);
}

QStringList MGSHybridValuesProxy::allKeys() const
{
    QStringList keys;
    if (m_controller)
        keys = m_controller->managedProperties().values();
    keys.sort();
    return keys;
}

QVariant MGSHybridValuesProxy::value(const QString &key) const
{
    return contains(key) ? m_controller->controllerOf(key)->values()->value(key) : QVariant();
}

void MGSHybridValuesProxy::setValue(const QString &key, const QVariant &value)
{
    if (contains(key))
        m_controller->controllerOf(key)->values()->setValue(key, value);
}
