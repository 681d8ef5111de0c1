#pragma once

#include "editor/MGSPrefsViewController.h"

class MGSColourSchemeController;
class QComboBox;

/// The page "Colors": the colour scheme, the colours of the editor and of what it colours. Colours
/// go together: with the first one that is chosen, all of them are kept as they are, whatever the
/// default values become.
class MGSPrefsColourPropertiesViewController : public MGSPrefsViewController
{
    Q_OBJECT

public:
    explicit MGSPrefsColourPropertiesViewController(QWidget *parent = nullptr);

    QString identifier() const override;
    QIcon toolbarItemImage() const override;
    QString toolbarItemLabel() const override;

protected:
    QStringList keysForPanelSubviews() const override;
    QMap<QString, QSet<QString>> propertiesForPanelSubviews() const override;
    void propertyWasChosen(const QString &key, QWidget *control) override;
    void managedPropertiesDidChange() override;

private:
    MGSColourSchemeController *const m_schemes;
    QComboBox *m_schemeMenu;
};
