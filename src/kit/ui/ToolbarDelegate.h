#pragma once

#include <optional>
#include <QStringList>

class ZQToolbarItem;

namespace zq {

class Toolbar;

/// What a `Toolbar` asks its owner. A delegate that is a QObject too is the target of controls that
/// have none and whose action it answers to.
class ToolbarDelegate
{
public:
    virtual ~ToolbarDelegate() = default;

    /// All that the user may choose from, in the palette's order; may name the two spaces.
    virtual QStringList toolbarAllowedItemIdentifiers(Toolbar *toolbar) = 0;
    virtual QStringList toolbarDefaultItemIdentifiers(Toolbar *toolbar) = 0;

    /// A new item, which the toolbar then owns; null for an identifier that is not known. Never
    /// asked for the spaces. It is not inserted when it is only for the palette.
    virtual ZQToolbarItem *toolbarItemForItemIdentifier(Toolbar *toolbar, const QString &identifier,
                                                        bool willBeInserted) = 0;

    /// Whether the item is enabled; no answer leaves it as it is.
    virtual std::optional<bool> validateZQToolbarItem(ZQToolbarItem *) { return std::nullopt; }
};

} // namespace zq
