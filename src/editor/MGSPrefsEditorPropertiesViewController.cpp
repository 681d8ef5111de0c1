#include "editor/MGSPrefsEditorPropertiesViewController.h"

#include "editor/MGSFontWell.h"
#include "editor/MGSFragariaView.h"
#include "kit/ui/TintedIcon.h"
#include "platform/Bundle.h"
#include "ui_MGSPrefsEditorProperties.h"

namespace {

const QString gutterFontKey = QStringLiteral("gutterFont");

} // namespace

MGSPrefsEditorPropertiesViewController::MGSPrefsEditorPropertiesViewController(QWidget *parent)
    : MGSPrefsViewController(parent)
{
    QWidget panes;
    Ui::MGSPrefsEditorProperties ui;
    ui.setupUi(&panes);
    takePanes(panes, {});
}

QString MGSPrefsEditorPropertiesViewController::identifier() const
{
    return QStringLiteral("MGSPrefsEditorProperties");
}

QIcon MGSPrefsEditorPropertiesViewController::toolbarItemImage() const
{
    return zq::tintedIcon(QStringLiteral("PrefsEditor"));
}

QString MGSPrefsEditorPropertiesViewController::toolbarItemLabel() const
{
    return platform::localized("Editor");
}

QStringList MGSPrefsEditorPropertiesViewController::keysForPanelSubviews() const
{
    return {QStringLiteral("paneEditing"), QStringLiteral("paneGutter"),
            QStringLiteral("paneAutocomplete"), QStringLiteral("paneIndenting"),
            QStringLiteral("paneTextFont")};
}

QMap<QString, QSet<QString>>
MGSPrefsEditorPropertiesViewController::propertiesForPanelSubviews() const
{
    using View = MGSFragariaView;
    return {{QStringLiteral("paneEditing"), View::propertyGroupEditing()},
            {QStringLiteral("paneGutter"), View::propertyGroupGutter()},
            {QStringLiteral("paneAutocomplete"), View::propertyGroupAutocomplete()},
            {QStringLiteral("paneIndenting"), View::propertyGroupIndenting()},
            {QStringLiteral("paneTextFont"), View::propertyGroupTextFont() | QSet{gutterFontKey}}};
}

void MGSPrefsEditorPropertiesViewController::propertyWasChosen(const QString &, QWidget *control)
{
    if (const auto *well = qobject_cast<MGSFontWell *>(control))
        setEditorFont(well);
}

void MGSPrefsEditorPropertiesViewController::setEditorFont(const MGSFontWell *sender)
{
    objectController()->setValue(gutterFontKey, sender->chosenFont());
}
