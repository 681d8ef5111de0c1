#pragma once

#include "editor/MGSUserDefaultsControllerProtocol.h"

#include <QIcon>
#include <QMap>
#include <QMetaProperty>
#include <QPointer>
#include <QWidget>

class MGSManagedGlobalPropertiesProxy;
class MGSManagedPropertiesProxy;

namespace Ui {
class MGSPrefsCommonViews;
}

/// A page of preferences that shows and changes the values of a controller: panes one below the
/// other, and a button that restores the defaults. What the controller does not manage is disabled.
///
/// A subclass has the panes in a .ui file. A control there names its property of the editor view in
/// the dynamic property "settingsKey"; its own user property (checked, value, color ...) has the
/// value. The controller is borrowed; main thread.
class MGSPrefsViewController : public QWidget
{
    Q_OBJECT

public:
    ~MGSPrefsViewController() override;

    /// For toolbars and tabs that have the page.
    virtual QString identifier() const = 0;
    virtual QIcon toolbarItemImage() const = 0;
    virtual QString toolbarItemLabel() const = 0;

    MGSUserDefaultsControllerProtocol *userDefaultsController() const { return m_controller; }
    void setUserDefaultsController(MGSUserDefaultsControllerProtocol *controller);
    std::shared_ptr<platform::ObservableDictionary> objectController() const; ///< Its values.

    /// Whether what is managed globally is set in italics. Off at first.
    bool stylizeGlobalProperties() const { return m_stylizeGlobalProperties; }
    void setStylizeGlobalProperties(bool stylize);

    /// Whether a pane is left out when none of its properties is managed. Off at first.
    bool hidesUselessPanels() const { return m_hidesUselessPanels; }
    void setHidesUselessPanels(bool hides);

    QSet<QString> managedProperties() const;
    QSet<QString> managedGlobalProperties() const;
    bool areAllColourPropertiesAvailable() const; ///< Whether a colour scheme can be chosen.

    MGSManagedPropertiesProxy *managedPropertiesProxy() const;
    MGSManagedGlobalPropertiesProxy *managedGlobalPropertiesProxy() const;

protected:
    explicit MGSPrefsViewController(QWidget *parent);
    bool eventFilter(QObject *watched, QEvent *event) override;

    virtual QStringList keysForPanelSubviews() const = 0; ///< Names of the panes, top to bottom.
    virtual QMap<QString, QSet<QString>> propertiesForPanelSubviews() const = 0; ///< By pane.

    /// Takes the panes out of a widget that has them. Once, when a subclass is made. The hint says
    /// what holds as long as nothing shown here has been set.
    void takePanes(QWidget &from, const QString &hint);

    /// The user has just changed a control, and the controller has the value.
    virtual void propertyWasChosen(const QString &, QWidget *) {}
    virtual void managedPropertiesDidChange() {} ///< Or the controller did.

private Q_SLOTS:
    void controlDidChange();

private:
    struct Control
    {
        QWidget *widget;
        QString key;
        QString enabledBy; ///< The switch that it is of use with; empty: always.
        QMetaProperty value;
    };

    void bindControls();
    void showValue(const Control &control);
    void updateEnabled(const Control &control);
    void valueDidChange(const QString &key);
    void refresh();
    void updateRestoreButton();
    void showOrHideViews();
    void restoreDefaults();
    QStringList shownProperties() const;

    const std::unique_ptr<Ui::MGSPrefsCommonViews> m_ui;
    const std::unique_ptr<MGSManagedPropertiesProxy> m_managedProperties;
    const std::unique_ptr<MGSManagedGlobalPropertiesProxy> m_managedGlobalProperties;
    QPointer<MGSUserDefaultsControllerProtocol> m_controller;
    QString m_hint;
    QList<QWidget *> m_panes;
    QList<QWidget *> m_separators; // each above the pane of its index
    QList<Control> m_controls;
    bool m_stylizeGlobalProperties = false;
    bool m_hidesUselessPanels = false;
};
