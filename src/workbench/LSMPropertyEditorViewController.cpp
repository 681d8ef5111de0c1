#include "workbench/LSMPropertyEditorViewController.h"

#include "kit/ui/ColorPanel.h"
#include "kit/ui/Popover.h"
#include "kit/ui/TargetAction.h"
#include "kit/ui/TintedIcon.h"
#include "library/LSMDesignKeys.h"
#include "platform/Bundle.h"
#include "platform/NotificationCenter.h"
#include "ui_LSMPropertyEditorViewController.h"
#include "workbench/LSMNotifications.h"
#include "workbench/LSMPropertyCellDelegate.h"
#include "workbench/LSMPropertyListChange.h"
#include "workbench/LSMPropertyTransformers.h"
#include "workbench/LSMValuesViewController.h"

#include <algorithm>
#include <QActionGroup>
#include <QColorDialog>
#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTimer>

using namespace LSMDesignKeys;
using platform::localized;

namespace {

constexpr int typeWidth = 130; // pixels
constexpr int typePopupTag = 55;

bool isList(const QVariant &value)
{
    return !value.isValid() || value.typeId() == QMetaType::QVariantList;
}

bool isEditable(const LSMDesignTemplate *design, const QVariant &list)
{
    return design && design->isCustomDesignTemplate() && isList(list);
}

} // namespace

LSMPropertyEditorViewController::LSMPropertyEditorViewController(QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::LSMPropertyEditorViewController>())
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
    setFocusProxy(m_ui->propertiesTable);
    configureTable();
    m_ui->addPropertyButton->setIcon(zq::tintedIcon(QStringLiteral("Add")));
    m_ui->removePropertyButton->setIcon(zq::tintedIcon(QStringLiteral("Remove")));
    connect(m_ui->addPropertyButton, &QToolButton::clicked, this,
            &LSMPropertyEditorViewController::addProperty);
    connect(m_ui->removePropertyButton, &QToolButton::clicked, this,
            &LSMPropertyEditorViewController::removeProperty);
    KVOController(this)->observe(&m_propertiesArrayController, QStringLiteral("content"),
                                 FBKVOInitial, [this](auto...) { startObservingKeypaths(); });
    setDesignTemplate(nullptr);
}

LSMPropertyEditorViewController::~LSMPropertyEditorViewController() = default;

void LSMPropertyEditorViewController::configureTable()
{
    LSMPropertyTable *table = m_ui->propertiesTable;
    auto *delegate = new LSMPropertyCellDelegate(table);
    table->setItemDelegate(delegate);
    table->setModel(&m_model);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->horizontalHeader()->setSectionResizeMode(LSMPropertyTableModel::TypeColumn,
                                                    QHeaderView::Fixed);
    table->setColumnWidth(LSMPropertyTableModel::TypeColumn, typeWidth);
    table->setUndoStack(&m_undoStack);
    connect(delegate, &QAbstractItemDelegate::closeEditor, this,
            &LSMPropertyEditorViewController::endUndoStep);
    connect(table, &LSMPropertyTable::cellWasActivated, this,
            &LSMPropertyEditorViewController::activateCell);
    connect(table, &LSMPropertyTable::removalWasAskedFor, this,
            &LSMPropertyEditorViewController::removeProperty);
    connect(table, &LSMPropertyTable::rowsWereDropped, this,
            &LSMPropertyEditorViewController::acceptDrop);
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_isTakingSelection)
            m_propertiesArrayController.setSelectionIndexes(m_ui->propertiesTable->selectedRows());
        updateEnabling();
    });
    for (const auto change : {&platform::ArrayController::arrangedObjectsDidChange,
                              &platform::ArrayController::selectionIndexesDidChange})
        connect(&m_propertiesArrayController, change, this,
                &LSMPropertyEditorViewController::takeSelection);
}

void LSMPropertyEditorViewController::setDesignTemplate(LSMDesignTemplate *design)
{
    const QVariant list = design ? design->templateDictionary()->value(properties) : QVariant();
    const bool isSame = design == m_design && list.typeId() == m_list.typeId() && list == m_list;
    m_design = design;
    if (!isSame) {
        m_list = list;
        m_undoStack.clear();
        resetColorPanel();
        showList(isList(list) ? list.toList() : QVariantList());
    }
    updateEnabling();
}

void LSMPropertyEditorViewController::showList(const QVariantList &entries)
{
    QVariantList objects;
    for (const QVariant &entry : entries)
        objects.append(LSMPropertyTableModel::objectOf(entry));
    m_propertiesArrayController.setContent(objects);
}

void LSMPropertyEditorViewController::updateEnabling()
{
    const bool editable = isEditable(m_design, m_list);
    const bool hasSelection = m_ui->propertiesTable->selectionModel()->hasSelection();
    m_model.setEditable(editable);
    m_ui->addPropertyButton->setEnabled(editable);
    m_ui->removePropertyButton->setEnabled(editable && hasSelection);
    m_ui->propertiesTable->setPlaceholderText(
        !m_design         ? QString()
        : !isList(m_list) ? localized("What this design has in place of its properties is no "
                                      "list. It stays as it is.")
        : editable        ? localized("No properties yet. Add the texts, colours, switches and "
                                             "choices that Lotbook is to offer with this design.")
                          : localized("This design has no properties."));
}

QVariantList LSMPropertyEditorViewController::entries() const
{
    QVariantList entries;
    for (const QVariant &object : m_propertiesArrayController.arrangedObjects())
        entries.append(LSMPropertyTableModel::entryOf(object));
    return entries;
}

// Releasing the old controller ends all earlier observations.
void LSMPropertyEditorViewController::startObservingKeypaths()
{
    m_propertiesKVOController = FBKVOController::controllerWithObserver(this);
    for (const QVariant &object : m_propertiesArrayController.arrangedObjects())
        observe(LSMPropertyTableModel::recordIn(object));
}

void LSMPropertyEditorViewController::observe(const Record &record)
{
    m_propertiesKVOController->observe(record, propertyType, FBKVONew | FBKVOOld,
                                       [this, record](auto, auto, const QVariantMap &change) {
                                           typeChangedForSelectedProperty(record, change);
                                           recordDidChange(record);
                                       });
    m_propertiesKVOController->observe(record,
                                       {propertyName, propertyDefaultValue, propertyAllowedValues},
                                       0, [this, record](auto...) { recordDidChange(record); });
}

void LSMPropertyEditorViewController::recordDidChange(const Record &record)
{
    m_model.recordDidChange(record);
    markCurrentDesignTemplateDirty();
}

void LSMPropertyEditorViewController::typeChangedForSelectedProperty(const Record &record,
                                                                     const QVariantMap &change)
{
    record->setValue(propertyDefaultValue, LSMPropertyTableModel::firstValueOfType(
                                               change.value(NSKeyValueChangeNewKey).toString()));
}

void LSMPropertyEditorViewController::markCurrentDesignTemplateDirty()
{
    if (!m_design)
        return; // it has just gone, and what stood open closes after it
    const QVariant before = m_list;
    store(entries());
    if (before != m_list)
        m_undoStack.push(new LSMPropertyListChange(
            before, m_list, m_undoStep, [this](const QVariant &list) { restore(list); }));
    const QTableView *table = m_ui->propertiesTable;
    if (!table->indexWidget(table->currentIndex())) // what is typed at a stretch is one step
        QTimer::singleShot(0, this, &LSMPropertyEditorViewController::endUndoStep);
}

void LSMPropertyEditorViewController::store(const QVariant &list)
{
    m_list = list;
    if (list.isValid())
        m_design->templateDictionary()->setValue(properties, list);
    else
        m_design->templateDictionary()->removeValue(properties);
    platform::NotificationCenter::defaultCenter().post(LSMDesignPropertyDidChange, m_design);
}

void LSMPropertyEditorViewController::restore(const QVariant &list)
{
    const QVariantList before = m_list.toList();
    const QVariantList entries = list.toList();
    resetColorPanel(); // its record goes
    showList(entries);
    store(list);
    const auto [was, is] = std::ranges::mismatch(before, entries);
    if (is != entries.end())
        m_propertiesArrayController.setSelectionIndexes({is - entries.begin()});
}

void LSMPropertyEditorViewController::endUndoStep()
{
    ++m_undoStep;
}

void LSMPropertyEditorViewController::addProperty()
{
    const QVariant object = LSMPropertyTableModel::objectOf(
        QVariantMap{{propertyName, localized("New Design Property")},
                    {propertyType, stringProperty},
                    {propertyDefaultValue, localized("Default String")}});
    endUndoStep();
    m_propertiesArrayController.addObject(object);
    observe(LSMPropertyTableModel::recordIn(object));
    markCurrentDesignTemplateDirty();
    m_ui->propertiesTable->edit(m_ui->propertiesTable->currentIndex());
}

void LSMPropertyEditorViewController::removeProperty()
{
    const QVariantList removed = m_propertiesArrayController.selectedObjects();
    if (removed.isEmpty() || !isEditable(m_design, m_list))
        return;
    for (const QVariant &object : removed)
        m_propertiesKVOController->unobserve(LSMPropertyTableModel::recordIn(object).get());
    resetColorPanel();
    endUndoStep();
    m_propertiesArrayController.remove();
    markCurrentDesignTemplateDirty();
}

void LSMPropertyEditorViewController::acceptDrop(const QList<qsizetype> &indexes, qsizetype row)
{
    qsizetype target = row;
    for (const qsizetype index : indexes)
        target -= index <= target;
    endUndoStep();
    m_propertiesArrayController.moveObjects(indexes, target);
    markCurrentDesignTemplateDirty();
}

void LSMPropertyEditorViewController::takeSelection()
{
    const QList<qsizetype> &indexes = m_propertiesArrayController.selectionIndexes();
    LSMPropertyTable *table = m_ui->propertiesTable;
    if (indexes == table->selectedRows())
        return updateEnabling(); // a model that was reset tells of no selection
    const QScopedValueRollback taking(m_isTakingSelection, true);
    QItemSelection rows;
    for (const qsizetype row : indexes)
        rows.select(m_model.index(int(row), 0), m_model.index(int(row), 0));
    const QModelIndex first = m_model.index(indexes.isEmpty() ? -1 : int(indexes.constFirst()),
                                            qMax(0, table->currentIndex().column()));
    table->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    table->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect |
                                              QItemSelectionModel::Rows);
    table->scrollTo(first);
}

void LSMPropertyEditorViewController::activateCell(const QModelIndex &index)
{
    using Control = LSMPropertyTableModel::Control;
    if (!isEditable(m_design, m_list))
        return;
    switch (Control(index.data(LSMPropertyTableModel::ControlRole).toInt())) {
    case Control::Text:
        return m_ui->propertiesTable->edit(index);
    case Control::Popup:
        return showTypePopup(index);
    case Control::Well:
        return showColorPanel(index);
    case Control::Values:
        return showPropertyPopoverAction(index);
    case Control::CheckBox: // by the table itself
    case Control::None:
        return;
    }
}

void LSMPropertyEditorViewController::showTypePopup(const QModelIndex &index)
{
    auto *popup = new QMenu(m_ui->propertiesTable);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setObjectName(QStringLiteral("typePopup"));
    zq::setTag(popup, typePopupTag);
    const Record record = m_model.recordAt(index.row());
    auto *choice = new QActionGroup(popup);
    for (const QString &type : LSMPropertyTableModel::types()) {
        QAction *item = popup->addAction(LSMPropertyTableModel::titleOfType(type));
        item->setData(type);
        item->setActionGroup(choice);
        item->setCheckable(true);
        item->setChecked(record->value(propertyType) == type);
        if (item->isChecked())
            popup->setActiveAction(item);
    }
    connect(popup, &QMenu::triggered, this,
            [record](const QAction *item) { record->setValue(propertyType, item->data()); });
    const LSMPropertyTable *table = m_ui->propertiesTable;
    popup->popup(table->viewport()->mapToGlobal(table->visualRect(index).bottomLeft()));
}

void LSMPropertyEditorViewController::showColorPanel(const QModelIndex &index)
{
    resetColorPanel();
    const Record record = m_model.recordAt(index.row());
    const QColor color = m_model.data(index, LSMPropertyTableModel::ColorRole).value<QColor>();
    m_colorPanel =
        zq::newColorPanel(this, localized("Default Color"), color, [record](const QColor &chosen) {
            if (record->value(propertyType) == colorProperty)
                record->setValue(propertyDefaultValue,
                                 LSMPropertyToColorTransformer().reverseTransformedValue(chosen));
        });
    m_colorPanel->show();
    m_colorPanel->activateWindow(); // a double click ends in the main window
}

void LSMPropertyEditorViewController::resetColorPanel()
{
    delete m_colorPanel;
}

void LSMPropertyEditorViewController::showEvent(QShowEvent *event)
{
    resetColorPanel();
    QWidget::showEvent(event);
}

void LSMPropertyEditorViewController::hideEvent(QHideEvent *event)
{
    resetColorPanel();
    QWidget::hideEvent(event);
}

void LSMPropertyEditorViewController::showPropertyPopoverAction(const QModelIndex &index)
{
    const Record record = m_model.recordAt(index.row());
    const QVariant allowed = record->value(propertyAllowedValues);
    auto *values = new LSMValuesViewController(isList(allowed) ? allowed.toList() : QVariantList(),
                                               record->value(propertyDefaultValue));
    auto *popover = new zq::Popover(values);
    connect(popover, &zq::Popover::didClose, this,
            [this, record, values] { popoverDidClose(record, values); });
    popover->showRelativeTo(m_ui->propertiesTable->visualRect(index),
                            m_ui->propertiesTable->viewport());
}

// What is of a wrong type goes only when something takes its place.
void LSMPropertyEditorViewController::popoverDidClose(const Record &record,
                                                      LSMValuesViewController *values)
{
    if (!m_propertiesArrayController.arrangedObjects().contains(QVariant::fromValue(record)))
        return; // another list is shown by now
    const QVariantList allowed = values->allValues();
    const QVariant preset = values->defaultValue();
    const QVariant before = record->value(propertyDefaultValue);
    if (!allowed.isEmpty() || isList(record->value(propertyAllowedValues)))
        record->setValue(propertyAllowedValues, allowed.isEmpty() ? QVariant() : allowed);
    if (!preset.toString().isEmpty() || before.typeId() == QMetaType::QString)
        record->setValue(propertyDefaultValue, preset.toString().isEmpty() ? QVariant() : preset);
    markCurrentDesignTemplateDirty();
}
