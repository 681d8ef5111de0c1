#pragma once

#include "editor/MGSPrefsViewController.h"

class MGSFontWell;

/// The page "Editor": editing, gutter, completion, indenting and the font.
class MGSPrefsEditorPropertiesViewController : public MGSPrefsViewController
{
    Q_OBJECT

public:
    explicit MGSPrefsEditorPropertiesViewController(QWidget *parent = nullptr);

    QString identifier() const override;
    QIcon toolbarItemImage() const override;
    QString toolbarItemLabel() const override;

    void setEditorFont(const MGSFontWell *sender); ///< The gutter gets the sender's font, too.

protected:
    QStringList keysForPanelSubviews() const override;
    QMap<QString, QSet<QString>> propertiesForPanelSubviews() const override;
    void propertyWasChosen(const QString &key, QWidget *control) override;
};
