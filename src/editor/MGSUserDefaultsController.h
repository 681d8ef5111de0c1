#pragma once

#include "editor/MGSUserDefaultsControllerProtocol.h"

#include <QVariantMap>

class MGSPreferencesProxyDictionary;
template <class Object>
class MGSGroups;

/// Lets the editor views of a group share settings: every view that is added is bound to `values`
/// for the managed properties, so a change in one place reaches all. The group "Global" is the one
/// that all share: the views of another group are bound to it too, for what it manages. A property
/// is managed globally or by other groups, never both; a view is added to one controller at most.
///
/// Each property has a default value, at first that of the editor's catalogue, until one is set;
/// a persistent controller keeps what is set in the user defaults (MGSUserDefaults).
///
/// One object for each group, for the life of the process; views are borrowed, and forgotten when
/// they go. Any thread may look a controller up; all else is on the main thread.
class MGSUserDefaultsController : public MGSUserDefaultsControllerProtocol
{
    Q_OBJECT

public:
    /// A null name means "Global".
    static MGSUserDefaultsController *sharedControllerForGroupID(const QString &groupID);
    static MGSUserDefaultsController *sharedController(); ///< The group "Global".
    ~MGSUserDefaultsController() override;

    QString groupID() const override { return m_groupID; }
    bool isGlobal() const;

    /// For the global one also the views of all other groups.
    QSet<MGSFragariaView *> managedInstances() const override;

    /// Throws the exception MGSUserDefaultsControllerClash for a view that another controller has,
    /// and changes nothing then. A view takes the values of the managed properties at once.
    void addFragariaToManagedSet(MGSFragariaView *fragaria);

    /// The view keeps the values that it has. One that was not added is logged.
    void removeFragariaFromManagedSet(MGSFragariaView *fragaria);

    QSet<QString> managedProperties() const override { return m_managedProperties; }

    /// What a group claims, the global controller loses. The global one may not claim what a group
    /// manages: the exception MGSUserDefaultsControllerPropertyClash, and nothing is changed.
    void setManagedProperties(const QSet<QString> &properties);

    std::shared_ptr<platform::ObservableDictionary> values() const override;
    bool isSet(const QString &property) const override;

    QVariantMap defaultValues() const;
    void setDefaultValues(const QVariantMap &values); ///< Colours and fonts archived or not.

    bool isPersistent() const { return m_isPersistent; }

    /// On: what is set is stored, what else is stored is set, and so is what anyone stores later.
    void setPersistent(bool persistent);

private:
    static MGSGroups<MGSUserDefaultsController> &groups();
    explicit MGSUserDefaultsController(const QString &groupID);
    void replaceManagedProperties(const QSet<QString> &properties);
    void registerBindings(const QSet<QString> &properties);
    void registerBindings(const QSet<QString> &properties, MGSFragariaView *forFragaria);
    void unregisterBindings(const QSet<QString> &properties);
    void unregisterBindings(const QSet<QString> &properties, MGSFragariaView *forFragaria);

    const QString m_groupID;
    QSet<MGSFragariaView *> m_fragarias;
    QSet<QString> m_managedProperties;
    const std::shared_ptr<MGSPreferencesProxyDictionary> m_values;
    bool m_isPersistent = false;
};
