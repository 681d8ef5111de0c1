#include "editor/MGSHybridUserDefaultsController.h"

#include "editor/MGSGroups.h"
#include "editor/MGSHybridValuesProxy.h"
#include "editor/MGSUserDefaultsController.h"
#include "platform/Assert.h"

MGSHybridUserDefaultsController::MGSHybridUserDefaultsController(const QString &groupID)
    : m_group(MGSUserDefaultsController::sharedControllerForGroupID(groupID)),
      m_global(MGSUserDefaultsController::sharedController())
{
    m_values = std::make_shared<MGSHybridValuesProxy>(this);
    for (const MGSUserDefaultsController *controller : controllers())
        connect(controller, &MGSUserDefaultsController::managedPropertiesDidChange, this,
                &MGSHybridUserDefaultsController::managedPropertiesDidChange);
}

MGSHybridUserDefaultsController::~MGSHybridUserDefaultsController() = default;

MGSHybridUserDefaultsController *
MGSHybridUserDefaultsController::sharedControllerForGroupID(const QString &groupID)
{
    PLATFORM_ASSERT(!groupID.isNull(), "groupID cannot be nil");
    static MGSGroups<MGSHybridUserDefaultsController> groups([](const QString &group) {
        return std::unique_ptr<MGSHybridUserDefaultsController>(
            new MGSHybridUserDefaultsController(group));
    });
    return &groups.of(groupID);
}

QString MGSHybridUserDefaultsController::groupID() const
{
    return m_group->groupID();
}

QSet<MGSFragariaView *> MGSHybridUserDefaultsController::managedInstances() const
{
    return m_group->managedInstances();
}

QSet<QString> MGSHybridUserDefaultsController::managedProperties() const
{
    return m_group->managedProperties() | m_global->managedProperties();
}

std::shared_ptr<platform::ObservableDictionary> MGSHybridUserDefaultsController::values() const
{
    return m_values;
}

MGSUserDefaultsController *
MGSHybridUserDefaultsController::controllerOf(const QString &property) const
{
    for (MGSUserDefaultsController *controller : controllers()) {
        if (controller->managedProperties().contains(property))
            return controller;
    }
    return nullptr;
}

bool MGSHybridUserDefaultsController::isSet(const QString &property) const
{
    const MGSUserDefaultsController *controller = controllerOf(property);
    return controller && controller->isSet(property);
}
