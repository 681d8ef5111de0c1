#include "kit/ui/ZQAbstractValidator.h"

#include "kit/ui/TargetAction.h"

bool ZQAbstractValidator::validateAbstractItem(QObject *item, const QString &withSelector,
                                               QObject *withTarget,
                                               const QString &validationSelectorPrefix)
{
    const QString operation =
        validationSelectorPrefix + withSelector.left(1).toUpper() + withSelector.mid(1);
    return zq::askTarget(withTarget, operation, item).value_or(true);
}
