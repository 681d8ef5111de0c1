#pragma once

#include "editor/MGSManagedPropertiesProxy.h"

/// The same for what is managed globally and marked so; false for all while the pane marks nothing.
class MGSManagedGlobalPropertiesProxy : public MGSManagedPropertiesProxy
{
    Q_OBJECT

public:
    using MGSManagedPropertiesProxy::MGSManagedPropertiesProxy;

protected:
    QSet<QString> managed() const override;
};
