#pragma once

#include "platform/ObservableDictionary.h"

class MGSPrefsViewController;

/// Whether a property is managed by the controller whose values a pane shows: true or false for
/// every key. Owned by the pane, which tells of changes; main thread.
class MGSManagedPropertiesProxy : public platform::ObservableDictionary
{
    Q_OBJECT

public:
    explicit MGSManagedPropertiesProxy(const MGSPrefsViewController *pane) : m_pane(pane) {}

    bool contains(const QString &) const override { return true; }
    QStringList allKeys() const override { return managed().values(); }
    QVariant value(const QString &key) const override { return managed().contains(key); }
    void setValue(const QString &, const QVariant &) override {} ///< Read-only.

protected:
    virtual QSet<QString> managed() const;

    const MGSPrefsViewController *const m_pane;
};
