#pragma once

#include "kit/ui/ZQAbstractValidator.h"

class ZQToolbarItem;

class ZQToolbarItemValidator : public ZQAbstractValidator
{
public:
    /// A button with this tag is left alone and reported as disabled.
    static constexpr int ignoredButtonTag = 7007;

    /// Validates the item's button (operations `validateToolbarButtonACTION`) or segmented control
    /// (`validateToolbarSegmentedControlACTION`) and sets it and the item enabled accordingly; with
    /// neither, a bordered item itself. Everything else is true and stays as it is.
    static bool validateToolbarItem(ZQToolbarItem *item);
};
