#pragma once

#include "kit/ui/ZQAbstractValidator.h"

class ZQMenuItemValidator : public ZQAbstractValidator
{
public:
    /// Asks the target's `validate` + action operation for the item's action (`zq::action`). The
    /// item itself is not touched.
    static bool validateMenuItem(QObject *item, QObject *withTarget);
};
