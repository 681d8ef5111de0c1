#include "kit/ui/ZQMenuItemValidator.h"

#include "kit/ui/TargetAction.h"

bool ZQMenuItemValidator::validateMenuItem(QObject *item, QObject *withTarget)
{
    return validateAbstractItem(item, zq::action(item), withTarget, QStringLiteral("validate"));
}
