#include "kit/ui/ZQToolbarItemValidator.h"

#include "kit/ui/TargetAction.h"
#include "kit/ui/ZQToolbarItem.h"

namespace {

bool validated(QObject *subject, QObject *target, const QString &prefix)
{
    const bool enabled =
        ZQAbstractValidator::validateAbstractItem(subject, zq::action(subject), target, prefix);
    subject->setProperty("enabled", enabled);
    return enabled;
}

} // namespace

bool ZQToolbarItemValidator::validateToolbarItem(ZQToolbarItem *item)
{
    const QString buttonPrefix = QStringLiteral("validateToolbarButton");
    QObject *target = nullptr;
    if (QAbstractButton *button = item->getButtonAndTarget(&target)) {
        if (zq::tag(button) == ignoredButtonTag)
            return false;
        item->setEnabled(validated(button, target, buttonPrefix));
    } else if (zq::SegmentedControl *control = item->getSegmentedControlAndTarget(&target)) {
        item->setEnabled(
            validated(control, target, QStringLiteral("validateToolbarSegmentedControl")));
    } else if (item->isBordered()) {
        validated(item, zq::target(item), buttonPrefix);
    } else {
        return true;
    }
    return item->isEnabled();
}
