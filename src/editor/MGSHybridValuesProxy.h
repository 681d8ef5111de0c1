#pragma once

#include "platform/ObservableDictionary.h"

#include <QPointer>

class MGSHybridUserDefaultsController;

/// The values of a group and of the global one as one dictionary: each key is read from and written
/// to whichever of the two manages it, the group first. A key that neither manages has no value,
/// and setting it does nothing. Belongs to the controller, which it may outlive; main thread.
class MGSHybridValuesProxy : public platform::ObservableDictionary
{
    Q_OBJECT

public:
    explicit MGSHybridValuesProxy(MGSHybridUserDefaultsController *controller);

    bool contains(const QString &key) const override;
    QStringList allKeys() const override;
    QVariant value(const QString &key) const override;
    void setValue(const QString &key, const QVariant &value) override;

private:
    const QPointer<MGSHybridUserDefaultsController> m_controller;
};
