#include "editor/MGSUserDefaults.h"

#include "editor/MGSArchiving.h"
#include "editor/MGSGroups.h"
#include "platform/UserDefaults.h"

using platform::UserDefaults;

MGSUserDefaults::MGSUserDefaults(const QString &groupID) : m_groupID(groupID)
{
    connect(&UserDefaults::standardUserDefaults(), &UserDefaults::didChange, this,
            [this](const QString &key) {
                if (key == m_groupID)
                    Q_EMIT didChange();
            });
}

MGSUserDefaults &MGSUserDefaults::sharedUserDefaultsForGroupID(const QString &groupID)
{
    static MGSGroups<MGSUserDefaults> groups([](const QString &group) {
        return std::unique_ptr<MGSUserDefaults>(new MGSUserDefaults(group));
    });
    return groups.of(groupID);
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
