#include "kit/ui/Toolbar.h"

#include "kit/ui/TintedIcon.h"
#include "kit/ui/ToolbarCustomizationPalette.h"
#include "platform/Bundle.h"
#include "platform/UserDefaults.h"

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScopedValueRollback>

namespace zq {

using platform::localizable;

namespace {

struct DisplayModeEntry
{
    ToolbarDisplayMode mode;
    Qt::ToolButtonStyle style;
    const char *title;
};

constexpr DisplayModeEntry displayModes[] = {
    {ToolbarDisplayMode::IconAndLabel, Qt::ToolButtonTextUnderIcon, localizable("Icon and Text")},
    {ToolbarDisplayMode::IconOnly, Qt::ToolButtonIconOnly, localizable("Icon Only")},
    {ToolbarDisplayMode::LabelOnly, Qt::ToolButtonTextOnly, localizable("Text Only")},
};

struct SpaceEntry
{
    const QString &identifier;
    const char *label;
    const char *image;
    QSizePolicy::Policy policy;
};

const SpaceEntry spaces[] = {
    {ToolbarSpaceItemIdentifier, localizable("Space"), "Space", QSizePolicy::Fixed},
    {ToolbarFlexibleSpaceItemIdentifier, localizable("Flexible Space"), "FlexibleSpace",
     QSizePolicy::Expanding},
};

constexpr int spaceWidth = 24;

const SpaceEntry *space(const QString &identifier)
{
    for (const SpaceEntry &each : spaces)
        if (each.identifier == identifier)
            return &each;
    return nullptr;
}

ZQToolbarItem *makeSpace(const SpaceEntry &entry)
{
    auto *item = new ZQToolbarItem(entry.identifier);
    item->setPaletteLabel(platform::localized(entry.label));
    item->setIcon(tintedIcon(QString::fromLatin1(entry.image)));
    auto *view = new QWidget;
    view->setMinimumWidth(spaceWidth);
    view->setSizePolicy(entry.policy, QSizePolicy::Preferred);
    item->setView(view);
    item->defaultWidget()->setSizePolicy(entry.policy, QSizePolicy::Preferred);
    return item;
}

} // namespace

Toolbar::Toolbar(const QString &identifier, QWidget *parent)
    : QToolBar(parent), m_identifier(identifier)
{
    setObjectName(identifier);
    setWindowTitle(platform::localized("Toolbar"));
    setMovable(false);
    setFloatable(false);
    setIconSize(QSize(24, 24));
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    connect(toggleViewAction(), &QAction::triggered, this, &Toolbar::setToolbarVisible);
}

QList<ToolbarDisplayModeChoice> Toolbar::displayModeChoices()
{
    QList<ToolbarDisplayModeChoice> result;
    for (const DisplayModeEntry &each : displayModes)
        result << ToolbarDisplayModeChoice{each.mode, platform::localized(each.title)};
    return result;
}

void Toolbar::setDelegate(ToolbarDelegate *delegate)
{
    m_delegate = delegate;
    if (delegate)
        restoreConfiguration();
}

void Toolbar::setDisplayMode(ToolbarDisplayMode mode)
{
    m_displayMode = mode;
    for (const DisplayModeEntry &each : displayModes)
        if (each.mode == mode)
            setToolButtonStyle(each.style);
    for (ZQToolbarItem *item : items())
        item->setToolButtonStyle(toolButtonStyle());
    saveConfiguration();
}

void Toolbar::setToolbarVisible(bool visible)
{
    m_toolbarVisible = visible;
    setVisible(visible);
    saveConfiguration();
}

QList<ZQToolbarItem *> Toolbar::items() const
{
    QList<ZQToolbarItem *> result;
    for (QAction *action : actions())
        if (auto *item = qobject_cast<ZQToolbarItem *>(action))
            result << item;
    return result;
}

QStringList Toolbar::itemIdentifiers() const
{
    QStringList result;
    for (const ZQToolbarItem *item : items())
        result << item->itemIdentifier();
    return result;
}

QStringList Toolbar::allowedItemIdentifiers() const
{
    return m_delegate ? m_delegate->toolbarAllowedItemIdentifiers(const_cast<Toolbar *>(this))
                      : QStringList();
}

QStringList Toolbar::defaultItemIdentifiers() const
{
    return m_delegate ? m_delegate->toolbarDefaultItemIdentifiers(const_cast<Toolbar *>(this))
                      : QStringList();
}

void Toolbar::setItemIdentifiers(const QStringList &identifiers)
{
    const QStringList allowed = allowedItemIdentifiers() + defaultItemIdentifiers();
    QMultiHash<QString, ZQToolbarItem *> former;
    for (ZQToolbarItem *item : items()) {
        removeAction(item);
        former.insert(item->itemIdentifier(), item);
    }
    QSet<QString> placed;
    for (const QString &identifier : identifiers) {
        if (!allowed.contains(identifier) || (!space(identifier) && placed.contains(identifier)))
            continue;
        ZQToolbarItem *item = former.take(identifier);
        if (!item)
            item = makeItem(identifier, true);
        if (!item)
            continue;
        placed.insert(identifier);
        placeItem(item, nullptr);
    }
    for (ZQToolbarItem *item : std::as_const(former)) {
        item->setParent(nullptr);
        item->deleteLater();
    }
    saveConfiguration();
}

ZQToolbarItem *Toolbar::makeItem(const QString &identifier, bool willBeInserted)
{
    if (const SpaceEntry *entry = space(identifier))
        return makeSpace(*entry);
    return m_delegate ? m_delegate->toolbarItemForItemIdentifier(this, identifier, willBeInserted)
                      : nullptr;
}

void Toolbar::placeItem(ZQToolbarItem *item, QAction *before)
{
    item->setParent(this);
    insertAction(before, item);
    item->setToolButtonStyle(toolButtonStyle());
    if (QWidget *widget = item->view() ? nullptr : widgetForAction(item))
        widget->setFocusPolicy(Qt::TabFocus);
    item->validate();
}

void Toolbar::replaceWidget(ZQToolbarItem *item, const std::function<void()> &change)
{
    const qsizetype index = actions().indexOf(item);
    if (index < 0)
        return change();
    removeAction(item);
    change();
    placeItem(item, actions().value(index));
}

void Toolbar::restoreConfiguration()
{
    const QVariantMap stored =
        m_autosavesConfiguration
            ? platform::UserDefaults::standardUserDefaults().dictionary(defaultsKey())
            : QVariantMap();
    const QScopedValueRollback quiet(m_isRestoring, true);
    const int mode = stored.value(QStringLiteral("displayMode"), int(m_displayMode)).toInt();
    for (const DisplayModeEntry &each : displayModes)
        if (int(each.mode) == mode)
            setDisplayMode(each.mode);
    const QVariant items = stored.value(QStringLiteral("items"));
    setItemIdentifiers(items.isValid() ? items.toStringList() : defaultItemIdentifiers());
    setToolbarVisible(stored.value(QStringLiteral("visible"), m_toolbarVisible).toBool());
}

QString Toolbar::defaultsKey() const
{
    return QStringLiteral("Toolbar Configuration ") + m_identifier;
}

void Toolbar::saveConfiguration()
{
    if (!m_delegate || m_isRestoring || !m_autosavesConfiguration)
        return;
    QVariantList stored;
    for (const QString &identifier : itemIdentifiers())
        stored << identifier;
    platform::UserDefaults::standardUserDefaults().setObject(
        defaultsKey(), QVariantMap{{QStringLiteral("items"), stored},
                                   {QStringLiteral("displayMode"), int(m_displayMode)},
                                   {QStringLiteral("visible"), m_toolbarVisible}});
}

void Toolbar::runCustomizationPalette()
{
    if (!m_allowsUserCustomization || !m_delegate || m_palette)
        return;
    setToolbarVisible(true);
    m_palette = new ToolbarCustomizationPalette(this);
    m_palette->setAttribute(Qt::WA_DeleteOnClose);
    m_palette->open();
}

void Toolbar::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu(this);
    auto *modes = new QActionGroup(&menu);
    for (const auto &choice : displayModeChoices()) {
        QAction *action =
            menu.addAction(choice.title, this, [this, choice] { setDisplayMode(choice.mode); });
        action->setCheckable(true);
        action->setChecked(choice.mode == m_displayMode);
        modes->addAction(action);
    }
    menu.addSeparator();
    menu.addAction(platform::localized("Hide Toolbar"), this, [this] { setToolbarVisible(false); });
    if (m_allowsUserCustomization)
        menu.addAction(platform::localized("Customize Toolbar…"), this,
                       &Toolbar::runCustomizationPalette);
    menu.exec(event->globalPos());
}

} // namespace zq
