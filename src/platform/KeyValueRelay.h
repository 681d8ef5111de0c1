#pragma once

#include <memory>
#include <mutex>
#include <QObject>
#include <vector>

namespace platform {

/// Hears that the value of a key may have changed, on the thread of the change.
class KeyValueListener
{
public:
    virtual ~KeyValueListener() = default;
    virtual void keyDidChange() = 0;
};

/// Receives the change signals of one object and passes them to whoever listens to the key. There
/// is one for each object that is observed, and it goes with that object: so listeners come and go
/// on any thread, while a change is told on another, and never meet a receiver that has gone.
class KeyValueRelay : public QObject
{
public:
    /// The object's own, made when first asked for. Any thread.
    static std::shared_ptr<KeyValueRelay> relayOf(QObject *object);

    /// Keys that are no property with a NOTIFY signal, or of a dictionary, are never told of. A
    /// listener that is just being told may still be told after `remove` on another thread. Any
    /// thread.
    void add(const QString &key, const std::weak_ptr<KeyValueListener> &listener);
    void remove(const QString &key, const KeyValueListener *listener);

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    explicit KeyValueRelay(QObject *object);
    void connectKey(const QString &key);
    void tell(const QString &key);

    QObject *m_object;
    std::mutex m_mutex; // guards the listeners; never held while one is called
    std::vector<std::pair<QString, std::weak_ptr<KeyValueListener>>> m_listeners;
};

} // namespace platform
