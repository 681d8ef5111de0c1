#include "platform/KeyValueRelay.h"

#include "platform/ObservableDictionary.h"

#include <QMetaProperty>
#include <unordered_map>

namespace platform {

namespace {

// What the signals call, counted behind the methods of QObject.
enum Slot { ObjectDestroyed, DictionaryChanged, FirstProperty };

struct Registry
{
    std::mutex mutex;
    std::unordered_map<const QObject *, std::shared_ptr<KeyValueRelay>> relays;
};

Registry &registry()
{
    static auto *const all = new Registry; // outlives whatever is observed
    return *all;
}

} // namespace

std::shared_ptr<KeyValueRelay> KeyValueRelay::relayOf(QObject *object)
{
    const std::lock_guard lock(registry().mutex);
    std::shared_ptr<KeyValueRelay> &relay = registry().relays[object];
    if (!relay)
        relay.reset(new KeyValueRelay(object));
    return relay;
}

KeyValueRelay::KeyValueRelay(QObject *object) : m_object(object)
{
    const int base = QObject::staticMetaObject.methodCount();
    static const int destroyed = QMetaMethod::fromSignal(&QObject::destroyed).methodIndex();
    static const int valueChanged =
        QMetaMethod::fromSignal(&ObservableDictionary::valueChanged).methodIndex();
    QMetaObject::connect(object, destroyed, this, base + ObjectDestroyed, Qt::DirectConnection);
    if (qobject_cast<ObservableDictionary *>(object))
        QMetaObject::connect(object, valueChanged, this, base + DictionaryChanged,
                             Qt::DirectConnection);
}

void KeyValueRelay::add(const QString &key, const std::weak_ptr<KeyValueListener> &listener)
{
    const std::lock_guard lock(m_mutex);
    m_listeners.emplace_back(key, listener);
    connectKey(key);
}

// A key stays connected until the object goes.
void KeyValueRelay::connectKey(const QString &key)
{
    if (qobject_cast<ObservableDictionary *>(m_object))
        return;
    const QMetaObject *type = m_object->metaObject();
    const int index = type->indexOfProperty(key.toLatin1().constData());
    if (index >= 0 && type->property(index).hasNotifySignal())
        QMetaObject::connect(m_object, type->property(index).notifySignalIndex(), this,
                             QObject::staticMetaObject.methodCount() + FirstProperty + index,
                             Qt::DirectConnection | Qt::UniqueConnection);
}

void KeyValueRelay::remove(const QString &key, const KeyValueListener *listener)
{
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_listeners, [&](const auto &each) {
        const auto held = each.second.lock();
        return !held || (held.get() == listener && each.first == key);
    });
}

int KeyValueRelay::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    // This object was made under the lock, perhaps on another thread.
    std::unique_lock lock(registry().mutex);
    QObject *const object = m_object;
    const auto relay = id == ObjectDestroyed ? registry().relays.extract(object)
                                             : decltype(registry().relays)::node_type();
    lock.unlock();
    if (id == DictionaryChanged)
        tell(*static_cast<const QString *>(arguments[1]));
    else if (id >= FirstProperty)
        tell(QString::fromLatin1(object->metaObject()->property(id - FirstProperty).name()));
    return -1; // with the object's end perhaps this one's
}

void KeyValueRelay::tell(const QString &key)
{
    std::vector<std::shared_ptr<KeyValueListener>> listeners;
    {
        const std::lock_guard lock(m_mutex);
        for (const auto &[each, listener] : m_listeners) {
            if (auto held = each == key ? listener.lock() : nullptr)
                listeners.push_back(std::move(held));
        }
    }
    for (const auto &listener : listeners)
        listener->keyDidChange();
}

} // namespace platform
