#include "editor/MGSPrefsViewController.h"

#include "editor/MGSFragariaView.h"
#include "editor/MGSManagedGlobalPropertiesProxy.h"
#include "editor/MGSUserDefaultsController.h"
#include "kit/ui/ZQRunAlertPanel.h"
#include "platform/Bundle.h"
#include "ui_MGSPrefsCommonViews.h"

#include <QEvent>
#include <QScrollBar>
#include <QSignalBlocker>

using platform::localized;
using platform::ObservableDictionary;

MGSPrefsViewController::MGSPrefsViewController(QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::MGSPrefsCommonViews>()),
      m_managedProperties(std::make_unique<MGSManagedPropertiesProxy>(this)),
      m_managedGlobalProperties(std::make_unique<MGSManagedGlobalPropertiesProxy>(this))
{
    m_ui->setupUi(this);
    m_ui->panesScrollArea->viewport()->setAutoFillBackground(false);
    m_ui->panes->setAutoFillBackground(false);
    connect(m_ui->restoreButton, &QPushButton::clicked, this,
            &MGSPrefsViewController::restoreDefaults);
    connect(MGSUserDefaultsController::sharedController(),
            &MGSUserDefaultsController::managedPropertiesDidChange, this,
            &MGSPrefsViewController::refresh);
}

MGSPrefsViewController::~MGSPrefsViewController() = default;

void MGSPrefsViewController::setUserDefaultsController(
    MGSUserDefaultsControllerProtocol *controller)
{
    if (m_controller) {
        m_controller->disconnect(this);
        m_controller->values()->disconnect(this);
    }
    m_controller = controller;
    if (controller) {
        connect(controller, &MGSUserDefaultsControllerProtocol::managedPropertiesDidChange, this,
                &MGSPrefsViewController::refresh);
        connect(controller->values().get(), &ObservableDictionary::valueChanged, this,
                &MGSPrefsViewController::valueDidChange);
    }
    refresh();
}

std::shared_ptr<ObservableDictionary> MGSPrefsViewController::objectController() const
{
    return m_controller ? m_controller->values() : nullptr;
}

void MGSPrefsViewController::setStylizeGlobalProperties(bool stylize)
{
    m_stylizeGlobalProperties = stylize;
    refresh();
}

void MGSPrefsViewController::setHidesUselessPanels(bool hides)
{
    m_hidesUselessPanels = hides;
    refresh();
}

QSet<QString> MGSPrefsViewController::managedProperties() const
{
    return m_controller ? m_controller->managedProperties() : QSet<QString>();
}

QSet<QString> MGSPrefsViewController::managedGlobalProperties() const
{
    return MGSUserDefaultsController::sharedController()->managedProperties();
}

bool MGSPrefsViewController::areAllColourPropertiesAvailable() const
{
    return managedProperties().contains(MGSFragariaView::propertyGroupTheme());
}

MGSManagedPropertiesProxy *MGSPrefsViewController::managedPropertiesProxy() const
{
    return m_managedProperties.get();
}

MGSManagedGlobalPropertiesProxy *MGSPrefsViewController::managedGlobalPropertiesProxy() const
{
    return m_managedGlobalProperties.get();
}

void MGSPrefsViewController::takePanes(QWidget &from, const QString &hint)
{
    m_hint = hint;
    for (const QString &name : keysForPanelSubviews()) {
        auto *separator = new QFrame;
        separator->setFrameStyle(QFrame::HLine | QFrame::Plain);
        separator->setForegroundRole(QPalette::Mid);
        separator->setFixedHeight(1);
        m_separators << separator;
        m_panes << from.findChild<QWidget *>(name);
        m_ui->panesColumn->addWidget(separator);
        m_ui->panesColumn->addWidget(m_panes.last());
    }
    m_ui->panesColumn->addStretch();
    m_ui->panesScrollArea->setMinimumWidth(
        m_ui->panes->minimumSizeHint().width() +
        m_ui->panesScrollArea->verticalScrollBar()->sizeHint().width());
    bindControls();
    refresh();
}

void MGSPrefsViewController::bindControls()
{
    static const QMetaMethod changed =
        staticMetaObject.method(staticMetaObject.indexOfSlot("controlDidChange()"));
    for (QWidget *widget : m_ui->panes->findChildren<QWidget *>()) {
        const QString key = widget->property("settingsKey").toString();
        if (key.isEmpty())
            continue;
        const QMetaProperty value = widget->metaObject()->userProperty();
        connect(widget, value.notifySignal(), this, changed);
        m_controls << Control{widget, key, widget->property("enabledBy").toString(), value};
        widget->setFocusPolicy(Qt::StrongFocus); // not by the wheel, which is for the page
        widget->installEventFilter(this);
    }
}

bool MGSPrefsViewController::eventFilter(QObject *watched, QEvent *event)
{
    const auto *control = qobject_cast<QWidget *>(watched);
    if (event->type() != QEvent::Wheel || !control || control->hasFocus())
        return false;
    event->ignore();
    return true;
}

void MGSPrefsViewController::controlDidChange()
{
    for (const Control &control : std::as_const(m_controls)) {
        if (control.widget != sender() || !m_controller)
            continue;
        objectController()->setValue(control.key, control.value.read(control.widget));
        propertyWasChosen(control.key, control.widget);
    }
}

void MGSPrefsViewController::showValue(const Control &control)
{
    const QSignalBlocker itIsNoChoice(control.widget);
    control.value.write(control.widget, objectController()->value(control.key));
}

void MGSPrefsViewController::updateEnabled(const Control &control)
{
    const bool isOfUse = control.enabledBy.isEmpty() ||
                         (m_controller && objectController()->value(control.enabledBy).toBool());
    control.widget->setEnabled(isOfUse && m_managedProperties->value(control.key).toBool());
}

void MGSPrefsViewController::valueDidChange(const QString &key)
{
    for (const Control &control : std::as_const(m_controls)) {
        if (control.key == key)
            showValue(control);
        if (control.enabledBy == key)
            updateEnabled(control);
    }
    updateRestoreButton();
}

void MGSPrefsViewController::updateRestoreButton()
{
    const auto isSet = [this](const QString &property) {
        return m_controller->isSet(property);
    };
    const bool isAnySet = m_controller && std::ranges::any_of(shownProperties(), isSet);
    m_ui->restoreButton->setEnabled(isAnySet);
    m_ui->hintLabel->setText(isAnySet ? QString() : m_hint);
}

void MGSPrefsViewController::refresh()
{
    for (const Control &control : std::as_const(m_controls)) {
        updateEnabled(control);
        QFont font;
        font.setItalic(m_managedGlobalProperties->value(control.key).toBool());
        control.widget->setFont(font);
        if (m_controller)
            showValue(control);
    }
    updateRestoreButton();
    showOrHideViews();
    managedPropertiesDidChange();
}

void MGSPrefsViewController::showOrHideViews()
{
    const auto properties = propertiesForPanelSubviews();
    bool isFirst = true;
    for (qsizetype index = 0; index < m_panes.size(); ++index) {
        QWidget *pane = m_panes.at(index);
        const bool isOfUse = properties.value(pane->objectName()).intersects(managedProperties());
        const bool isShown = isOfUse || !m_hidesUselessPanels;
        pane->setVisible(isShown);
        m_separators.at(index)->setVisible(isShown && !isFirst);
        isFirst = isFirst && !isShown;
    }
}

QStringList MGSPrefsViewController::shownProperties() const
{
    QSet<QString> properties;
    for (const QSet<QString> &ofPane : propertiesForPanelSubviews())
        properties.unite(ofPane);
    return properties.intersect(managedProperties()).values();
}

void MGSPrefsViewController::restoreDefaults()
{
    const int answer = ZQRunAlertPanel(localized("Restore the defaults?"),
                                       localized("What you have set on this page will be lost."),
                                       localized("Restore"), localized("Cancel"));
    if (answer != ZQAlertFirstButtonReturn)
        return;
    for (const QString &property : shownProperties())
        objectController()->removeValue(property);
}
