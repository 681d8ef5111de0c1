#include "platform/KeyValueObserving.h"
#include "platform/ObservableDictionary.h"

#include <QMetaMethod>
#include <QMetaProperty>

namespace platform {

namespace {

QObject *objectIn(const QVariant &value)
{
    if (value.canConvert<std::shared_ptr<ObservableDictionary>>())
        return value.value<std::shared_ptr<ObservableDictionary>>().get();
    return value.canConvert<QObject *>() ? value.value<QObject *>() : nullptr;
}

QVariant step(const QVariant &from, const QString &key)
{
    if (const QObject *object = objectIn(from)) {
        if (const auto *dictionary = qobject_cast<const ObservableDictionary *>(object))
            return dictionary->value(key);
        return object->property(key.toLatin1().constData());
    }
    return from.toMap().value(key);
}

} // namespace

QVariant valueForKeyPath(const QObject *object, const QString &keyPath)
{
    QVariant value = QVariant::fromValue(const_cast<QObject *>(object));
    for (const QString &key : keyPath.split(u'.'))
        value = step(value, key);
    return value;
}

bool setValueForKeyPath(QObject *object, const QString &keyPath, const QVariant &value)
{
    const qsizetype dot = keyPath.lastIndexOf(u'.');
    const QString key = keyPath.mid(dot + 1);
    const QVariant holder =
        dot < 0 ? QVariant::fromValue(object) : valueForKeyPath(object, keyPath.left(dot));
    if (QObject *target = objectIn(holder)) {
        if (auto *dictionary = qobject_cast<ObservableDictionary *>(target)) {
            dictionary->setValue(key, value);
            return true;
        }
        const int index = target->metaObject()->indexOfProperty(key.toLatin1().constData());
        return index >= 0 && target->metaObject()->property(index).write(target, value);
    }
    if (dot < 0 || holder.typeId() != QMetaType::QVariantMap)
        return false;
    QVariantMap map = holder.toMap();
    map.insert(key, value);
    return setValueForKeyPath(object, keyPath.left(dot), map);
}

KeyValueObservation::KeyValueObservation(QObject *observed, const QString &keyPath, Initial initial,
                                         Handler handler, QObject *parent)
    : QObject(parent), m_observed(observed), m_steps(keyPath.split(u'.')),
      m_handler(std::move(handler)), m_value(valueForKeyPath(observed, keyPath))
{
    watchPath();
    if (initial == Initial::Call)
        m_handler({{}, m_value});
}

void KeyValueObservation::watchPath()
{
    for (const auto &connection : m_connections)
        disconnect(connection);
    m_connections.clear();

    static const QMetaMethod changed =
        staticMetaObject.method(staticMetaObject.indexOfSlot("pathDidChange()"));
    QVariant value = QVariant::fromValue(m_observed.data());
    for (const QString &key : m_steps) {
        QObject *object = objectIn(value);
        if (!object)
            return;
        if (auto *dictionary = qobject_cast<ObservableDictionary *>(object)) {
            m_connections.push_back(connect(dictionary, &ObservableDictionary::valueChanged, this,
                                            [this, key](const QString &changedKey) {
                                                if (changedKey == key)
                                                    pathDidChange();
                                            }));
        } else {
            const QMetaObject *type = object->metaObject();
            const int index = type->indexOfProperty(key.toLatin1().constData());
            if (index >= 0 && type->property(index).hasNotifySignal())
                m_connections.push_back(
                    connect(object, type->property(index).notifySignal(), this, changed));
        }
        value = step(value, key);
    }
}

void KeyValueObservation::pathDidChange()
{
    if (!m_observed)
        return;
    const QVariant old = std::exchange(m_value, valueForKeyPath(m_observed, m_steps.join(u'.')));
    watchPath();
    if (old.typeId() == m_value.typeId() && old == m_value)
        return;
    const Handler handler = m_handler; // outlives an observation that the handler deletes
    handler({old, m_value});
}

} // namespace platform
