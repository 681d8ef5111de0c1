#include "editor/MGSManagedPropertiesProxy.h"

#include "editor/MGSPrefsViewController.h"

QSet<QString> MGSManagedPropertiesProxy::managed() const
{
    return m_pane->managedProperties();
}
