#include "editor/MGSPrefsColourPropertiesViewController.h"

#include "editor/MGSColourSchemeController.h"
#include "editor/MGSFragariaView.h"
#include "kit/ui/TintedIcon.h"
#include "platform/Bundle.h"
#include "ui_MGSPrefsColourProperties.h"

MGSPrefsColourPropertiesViewController::MGSPrefsColourPropertiesViewController(QWidget *parent)
    : MGSPrefsViewController(parent), m_schemes(new MGSColourSchemeController(this))
{
    QWidget panes;
    Ui::MGSPrefsColourProperties ui;
    ui.setupUi(&panes);
    m_schemeMenu = ui.schemeMenu;
    m_schemes->setParentView(this);
    m_schemes->setSchemeMenu(ui.schemeMenu);
    m_schemes->setSchemeSaveDeleteButton(ui.schemeSaveDeleteButton);
    takePanes(panes, platform::localized("Until you choose colors, they follow light and dark."));
}

QString MGSPrefsColourPropertiesViewController::identifier() const
{
    return QStringLiteral("MGSPrefsColourProperties");
}

QIcon MGSPrefsColourPropertiesViewController::toolbarItemImage() const
{
    return zq::tintedIcon(QStringLiteral("PrefsColors"));
}

QString MGSPrefsColourPropertiesViewController::toolbarItemLabel() const
{
    return platform::localized("Colors");
}

QStringList MGSPrefsColourPropertiesViewController::keysForPanelSubviews() const
{
    return {QStringLiteral("paneScheme"), QStringLiteral("paneEditorColours"),
            QStringLiteral("paneSyntaxColours"), QStringLiteral("paneOtherSettings")};
}

QMap<QString, QSet<QString>>
MGSPrefsColourPropertiesViewController::propertiesForPanelSubviews() const
{
    using View = MGSFragariaView;
    return {{QStringLiteral("paneScheme"), View::propertyGroupTheme()},
            {QStringLiteral("paneEditorColours"), View::propertyGroupEditorColours()},
            {QStringLiteral("paneSyntaxColours"), View::propertyGroupSyntaxHighlighting()},
            {QStringLiteral("paneOtherSettings"), View::propertyGroupColouringExtraOptions()}};
}

void MGSPrefsColourPropertiesViewController::propertyWasChosen(const QString &key, QWidget *)
{
    const QSet<QString> theme = MGSFragariaView::propertyGroupTheme();
    if (!theme.contains(key))
        return;
    for (const QString &property : theme)
        objectController()->setValue(property, objectController()->value(property));
}

void MGSPrefsColourPropertiesViewController::managedPropertiesDidChange()
{
    m_schemes->setObjectController(objectController());
    m_schemeMenu->setEnabled(areAllColourPropertiesAvailable());
}
