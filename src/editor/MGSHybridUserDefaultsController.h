#pragma once

#include "editor/MGSUserDefaultsControllerProtocol.h"

class MGSHybridValuesProxy;
class MGSUserDefaultsController;

/// A group and the global one together, for a pane that shows whatever applies to the group's
/// views: what neither manages has no value. One object for each group, for the life of the
/// process. Any thread may look it up; all else is on the main thread.
class MGSHybridUserDefaultsController : public MGSUserDefaultsControllerProtocol
{
    Q_OBJECT

public:
    /// A null name is a fault of the program.
    static MGSHybridUserDefaultsController *sharedControllerForGroupID(const QString &groupID);
    ~MGSHybridUserDefaultsController() override;

    QString groupID() const override;
    QSet<MGSFragariaView *> managedInstances() const override;
    QSet<QString> managedProperties() const override;
    std::shared_ptr<platform::ObservableDictionary> values() const override;
    bool isSet(const QString &property) const override;

    /// The group's, else the global one, whichever manages the property; null: neither.
    MGSUserDefaultsController *controllerOf(const QString &property) const;
    QList<MGSUserDefaultsController *> controllers() const { return {m_group, m_global}; }

private:
    explicit MGSHybridUserDefaultsController(const QString &groupID);

    MGSUserDefaultsController *const m_group;
    MGSUserDefaultsController *const m_global;
    std::shared_ptr<MGSHybridValuesProxy> m_values;
};
