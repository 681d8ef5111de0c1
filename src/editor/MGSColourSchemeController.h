#pragma once

#include "editor/MGSColourScheme.h"
#include "platform/ArrayController.h"
#include "platform/ObservableDictionary.h"

#include <QPointer>
#include <QWidget>

class MGSColourSchemeSaveController;
class QAbstractButton;
class QComboBox;

/// All colour schemes, sorted by name, of which the one that a preference pane's values match is
/// selected; a popup to choose another by, and a button to save or delete one. While the values
/// match no scheme they are in the list as one more, the custom scheme, which goes as soon as they
/// match another. Schemes come from the editor's resources, the program's, and the user's folder; a
/// file that is none is logged and left out.
///
/// The values are keyed by the properties of MGSColourScheme; a pane may lack some. Owned by its
/// pane; main thread.
class MGSColourSchemeController : public platform::ArrayController
{
    Q_OBJECT
    Q_PROPERTY(
        bool buttonSaveDeleteEnabled READ buttonSaveDeleteEnabled NOTIFY buttonSaveDeleteDidChange)
    Q_PROPERTY(
        QString buttonSaveDeleteTitle READ buttonSaveDeleteTitle NOTIFY buttonSaveDeleteDidChange)

public:
    using Scheme = std::shared_ptr<MGSColourScheme>;

    struct Places
    {
        QStringList bundles; ///< Folders with resources, the first first.
        QString applicationSupport;
        static Places standard();
    };

    /// Loads the schemes.
    explicit MGSColourSchemeController(QObject *parent = nullptr,
                                       Places places = Places::standard());
    ~MGSColourSchemeController() override;

    /// The values to match and to change, shared with the pane. Null: none, until they come.
    void setObjectController(const std::shared_ptr<platform::ObservableDictionary> &values);
    void setSchemeMenu(QComboBox *menu);                       ///< Borrowed; follows the list.
    void setSchemeSaveDeleteButton(QAbstractButton *button);   ///< Borrowed; as is
    void setParentView(QWidget *view) { m_parentView = view; } ///< the one that sheets belong to.

    QList<Scheme> colourSchemes() const;
    Scheme currentScheme() const { return m_currentScheme; } ///< Null without values.
    bool currentSchemeIsCustom() const
    {
        return m_currentScheme && m_currentScheme->sourceFile().isNull();
    }

    /// The first by name with the same values, the custom one aside; null: none.
    Scheme findMatchingSchemeForScheme(const MGSColourScheme &scheme) const;

    /// The scheme with what the pane has put into it.
    MGSColourScheme makeColourSchemeFromViewForScheme(MGSColourScheme scheme) const;

    bool buttonSaveDeleteEnabled() const;
    QString buttonSaveDeleteTitle() const;

    /// Asks for a name and saves the custom scheme, or asks and deletes one that the user saved.
    void addDeleteButtonAction();

    /// `CFBundleExecutable` below the user's application support; made if it is not there.
    QString applicationSupportDirectory() const;

Q_SIGNALS:
    void buttonSaveDeleteDidChange();

private:
    void loadColourSchemes();
    void addColourSchemesFromPath(const QString &path, bool bundleFlag, QList<Scheme> &schemes);
    void applyColourSchemeToView();
    void findAndSetCurrentScheme();
    void selectionDidChange();
    void showSchemes(QList<Scheme> schemes, const Scheme &selected);
    QList<Scheme> savedSchemes() const;
    QString usersFolder() const;
    void replaceSchemes(const QList<Scheme> &saved);
    void askForName(const MGSColourScheme &scheme); ///< To save it by.
    void saveScheme(MGSColourScheme scheme);
    void deleteScheme(const Scheme &scheme);
    void updateMenu();

    Places m_places;
    std::shared_ptr<platform::ObservableDictionary> m_values;
    QPointer<QComboBox> m_schemeMenu;
    QPointer<QWidget> m_parentView;
    Scheme m_currentScheme;
    bool m_ignoreObservations = false;
    std::unique_ptr<MGSColourSchemeSaveController> m_saveController;
};
