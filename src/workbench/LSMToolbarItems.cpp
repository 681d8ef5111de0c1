#include "workbench/LSMToolbarItems.h"

#include "library/LSMDesignTemplate.h"
#include "platform/Bundle.h"

using platform::localizable;

namespace {

bool always(const LSMDesignTemplate *)
{
    return true;
}

bool exists(const LSMDesignTemplate *design)
{
    return design;
}

bool isCustom(const LSMDesignTemplate *design)
{
    return design && design->isCustomDesignTemplate();
}

bool isDirtyCustom(const LSMDesignTemplate *design)
{
    return isCustom(design) && design->templateShouldBeSaved();
}

bool hasPath(const LSMDesignTemplate *design)
{
    return design && !design->templatePath().isNull();
}

bool canReveal(const LSMDesignTemplate *design)
{
    return isCustom(design) && hasPath(design);
}

bool canRevert(const LSMDesignTemplate *design)
{
    return isDirtyCustom(design) && hasPath(design);
}

bool canDuplicate(const LSMDesignTemplate *design)
{
    return hasPath(design) && !design->templateShouldBeSaved();
}

constexpr LSMToolbarItem items[] = {
    {"toolbar_item_new", localizable("New Template"), localizable("Create a new design."), "TB_New",
     "createNewDesignAction", always},
    {"toolbar_item_save", localizable("Save Template"), localizable("Saves selected design."),
     "TB_Save", "saveAction", isDirtyCustom},
    {"toolbar_item_reveal", localizable("Reveal in Finder"),
     localizable("Reveal selected design in Finder."), "RevealInFinder", "revealAction", canReveal},
    {"toolbar_item_revert", localizable("Revert To Saved"),
     localizable("Reverts selected design to last saved state."), "RevertToSaved", "revertAction",
     canRevert},
    {"toolbar_item_duplicate", localizable("Duplicate"), localizable("Duplicates selected design."),
     "TB_Duplicate", "duplicateAction", canDuplicate},
    {"toolbar_item_delete", localizable("Delete"), localizable("Deletes selected design."),
     "TB_Delete", "deleteAction", isCustom},
    {"toolbar_item_show_in_lb", localizable("Show in LB"),
     localizable("Will display this template in Lotbook."), "ShowInLB", "showInLBAction", exists},
};

} // namespace

std::span<const LSMToolbarItem> LSMToolbarItems()
{
    return items;
}

const LSMToolbarItem *LSMToolbarItemWithIdentifier(const QString &identifier)
{
    for (const LSMToolbarItem &item : items) {
        if (identifier == QLatin1StringView(item.identifier))
            return &item;
    }
    return nullptr;
}
