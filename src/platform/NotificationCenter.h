#pragma once

#include <functional>
#include <memory>
#include <QObject>
#include <QPointer>
#include <QVariantMap>
#include <vector>

namespace platform {

struct Notification
{
    QString name;
    QObject *object = nullptr; ///< The sender; borrowed for the time of the call.
    QVariantMap userInfo;
};

/// Notifications by name, delivered at once, on the posting thread, in the order of subscription.
/// An observer's handlers die with it; removing or adding observers while one is delivered is safe.
/// Main thread only.
class NotificationCenter
{
public:
    using Handler = std::function<void(const Notification &)>;

    static NotificationCenter &defaultCenter();

    /// A null `object` hears every sender; another one only that sender, and nothing once it is
    /// gone.
    void addObserver(QObject *observer, const QString &name, QObject *object, Handler handler);

    /// All subscriptions of the observer; with a name only those.
    void removeObserver(QObject *observer, const QString &name = {});

    void post(const QString &name, QObject *object, const QVariantMap &userInfo = {});

private:
    struct Subscription
    {
        QPointer<QObject> observer;
        QString name;
        QPointer<QObject> object;
        bool anyObject;
        Handler handler;
    };
    std::vector<std::shared_ptr<Subscription>> m_subscriptions;
};

} // namespace platform
