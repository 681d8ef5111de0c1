#include "editor/MGSHybridUserDefaultsController.h"

#include "editor/MGSHybridValuesProxy.h"
#include "editor/MGSUserDefaultsController.h"
#include "platform/Assert.h"

#include <map>
#include <mutex>
#include <QCoreApplication>
#include <QThread>

MGSHybridUserDefaultsController::MGSHybridUserDefaultsController(const QString &groupID)
    : m_group(MGSUserDefaultsController::sharedControllerForGroupID(groupID)),
      m_global(MGSUserDefaultsController::sharedController())
{
    QThread *mainThread = QCoreApplication::instance()->thread();
    moveToThread(mainThread);
    m_values = std::make_shared<MGSHybridValuesProxy>(this);
    m_values->moveToThread(mainThread);
    for (const MGSUserDefaultsController *controller : controllers())
        connect(controller, &MGSUserDefaultsController::managedPropertiesDidChange, this,
                &MGSHybridUserDefaultsController::managedPropertiesDidChange);
}

MGSHybridUserDefaultsController::~MGSHybridUserDefaultsController() = default;

MGSHybridUserDefaultsController *
MGSHybridUserDefaultsController::sharedControllerForGroupID(const QString &groupID)
{
    PLATFORM_ASSERT(!groupID.isNull(), "groupID cannot be nil");
    static std::mutex mutex;
    static std::map<QString, std::unique_ptr<MGSHybridUserDefaultsController>> controllers;
    const std::lock_guard lock(mutex);
    auto &controller = controllers[groupID];
    if (!controller)
        controller.reset(new MGSHybridUserDefaultsController(groupID));
    return controller.get();
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
