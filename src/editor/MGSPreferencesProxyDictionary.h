#pragma once

#include "platform/ObservableDictionary.h"

#include <QPointer>

class MGSUserDefaults;
class MGSUserDefaultsController;

/// The values of a group as its views and panes have them: what has been set, over default values.
/// What has been set is kept archived (MGSArchiving.h) in `values()`, and while the controller is
/// persistent in the user defaults of its group too, where it is then read. A value that was set
/// but cannot be what its default is counts as not set. Belongs to the controller, which it may
/// outlive; main thread.
class MGSPreferencesProxyDictionary : public platform::ObservableDictionary
{
    Q_OBJECT

public:
    explicit MGSPreferencesProxyDictionary(MGSUserDefaultsController *controller);

    bool contains(const QString &key) const override;
    QStringList allKeys() const override;
    QVariant value(const QString &key) const override;
    void setValue(const QString &key, const QVariant &value) override;

    // Those of the dictionary itself, past the user defaults and the default values.
    bool isSet(const QString &key) const { return values().contains(key); }
    QVariant object(const QString &key) const;
    void setObject(const QString &key, const QVariant &value);

    const QVariantMap &defaultValues() const { return m_defaultValues; }
    void setDefaultValues(const QVariantMap &values); ///< Archived or not.

    /// Sets every key whose value is another one in the user defaults, or is not there.
    void takeUserDefaults();

private:
    bool isPersistent() const;
    MGSUserDefaults &userDefaults() const;

    const QPointer<MGSUserDefaultsController> m_controller;
    QVariantMap m_defaultValues;
};
