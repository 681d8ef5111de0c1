#pragma once

#include <QString>
#include <span>

class LSMDesignTemplate;

/// The main window's toolbar as a table: what each item is called, shows and does, and for which
/// selected design (which may be null) it is enabled.
struct LSMToolbarItem
{
    const char *identifier;
    const char *label;
    const char *toolTip;
    const char *image;
    const char *action;
    bool (*isEnabled)(const LSMDesignTemplate *design);
};

inline constexpr auto LSMToolbarIdentifier = "mainLSMToolbar";

std::span<const LSMToolbarItem> LSMToolbarItems();
const LSMToolbarItem *LSMToolbarItemWithIdentifier(const QString &identifier);
