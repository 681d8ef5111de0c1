#include "editor/MGSUserDefaults.h"

#include "editor/MGSArchiving.h"
#include "platform/UserDefaults.h"

#include <map>
#include <memory>
#include <mutex>
#include <QCoreApplication>
#include <QThread>

using platform::UserDefaults;

MGSUserDefaults::MGSUserDefaults(const QString &groupID) : m_groupID(groupID)
{
    moveToThread(QCoreApplication::instance()->thread());
    connect(&UserDefaults::standardUserDefaults(), &UserDefaults::didChange, this,
            [this](const QString &key) {
                if (key == m_groupID)
                    Q_EMIT didChange();
            });
}

MGSUserDefaults &MGSUserDefaults::sharedUserDefaultsForGroupID(const QString &groupID)
{
    static std::mutex mutex;
    static std::map<QString, std::unique_ptr<MGSUserDefaults>> groups;
    const std::lock_guard lock(mutex);
    std::unique_ptr<MGSUserDefaults> &group = groups[groupID];
    if (!group)
        group.reset(new MGSUserDefaults(groupID));
    return *group;
}

MGSUserDefaults &MGSUserDefaults::sharedUserDefaults()
{
    return sharedUserDefaultsForGroupID(QStringLiteral("Global"));
}

void MGSUserDefaults::registerDefaults(const QVariantMap &values)
{
    QVariantMap plain;
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        plain.insert(it.key(), mgs_archivedValue(*it));
    UserDefaults::standardUserDefaults().registerDefaults({{m_groupID, plain}});
}

QStringList MGSUserDefaults::allKeys() const
{
    return UserDefaults::standardUserDefaults().dictionary(m_groupID).keys();
}

QVariant MGSUserDefaults::object(const QString &key) const
{
    return mgs_unarchivedValue(
        UserDefaults::standardUserDefaults().dictionary(m_groupID).value(key));
}

void MGSUserDefaults::setObject(const QString &key, const QVariant &value)
{
    UserDefaults &defaults = UserDefaults::standardUserDefaults();
    QVariantMap group = defaults.dictionary(m_groupID);
    if (value.isValid())
        group.insert(key, mgs_archivedValue(value));
    else if (!group.remove(key))
        return;
    defaults.setObject(m_groupID, group);
}
