#include "kit/FBKVOSharedController.h"

using platform::KeyValueObservation;

void FBKVOInfo::bindTo(const std::weak_ptr<FBKVOController> &controller, const FBKVOObject &object,
                       bool retained)
{
    m_controller = controller;
    m_object = object.get();
    if (retained)
        m_retained = object.owner();
}

void FBKVOInfo::dispatch(const KeyValueObservation::Change &change) const
{
    const auto controller = m_controller.lock();
    QObject *observer = controller ? controller->observer() : nullptr;
    if (!observer)
        return;
    QVariantMap values;
    if (m_options & FBKVONew)
        values.insert(NSKeyValueChangeNewKey, change.newValue);
    if (m_options & FBKVOOld)
        values.insert(NSKeyValueChangeOldKey, change.oldValue);
    call(observer, values);
}

void FBKVOInfo::call(QObject *observer, const QVariantMap &change) const
{
    if (const auto *block = std::get_if<FBKVOController::Block>(&m_call)) {
        QVariantMap withKeyPath = change;
        withKeyPath.insert(FBKVONotificationKeyPathKey, m_keyPath);
        (*block)(observer, m_object, withKeyPath);
    } else if (const auto *action = std::get_if<QByteArray>(&m_call)) {
        QMetaObject::invokeMethod(observer, action->constData(), Qt::DirectConnection,
                                  Q_ARG(QVariantMap, change), Q_ARG(QObject *, m_object.data()));
    } else if (auto *taker = dynamic_cast<FBKVOObserver *>(observer)) {
        taker->observeValueForKeyPath(m_keyPath, m_object, change, std::get<void *>(m_call));
    }
}

FBKVOSharedController &FBKVOSharedController::sharedController()
{
    static auto *const shared = new FBKVOSharedController; // outlives whatever observes
    return *shared;
}

void FBKVOSharedController::observe(const std::shared_ptr<FBKVOInfo> &info)
{
    {
        const std::lock_guard lock(m_mutex);
        m_infos.insert(info.get());
    }
    using Initial = KeyValueObservation::Initial;
    auto observation = std::make_unique<KeyValueObservation>(
        info->m_object, info->m_keyPath,
        info->m_options & FBKVOInitial ? Initial::Call : Initial::Skip,
        [this, context = std::weak_ptr(info)](const auto &change) {
            observeValue(context, change);
        },
        nullptr);
    const std::lock_guard lock(m_mutex);
    if (info->m_state != FBKVOInfo::State::Initial)
        return; // removed meanwhile
    info->m_state = FBKVOInfo::State::Observing;
    info->m_observation = std::move(observation);
}

void FBKVOSharedController::unobserve(const std::shared_ptr<FBKVOInfo> &info)
{
    std::unique_ptr<KeyValueObservation> ended;
    const std::lock_guard lock(m_mutex);
    m_infos.erase(info.get());
    ended = std::move(info->m_observation);
    info->m_state = FBKVOInfo::State::NotObserving;
}

void FBKVOSharedController::observeValue(const std::weak_ptr<FBKVOInfo> &context,
                                         const KeyValueObservation::Change &change)
{
    const auto info = context.lock();
    {
        const std::lock_guard lock(m_mutex);
        if (!info || !m_infos.contains(info.get()))
            return;
    }
    info->dispatch(change);
}
