#include "editor/MGSManagedGlobalPropertiesProxy.h"

#include "editor/MGSPrefsViewController.h"

QSet<QString> MGSManagedGlobalPropertiesProxy::managed() const
{
    return m_pane->stylizeGlobalProperties() ? m_pane->managedGlobalProperties() : QSet<QString>();
}
