#pragma once

#include "kit/ui/SegmentedControl.h"
#include <QAbstractButton>
#include <QPointer>
#include <QWidgetAction>

namespace zq {
class Toolbar;
}

/// One item of a `zq::Toolbar`, which owns it. Its text is the label, its icon the image; action,
/// target and tag are those of kit/ui/TargetAction.h. An item shows as a tool button or as its
/// view.
class ZQToolbarItem : public QWidgetAction
{
    Q_OBJECT

public:
    explicit ZQToolbarItem(const QString &itemIdentifier, QObject *parent = nullptr);

    QString itemIdentifier() const { return m_itemIdentifier; }
    zq::Toolbar *toolbar() const; ///< The toolbar that it stands in; null outside of one.

    QString paletteLabel() const; ///< For the customisation palette; the label unless set.
    void setPaletteLabel(const QString &label) { m_paletteLabel = label; }

    QWidget *view() const;
    void setView(QWidget *view); ///< Takes ownership; null makes it a tool button.

    bool isBordered() const { return m_bordered; }
    void setBordered(bool bordered) { m_bordered = bordered; }

    /// The view if it is a button, else the first button in it, else null. `*target` gets the
    /// button's target; without one the toolbar's delegate if that answers to the button's action.
    QAbstractButton *getButtonAndTarget(QObject **target = nullptr) const;
    zq::SegmentedControl *getSegmentedControlAndTarget(QObject **target = nullptr) const;

    /// Sets it enabled: an item without a view as its target says (`bool
    /// validateToolbarItem(QObject *item)`, enabled without one), then any as the delegate's
    /// `validateZQToolbarItem` says.
    void validate();

    /// The item as a menu entry, owned by the item; triggers the item's button if it has one.
    QAction *menuFormRepresentation();

    /// Turns an item that holds a button into a bordered one: drops the view, takes target, action
    /// and image from the button. Nothing happens for a button without action or of these classes.
    void setToolbarBorderedExceptForButtonClasses(const QList<const QMetaObject *> &classes);

    /// Shows or hides the view and its label as the toolbar's display mode asks. By the toolbar.
    void setToolButtonStyle(Qt::ToolButtonStyle style);

private:
    void findTarget(const QObject *control, QObject **target) const;

    QString m_itemIdentifier;
    QString m_paletteLabel;
    QPointer<QWidget> m_view;
    QPointer<QWidget> m_caption;
    QPointer<QAction> m_menuForm;
    bool m_bordered = false;
};
