#pragma once

#include "kit/FBKVOController.h"
#include "platform/KeyValueObserving.h"

#include <unordered_set>
#include <variant>

/// One observation: of which object, for which controller, and who is called. Made and bound by the
/// controller; the rest belongs to the shared one.
class FBKVOInfo
{
public:
    using Call = std::variant<FBKVOController::Block, QByteArray, void *>;

    FBKVOInfo(QString keyPath, unsigned options, Call call)
        : m_keyPath(std::move(keyPath)), m_options(options), m_call(std::move(call))
    {
    }
    void bindTo(const std::weak_ptr<FBKVOController> &controller, const FBKVOObject &object,
                bool retained);

    const QString &keyPath() const { return m_keyPath; }
    QObject *object() const { return m_object; } ///< Null once it has gone.

    /// Calls who is to be called, if controller and observer are still there.
    void dispatch(const platform::KeyValueObservation::Change &change) const;

private:
    friend class FBKVOSharedController;
    enum class State { Initial, Observing, NotObserving };

    void call(QObject *observer, const QVariantMap &change) const;

    const QString m_keyPath;
    const unsigned m_options;
    const Call m_call;
    std::weak_ptr<FBKVOController> m_controller;
    QPointer<QObject> m_object;
    std::shared_ptr<QObject> m_retained;

    // Under the shared controller's mutex:
    State m_state = State::Initial;
    std::unique_ptr<platform::KeyValueObservation> m_observation;
};

/// Stands between all controllers and the objects that they observe: it alone knows which
/// observations are in force, so that a change that comes late finds that its own is no more. Any
/// thread.
class FBKVOSharedController
{
public:
    static FBKVOSharedController &sharedController();

    void observe(const std::shared_ptr<FBKVOInfo> &info);
    void unobserve(const std::shared_ptr<FBKVOInfo> &info);

private:
    void observeValue(const std::weak_ptr<FBKVOInfo> &context,
                      const platform::KeyValueObservation::Change &change);

    std::mutex m_mutex; // never held while something is observed or called
    std::unordered_set<const FBKVOInfo *> m_infos;
};
