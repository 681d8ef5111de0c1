#include "platform/KeyValueObserving.h"
#include "platform/KeyValueRelay.h"
#include "platform/ObservableDictionary.h"

#include <QMetaProperty>
#include <QPointer>
#include <QStringList>

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

class KeyValueObservation::Watch : public KeyValueListener,
                                   public std::enable_shared_from_this<Watch>
{
public:
    Watch(QObject *observed, const QString &keyPath, Handler handler)
        : m_observed(observed), m_steps(keyPath.split(u'.')),
          m_handler(std::make_shared<const Handler>(std::move(handler)))
    {
    }

    void begin(Initial initial)
    {
        const QVariant value = follow();
        std::unique_lock lock(m_mutex);
        m_value = value;
        const auto handler = m_handler;
        lock.unlock();
        if (initial == Initial::Call)
            (*handler)({{}, value});
    }

    void end()
    {
        const std::lock_guard lock(m_mutex);
        m_handler = nullptr;
        leavePlaces();
    }

    void keyDidChange() override
    {
        if (!m_observed)
            return;
        const QVariant value = follow();
        std::unique_lock lock(m_mutex);
        const QVariant old = std::exchange(m_value, value);
        const auto handler = m_handler; // outlives an observation that the handler deletes
        lock.unlock();
        if (handler && !(old.typeId() == value.typeId() && old == value))
            (*handler)({old, value});
    }

private:
    using Place = std::pair<std::shared_ptr<KeyValueRelay>, QString>;

    /// Listens at every place that the path goes through now, and gives its value. Properties are
    /// read without the lock: they may tell of changes themselves.
    QVariant follow()
    {
        std::vector<Place> places;
        QVariant value = QVariant::fromValue(m_observed.data());
        bool isWatched = true;
        for (const QString &key : m_steps) {
            QObject *object = objectIn(value);
            isWatched = isWatched && object;
            if (isWatched)
                places.emplace_back(KeyValueRelay::relayOf(object), key);
            value = step(value, key);
        }
        const std::lock_guard lock(m_mutex);
        if (!m_handler || places == m_places)
            return value;
        leavePlaces();
        m_places = std::move(places);
        for (const auto &[relay, key] : m_places)
            relay->add(key, weak_from_this());
        return value;
    }

    void leavePlaces()
    {
        for (const auto &[relay, key] : m_places)
            relay->remove(key, this);
        m_places.clear();
    }

    const QPointer<QObject> m_observed;
    const QStringList m_steps;
    std::mutex m_mutex; // guards what follows
    std::shared_ptr<const Handler> m_handler;
    QVariant m_value;
    std::vector<Place> m_places;
};

KeyValueObservation::KeyValueObservation(QObject *observed, const QString &keyPath, Initial initial,
                                         Handler handler, QObject *parent)
    : QObject(parent), m_watch(std::make_shared<Watch>(observed, keyPath, std::move(handler)))
{
    m_watch->begin(initial);
}

KeyValueObservation::~KeyValueObservation()
{
    m_watch->end();
}

} // namespace platform
