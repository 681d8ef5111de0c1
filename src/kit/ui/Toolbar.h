#pragma once

#include "kit/ui/ToolbarDelegate.h"
#include "kit/ui/ZQToolbarItem.h"
#include <functional>
#include <QToolBar>

namespace zq {

class ToolbarCustomizationPalette;

enum class ToolbarDisplayMode { IconAndLabel = 1, IconOnly = 2, LabelOnly = 3 };

/// A display mode with its localised title, as menus offer it.
struct ToolbarDisplayModeChoice
{
    ToolbarDisplayMode mode;
    QString title;
};

/// In lists of identifiers; these may stand there more than once.
inline const QString ToolbarSpaceItemIdentifier = QStringLiteral("space");
inline const QString ToolbarFlexibleSpaceItemIdentifier = QStringLiteral("flexibleSpace");

/// A toolbar that its user can customise. With `setAutosavesConfiguration` the items, the display
/// mode and the visibility live in the user default "Toolbar Configuration IDENTIFIER" and come
/// back from there; identifiers that are no longer allowed are passed over. Main thread.
class Toolbar : public QToolBar
{
    Q_OBJECT

public:
    explicit Toolbar(const QString &identifier, QWidget *parent = nullptr);

    /// Borrowed; must outlive the toolbar or be taken back with null. Fills the toolbar, from the
    /// stored configuration or with the default items. Set the three properties below before.
    void setDelegate(ToolbarDelegate *delegate);
    ToolbarDelegate *delegate() const { return m_delegate; }

    void setAllowsUserCustomization(bool allows) { m_allowsUserCustomization = allows; }
    void setAutosavesConfiguration(bool autosaves) { m_autosavesConfiguration = autosaves; }
    static QList<ToolbarDisplayModeChoice> displayModeChoices();
    void setDisplayMode(ToolbarDisplayMode mode);
    ToolbarDisplayMode displayMode() const { return m_displayMode; }

    /// Whether the user has the toolbar shown; true also while its window is not.
    bool isToolbarVisible() const { return m_toolbarVisible; }
    void setToolbarVisible(bool visible);

    /// The items that stand in it, left to right. Setting passes over unknown identifiers and over
    /// the second of a kind but for spaces.
    QStringList itemIdentifiers() const;
    void setItemIdentifiers(const QStringList &identifiers);
    QStringList allowedItemIdentifiers() const;
    QStringList defaultItemIdentifiers() const;
    QList<ZQToolbarItem *> items() const;

    /// Makes the item's widget anew, after `change` has changed what it shows.
    void replaceWidget(ZQToolbarItem *item, const std::function<void()> &change);

    /// The item alone, for show, without putting it in; the caller owns it. Null if it is unknown.
    ZQToolbarItem *makeItem(const QString &identifier, bool willBeInserted);

    /// Opens the palette as a sheet of the window; it closes itself. Does nothing when it is open
    /// or customisation is not allowed.
    void runCustomizationPalette();

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void placeItem(ZQToolbarItem *item, QAction *before);
    void restoreConfiguration();
    void saveConfiguration();
    QString defaultsKey() const;

    QString m_identifier;
    ToolbarDelegate *m_delegate = nullptr;
    ToolbarDisplayMode m_displayMode = ToolbarDisplayMode::IconAndLabel;
    bool m_toolbarVisible = true;
    bool m_allowsUserCustomization = false;
    bool m_autosavesConfiguration = false;
    bool m_isRestoring = false;
    QPointer<ToolbarCustomizationPalette> m_palette;
};

} // namespace zq
