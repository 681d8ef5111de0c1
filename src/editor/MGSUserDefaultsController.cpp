#include "editor/MGSUserDefaultsController.h"

#include "editor/MGSFragariaView.h"
#include "editor/MGSGroups.h"
#include "editor/MGSPreferencesProxyDictionary.h"
#include "editor/MGSUserDefaults.h"
#include "platform/Assert.h"
#include "platform/Log.h"

namespace {

const QString globalGroup = QStringLiteral("Global");

} // namespace

MGSUserDefaultsController::MGSUserDefaultsController(const QString &groupID)
    : m_groupID(groupID), m_values(std::make_shared<MGSPreferencesProxyDictionary>(this))
{
    m_values->setDefaultValues(MGSFragariaView::defaultsDictionary());
}

MGSUserDefaultsController::~MGSUserDefaultsController() = default;

MGSGroups<MGSUserDefaultsController> &MGSUserDefaultsController::groups()
{
    static MGSGroups<MGSUserDefaultsController> groups([](const QString &group) {
        return std::unique_ptr<MGSUserDefaultsController>(new MGSUserDefaultsController(group));
    });
    return groups;
}

MGSUserDefaultsController *
MGSUserDefaultsController::sharedControllerForGroupID(const QString &groupID)
{
    return &groups().of(groupID.isNull() ? globalGroup : groupID);
}

MGSUserDefaultsController *MGSUserDefaultsController::sharedController()
{
    return sharedControllerForGroupID({});
}

bool MGSUserDefaultsController::isGlobal() const
{
    return m_groupID == globalGroup;
}

QSet<MGSFragariaView *> MGSUserDefaultsController::managedInstances() const
{
    if (!isGlobal())
        return m_fragarias;
    QSet<MGSFragariaView *> all;
    for (const MGSUserDefaultsController *controller : groups().all())
        all.unite(controller->m_fragarias);
    return all;
}

void MGSUserDefaultsController::addFragariaToManagedSet(MGSFragariaView *fragaria)
{
    if (m_fragarias.contains(fragaria))
        return;
    if (sharedController()->managedInstances().contains(fragaria))
        throw platform::Exception(
            QStringLiteral("MGSUserDefaultsControllerClash"),
            platform::format(
                QStringLiteral(
                    "Trying to manage Fragaria %@ with more than one MGSUserDefaultsController!"),
                fragaria));
    m_fragarias.insert(fragaria);
    connect(fragaria, &QObject::destroyed, this,
            [this, fragaria] { m_fragarias.remove(fragaria); });
    if (!isGlobal())
        sharedController()->registerBindings(sharedController()->m_managedProperties, fragaria);
    registerBindings(m_managedProperties, fragaria);
}

void MGSUserDefaultsController::removeFragariaFromManagedSet(MGSFragariaView *fragaria)
{
    if (!m_fragarias.remove(fragaria)) {
        platform::log("Attempted to remove Fragaria %@ from %@ but it was not registered in the "
                      "first place!",
                      fragaria, this);
        return;
    }
    fragaria->disconnect(this);
    unregisterBindings(m_managedProperties, fragaria);
    if (!isGlobal())
        sharedController()->unregisterBindings(sharedController()->m_managedProperties, fragaria);
}

void MGSUserDefaultsController::setManagedProperties(const QSet<QString> &properties)
{
    if (!isGlobal()) {
        sharedController()->replaceManagedProperties(sharedController()->m_managedProperties -
                                                     properties);
        return replaceManagedProperties(properties);
    }
    QSet<QString> local;
    for (const MGSUserDefaultsController *controller : groups().all()) {
        if (controller != this)
            local.unite(controller->m_managedProperties);
    }
    QStringList clashing = local.intersect(properties).values();
    clashing.sort();
    if (!clashing.isEmpty())
        throw platform::Exception(
            QStringLiteral("MGSUserDefaultsControllerPropertyClash"),
            platform::format(
                QStringLiteral("Tried to manage globally properties which are already managed "
                               "locally.\nConflicting properties: %@"),
                clashing));
    replaceManagedProperties(properties);
}

void MGSUserDefaultsController::replaceManagedProperties(const QSet<QString> &properties)
{
    const QSet<QString> before = std::exchange(m_managedProperties, properties);
    if (before == properties)
        return;
    unregisterBindings(before - properties);
    registerBindings(properties - before);
    Q_EMIT managedPropertiesDidChange();
}

void MGSUserDefaultsController::registerBindings(const QSet<QString> &properties)
{
    for (MGSFragariaView *fragaria : managedInstances())
        registerBindings(properties, fragaria);
}

void MGSUserDefaultsController::registerBindings(const QSet<QString> &properties,
                                                 MGSFragariaView *forFragaria)
{
    for (const QString &property : properties)
        mgs_bind(forFragaria, property, this, QStringLiteral("values.") + property);
}

void MGSUserDefaultsController::unregisterBindings(const QSet<QString> &properties)
{
    for (MGSFragariaView *fragaria : managedInstances())
        unregisterBindings(properties, fragaria);
}

void MGSUserDefaultsController::unregisterBindings(const QSet<QString> &properties,
                                                   MGSFragariaView *forFragaria)
{
    for (const QString &property : properties)
        mgs_unbind(forFragaria, property);
}

std::shared_ptr<platform::ObservableDictionary> MGSUserDefaultsController::values() const
{
    return m_values;
}

bool MGSUserDefaultsController::isSet(const QString &property) const
{
    return m_values->isSet(property);
}

QVariantMap MGSUserDefaultsController::defaultValues() const
{
    return m_values->defaultValues();
}

void MGSUserDefaultsController::setDefaultValues(const QVariantMap &values)
{
    m_values->setDefaultValues(values);
}

void MGSUserDefaultsController::setPersistent(bool persistent)
{
    if (persistent == m_isPersistent)
        return;
    MGSUserDefaults &defaults = MGSUserDefaults::sharedUserDefaultsForGroupID(m_groupID);
    if (persistent) {
        for (const QString &property : m_values->values().keys())
            defaults.setObject(property, m_values->object(property));
        connect(&defaults, &MGSUserDefaults::didChange, m_values.get(),
                &MGSPreferencesProxyDictionary::takeUserDefaults);
    } else {
        defaults.disconnect(m_values.get());
    }
    m_isPersistent = persistent;
    m_values->takeUserDefaults();
}
