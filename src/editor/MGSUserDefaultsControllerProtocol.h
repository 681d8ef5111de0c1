#pragma once

#include "platform/ObservableDictionary.h"

#include <memory>
#include <QSet>

class MGSFragariaView;

/// What preference panes need of whoever keeps the settings of a group of editors. Main thread.
class MGSUserDefaultsControllerProtocol : public QObject
{
    Q_OBJECT
    Q_PROPERTY(std::shared_ptr<platform::ObservableDictionary> values READ values CONSTANT)

public:
    virtual QString groupID() const = 0;
    virtual QSet<MGSFragariaView *> managedInstances() const = 0; ///< The views; borrowed.
    virtual QSet<QString> managedProperties() const = 0; ///< Names of the views' properties.

    /// By property name; each change reaches all views that are managed for that property.
    virtual std::shared_ptr<platform::ObservableDictionary> values() const = 0;

    virtual bool isSet(const QString &property) const = 0; ///< Else it has its default value.

Q_SIGNALS:
    void managedPropertiesDidChange();
};
