#include "editor/MGSColourSchemeController.h"

#include "editor/MGSColourScheme.h"
#include "editor/MGSColourSchemeSaveController.h"
#include "kit/ui/ZQRunAlertPanel.h"
#include "platform/Assert.h"
#include "platform/Bundle.h"
#include "platform/Log.h"

#include <QAbstractButton>
#include <QCollator>
#include <QComboBox>
#include <QDir>
#include <QScopedValueRollback>
#include <QStandardPaths>

using platform::localized;

namespace {

const QString KMGSColourSchemesFolder = QStringLiteral("Colour Schemes");
const QString KMGSColourSchemeExt = QStringLiteral("plist");

constexpr qsizetype longestTitle = 60; // characters

using Scheme = MGSColourSchemeController::Scheme;

/// A name for the menu: in one line, and never empty.
QString titleOf(const MGSColourScheme &scheme)
{
    const QString name = scheme.displayName().simplified();
    const QString title = name.isEmpty() ? QFileInfo(scheme.sourceFile()).fileName() : name;
    return title.size() > longestTitle ? title.left(longestTitle - 1) + u'…' : title;
}

} // namespace

MGSColourSchemeController::Places MGSColourSchemeController::Places::standard()
{
    const QString main = QStringLiteral(":/layoutsmith");
    return {{main + QStringLiteral("/ZQFragariaResources.bundle"), main},
            QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u'/' +
                platform::Bundle::mainBundle()
                    .infoDictionary()
                    .value(QStringLiteral("CFBundleExecutable"))
                    .toString()};
}

MGSColourSchemeController::MGSColourSchemeController(QObject *parent, Places places)
    : m_places(std::move(places)),
      m_saveController(std::make_unique<MGSColourSchemeSaveController>())
{
    setParent(parent);
    m_places.applicationSupport = QDir::cleanPath(m_places.applicationSupport);
    loadColourSchemes();
    connect(this, &ArrayController::selectionIndexesDidChange, this,
            &MGSColourSchemeController::selectionDidChange);
}

MGSColourSchemeController::~MGSColourSchemeController() = default;

void MGSColourSchemeController::setObjectController(
    const std::shared_ptr<platform::ObservableDictionary> &values)
{
    if (m_values)
        m_values->disconnect(this);
    m_values = values;
    if (!values)
        return replaceSchemes(savedSchemes());
    connect(values.get(), &platform::ObservableDictionary::valueChanged, this,
            [this](const QString &property) {
                if (!m_ignoreObservations &&
                    MGSColourScheme::propertiesOfScheme().contains(property))
                    findAndSetCurrentScheme();
            });
    findAndSetCurrentScheme();
}

void MGSColourSchemeController::setSchemeMenu(QComboBox *menu)
{
    m_schemeMenu = menu;
    connect(menu, &QComboBox::activated, this,
            [this](int index) { setSelectionIndexes({qsizetype(index)}); });
    connect(this, &ArrayController::arrangedObjectsDidChange, menu, [this] { updateMenu(); });
    connect(this, &ArrayController::selectionIndexesDidChange, menu, [this] { updateMenu(); });
    updateMenu();
}

void MGSColourSchemeController::updateMenu()
{
    m_schemeMenu->clear();
    for (const Scheme &scheme : colourSchemes())
        m_schemeMenu->addItem(titleOf(*scheme));
    m_schemeMenu->setCurrentIndex(int(selectionIndexes().value(0, -1)));
}

void MGSColourSchemeController::setSchemeSaveDeleteButton(QAbstractButton *button)
{
    const auto update = [this, button] {
        button->setText(buttonSaveDeleteTitle());
        button->setEnabled(buttonSaveDeleteEnabled());
    };
    connect(button, &QAbstractButton::clicked, this,
            &MGSColourSchemeController::addDeleteButtonAction);
    connect(this, &MGSColourSchemeController::buttonSaveDeleteDidChange, button, update);
    update();
}

QString MGSColourSchemeController::applicationSupportDirectory() const
{
    QDir().mkpath(m_places.applicationSupport);
    return m_places.applicationSupport;
}

QString MGSColourSchemeController::usersFolder() const
{
    return applicationSupportDirectory() + u'/' + KMGSColourSchemesFolder;
}

void MGSColourSchemeController::loadColourSchemes()
{
    QList<Scheme> schemes;
    for (const QString &bundle : std::as_const(m_places.bundles))
        addColourSchemesFromPath(bundle + u'/' + KMGSColourSchemesFolder, true, schemes);
    addColourSchemesFromPath(usersFolder(), false, schemes);
    showSchemes(schemes, nullptr);
}

void MGSColourSchemeController::addColourSchemesFromPath(const QString &path, bool bundleFlag,
                                                         QList<Scheme> &schemes)
{
    const QDir folder(path, QStringLiteral("*.") + KMGSColourSchemeExt, QDir::Name,
                      QDir::Files | QDir::Hidden);
    for (const QString &name : folder.entryList()) {
        try {
            auto scheme = std::make_shared<MGSColourScheme>(
                MGSColourScheme::schemeWithFile(path + u'/' + name));
            scheme->setLoadedFromBundle(bundleFlag);
            schemes << scheme;
        } catch (const platform::AssertionFailure &failure) {
            platform::log("a colour scheme is left out: %@", failure.text());
        }
    }
}

QList<Scheme> MGSColourSchemeController::colourSchemes() const
{
    QList<Scheme> schemes;
    for (const QVariant &object : arrangedObjects())
        schemes << object.value<Scheme>();
    return schemes;
}

QList<Scheme> MGSColourSchemeController::savedSchemes() const
{
    QList<Scheme> schemes = colourSchemes();
    if (currentSchemeIsCustom())
        schemes.removeOne(m_currentScheme);
    return schemes;
}

// What the pane has was there before the list, and stays as it is.
void MGSColourSchemeController::showSchemes(QList<Scheme> schemes, const Scheme &selected)
{
    const QScopedValueRollback ignoring(m_ignoreObservations, true);
    QCollator byName;
    byName.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::stable_sort(schemes, byName, &MGSColourScheme::displayName);
    QVariantList content;
    for (const Scheme &scheme : std::as_const(schemes))
        content << QVariant::fromValue(scheme);
    if (content != arrangedObjects())
        setContent(content);
    setSelectedObjects(selected ? QVariantList{QVariant::fromValue(selected)} : QVariantList());
}

Scheme MGSColourSchemeController::findMatchingSchemeForScheme(const MGSColourScheme &scheme) const
{
    const QList<Scheme> schemes = savedSchemes();
    const auto match = std::ranges::find_if(
        schemes, [&scheme](const Scheme &each) { return each->isEqualToScheme(scheme); });
    return match == schemes.end() ? nullptr : *match;
}

MGSColourScheme
MGSColourSchemeController::makeColourSchemeFromViewForScheme(MGSColourScheme scheme) const
{
    for (const QString &property : MGSColourScheme::propertiesOfScheme()) {
        if (m_values->contains(property))
            scheme.setValue(property, m_values->value(property));
    }
    return scheme;
}

void MGSColourSchemeController::applyColourSchemeToView()
{
    const QScopedValueRollback ignoring(m_ignoreObservations, true);
    for (const QString &property : MGSColourScheme::propertiesOfScheme()) {
        if (m_values->contains(property))
            m_values->setValue(property, m_currentScheme->value(property));
    }
}

void MGSColourSchemeController::findAndSetCurrentScheme()
{
    if (!m_values) {
        Q_EMIT buttonSaveDeleteDidChange();
        return;
    }
    const MGSColourScheme seen = makeColourSchemeFromViewForScheme({});
    QList<Scheme> schemes = savedSchemes();
    if (const Scheme match = findMatchingSchemeForScheme(seen)) {
        m_currentScheme = match;
    } else if (currentSchemeIsCustom()) {
        *m_currentScheme = makeColourSchemeFromViewForScheme(*m_currentScheme);
        return;
    } else {
        m_currentScheme = std::make_shared<MGSColourScheme>(seen);
        schemes << m_currentScheme;
    }
    showSchemes(schemes, m_currentScheme);
    Q_EMIT buttonSaveDeleteDidChange();
}

void MGSColourSchemeController::selectionDidChange()
{
    const QVariantList selected = selectedObjects();
    if (m_ignoreObservations || !m_values || selected.isEmpty())
        return;
    const QList<Scheme> saved = savedSchemes();
    const auto chosen = selected.first().value<Scheme>();
    if (chosen == m_currentScheme)
        return;
    m_currentScheme = chosen;
    showSchemes(saved, chosen);
    applyColourSchemeToView();
    Q_EMIT buttonSaveDeleteDidChange();
}

bool MGSColourSchemeController::buttonSaveDeleteEnabled() const
{
    return currentSchemeIsCustom() || (m_currentScheme && !m_currentScheme->isLoadedFromBundle());
}

QString MGSColourSchemeController::buttonSaveDeleteTitle() const
{
    return currentSchemeIsCustom() || (m_currentScheme && m_currentScheme->isLoadedFromBundle())
               ? localized("Save Scheme…")
               : localized("Delete Scheme…");
}

// What is asked about is saved or deleted, whatever the values are when the answer comes.
void MGSColourSchemeController::addDeleteButtonAction()
{
    const Scheme scheme = m_currentScheme;
    if (currentSchemeIsCustom()) {
        m_saveController->setSchemeName(localized("New Scheme"));
        askForName(*scheme);
    } else if (scheme && !scheme->isLoadedFromBundle()) {
        m_saveController->showDeleteConfirmation(m_parentView, [this, scheme](bool confirmed) {
            if (confirmed)
                deleteScheme(scheme);
        });
    }
}

void MGSColourSchemeController::askForName(const MGSColourScheme &scheme)
{
    m_saveController->showSchemeNameGetter(m_parentView, [this, scheme](bool confirmed) {
        if (confirmed)
            saveScheme(scheme);
    });
}

// A scheme of the user's that is in the file already gives way only if the user says so.
void MGSColourSchemeController::saveScheme(MGSColourScheme scheme)
{
    const QString path =
        usersFolder() + u'/' + m_saveController->fileName() + u'.' + KMGSColourSchemeExt;
    if (QFile::exists(path) &&
        ZQRunAlertPanel(localized("Replace the scheme?"),
                        localized("There is already a scheme in the file \"%@\"."),
                        localized("Replace"), localized("Cancel"), {},
                        QFileInfo(path).fileName()) != ZQAlertFirstButtonReturn)
        return askForName(scheme);
    scheme.setDisplayName(m_saveController->schemeName());
    platform::Error error;
    QDir().mkpath(usersFolder());
    if (!scheme.propertiesSaveToFile(path, &error)) {
        ZQRunAlertPanel3(localized("The scheme was not saved."), error.description,
                         localized("OK"));
        return;
    }
    scheme.setSourceFile(path);
    QList<Scheme> schemes = savedSchemes();
    erase_if(schemes, [&path](const Scheme &each) { return each->sourceFile() == path; });
    replaceSchemes(schemes << std::make_shared<MGSColourScheme>(scheme));
    if (m_schemeMenu)
        m_schemeMenu->setFocus(); // the button would delete it with the next key
}

// The values stay; without a scheme of their own they are a custom one.
void MGSColourSchemeController::deleteScheme(const Scheme &scheme)
{
    QFile file(scheme->sourceFile());
    if (!file.remove())
        platform::log("%@", file.errorString());
    QList<Scheme> schemes = savedSchemes();
    schemes.removeOne(scheme);
    replaceSchemes(schemes);
}

void MGSColourSchemeController::replaceSchemes(const QList<Scheme> &saved)
{
    m_currentScheme = nullptr;
    showSchemes(saved, nullptr);
    findAndSetCurrentScheme();
}
