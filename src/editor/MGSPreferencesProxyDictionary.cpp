#include "editor/MGSPreferencesProxyDictionary.h"

#include "editor/MGSArchiving.h"
#include "editor/MGSUserDefaults.h"
#include "editor/MGSUserDefaultsController.h"
#include "platform/PropertyList.h"

#include <QSet>

namespace {

QStringList united(const QStringList &one, const QStringList &other)
{
    QSet<QString> keys(one.begin(), one.end());
    keys.unite(QSet<QString>(other.begin(), other.end()));
    QStringList sorted = keys.values();
    sorted.sort();
    return sorted;
}

} // namespace

MGSPreferencesProxyDictionary::MGSPreferencesProxyDictionary(MGSUserDefaultsController *controller)
    : m_controller(controller)
{
}

bool MGSPreferencesProxyDictionary::isPersistent() const
{
    return m_controller && m_controller->isPersistent();
}

MGSUserDefaults &MGSPreferencesProxyDictionary::userDefaults() const
{
    return MGSUserDefaults::sharedUserDefaultsForGroupID(m_controller->groupID());
}

bool MGSPreferencesProxyDictionary::contains(const QString &key) const
{
    return isSet(key) || m_defaultValues.contains(key);
}

QStringList MGSPreferencesProxyDictionary::allKeys() const
{
    return united(values().keys(), m_defaultValues.keys());
}

QVariant MGSPreferencesProxyDictionary::value(const QString &key) const
{
    QVariant own = isPersistent() ? userDefaults().object(key) : object(key);
    const QVariant standard = m_defaultValues.value(key);
    if (standard.typeId() == QMetaType::Bool && own.typeId() == QMetaType::QString)
        own = platform::isTrue(own);
    const bool isOfUse = !standard.isValid() || own.convert(standard.metaType());
    return isOfUse ? own : standard;
}

// What is written to the user defaults is taken back as they keep it.
void MGSPreferencesProxyDictionary::setValue(const QString &key, const QVariant &value)
{
    if (!isPersistent())
        return setObject(key, value);
    userDefaults().setObject(key, value);
    setObject(key, userDefaults().object(key));
}

QVariant MGSPreferencesProxyDictionary::object(const QString &key) const
{
    return mgs_unarchivedValue(ObservableDictionary::value(key));
}

void MGSPreferencesProxyDictionary::setObject(const QString &key, const QVariant &value)
{
    ObservableDictionary::setValue(key, mgs_archivedValue(value));
}

void MGSPreferencesProxyDictionary::setDefaultValues(const QVariantMap &values)
{
    QVariantMap before;
    for (const QString &key : united(m_defaultValues.keys(), values.keys()))
        before.insert(key, value(key));
    m_defaultValues.clear();
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        m_defaultValues.insert(it.key(), mgs_unarchivedValue(*it));
    for (auto it = before.cbegin(); it != before.cend(); ++it) {
        if (value(it.key()) != *it)
            Q_EMIT valueChanged(it.key());
    }
}

void MGSPreferencesProxyDictionary::takeUserDefaults()
{
    for (const QString &key : united(values().keys(), userDefaults().allKeys()))
        setObject(key, userDefaults().object(key));
}
