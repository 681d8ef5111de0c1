#pragma once

#include "platform/ObservableDictionary.h"

#include <functional>
#include <memory>
#include <mutex>
#include <QPointer>
#include <QStringList>
#include <QVariantMap>
#include <unordered_map>
#include <vector>

class FBKVOInfo;

/// The keys of a change: the values that were asked for, and the key path, for blocks only.
inline const QString NSKeyValueChangeNewKey = QStringLiteral("new");
inline const QString NSKeyValueChangeOldKey = QStringLiteral("old");
inline const QString FBKVONotificationKeyPathKey = QStringLiteral("FBKVONotificationKeyPathKey");

/// What an observation is to deliver. Initial: a first call before `observe` returns.
enum FBKVOOption : unsigned { FBKVONew = 1, FBKVOOld = 2, FBKVOInitial = 4 };

/// An object to observe. One that is handed over as a shared pointer can be kept alive.
class FBKVOObject
{
public:
    FBKVOObject(QObject *object) : m_object(object) {}
    template <class Object>
    FBKVOObject(const std::shared_ptr<Object> &object) : m_object(object.get()), m_owner(object)
    {
    }
    QObject *get() const { return m_object; }
    const std::shared_ptr<QObject> &owner() const { return m_owner; }

private:
    QObject *m_object;
    std::shared_ptr<QObject> m_owner;
};

/// An observer that takes changes by a context instead of by functions.
class FBKVOObserver
{
public:
    virtual ~FBKVOObserver() = default;
    virtual void observeValueForKeyPath(const QString &keyPath, QObject *ofObject,
                                        const QVariantMap &change, void *context) = 0;
};

/// The observations of one observer. Key paths are those of platform::KeyValueObservation, and a
/// change is told only where it is one. Each path of an object is observed once: a repeated
/// observation is passed by. Releasing the controller ends all of them.
///
/// Any thread; a callback comes on the thread of the change and may itself add and remove
/// observations. After a removal no callback begins; one that has begun on another thread may go
/// on for a while, with the controller alive. The observer is borrowed, never kept: one that is
/// destroyed on another thread than the changes' must end its observations first.
///
/// An empty key path or list, or a missing block or action, is a fault of the program. Without an
/// object a call does nothing.
class FBKVOController : public std::enable_shared_from_this<FBKVOController>
{
public:
    using Block =
        std::function<void(QObject *observer, QObject *object, const QVariantMap &change)>;
    enum class Retain { No, Yes };

    /// With `Retain::Yes` what is observed lives as long as it is observed here, if it was handed
    /// over as a shared pointer.
    static std::shared_ptr<FBKVOController> controllerWithObserver(QObject *observer,
                                                                   Retain observed = Retain::Yes);
    ~FBKVOController();

    QObject *observer() const { return m_observer; } ///< Null once it has gone.

    void observe(const FBKVOObject &object, const QString &keyPath, unsigned options,
                 const Block &block);
    void observe(const FBKVOObject &object, const QStringList &keyPaths, unsigned options,
                 const Block &block);

    /// Calls the observer's invokable method of that name, with (QVariantMap change, QObject
    /// *object).
    void observeAction(const FBKVOObject &object, const QString &keyPath, unsigned options,
                       const QByteArray &action);
    void observeAction(const FBKVOObject &object, const QStringList &keyPaths, unsigned options,
                       const QByteArray &action);

    /// Calls the observer as an FBKVOObserver, if it is one.
    void observeContext(const FBKVOObject &object, const QString &keyPath, unsigned options,
                        void *context);
    void observeContext(const FBKVOObject &object, const QStringList &keyPaths, unsigned options,
                        void *context);

    void unobserve(QObject *object, const QString &keyPath);
    void unobserve(QObject *object);
    void unobserveAll();

private:
    friend class FBKVOInfo;
    using Infos = std::vector<std::shared_ptr<FBKVOInfo>>;

    FBKVOController(QObject *observer, Retain observed);
    void observe(const FBKVOObject &object, const std::shared_ptr<FBKVOInfo> &info);

    const QPointer<QObject> m_observer;
    const Retain m_retain;
    std::mutex m_mutex; // guards the table only, and is never held while somebody is called
    std::unordered_map<const QObject *, Infos> m_infos;
};

/// The object's own controller, made on first use: it goes with the object. The first keeps what it
/// observes alive, the second does not. On the object's thread.
std::shared_ptr<FBKVOController> KVOController(QObject *object);
std::shared_ptr<FBKVOController> KVOControllerNonRetaining(QObject *object);
