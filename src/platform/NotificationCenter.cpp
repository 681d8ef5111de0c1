#include "platform/NotificationCenter.h"

namespace platform {

NotificationCenter &NotificationCenter::defaultCenter()
{
    static NotificationCenter center;
    return center;
}

void NotificationCenter::addObserver(QObject *observer, const QString &name, QObject *object,
                                     Handler handler)
{
    std::erase_if(m_subscriptions, [](const auto &entry) { return !entry->observer; });
    m_subscriptions.push_back(std::make_shared<Subscription>(
        Subscription{observer, name, object, object == nullptr, std::move(handler)}));
}

void NotificationCenter::removeObserver(QObject *observer, const QString &name)
{
    for (const auto &entry : m_subscriptions) {
        if (entry->observer == observer && (name.isEmpty() || entry->name == name))
            entry->observer = nullptr;
    }
}

void NotificationCenter::post(const QString &name, QObject *object, const QVariantMap &userInfo)
{
    const auto subscriptions = m_subscriptions;
    for (const auto &entry : subscriptions) {
        const bool hears =
            entry->name == name && (entry->anyObject || (object && entry->object == object));
        if (hears && entry->observer)
            entry->handler({name, object, userInfo});
    }
}

} // namespace platform
