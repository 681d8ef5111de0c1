#include "workbench/LSMValuesViewController.h"

#include "kit/ui/TintedIcon.h"
#include "platform/Bundle.h"
#include "ui_LSMValuesViewController.h"
#include "workbench/LSMPropertyCellDelegate.h"
#include "workbench/LSMPropertyListText.h"

#include <algorithm>
#include <QHeaderView>
#include <QShortcut>

using platform::localized;

LSMValuesViewController::LSMValuesViewController(const QVariantList &values,
                                                 const QVariant &defaultValue, QWidget *parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::LSMValuesViewController>())
{
    m_ui->setupUi(this);
    setFocusProxy(m_ui->valuesTable);
    m_values.setHorizontalHeaderLabels({localized("Value"), localized("Default")});
    for (const QVariant &value : values)
        addRow(value, value.typeId() == defaultValue.typeId() && value == defaultValue);
    m_ui->valuesTable->setModel(&m_values);
    m_ui->valuesTable->setItemDelegate(new LSMPropertyCellDelegate(this));
    m_ui->valuesTable->verticalHeader()->hide();
    m_ui->valuesTable->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_ui->valuesTable->horizontalHeader()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    m_ui->valuesTable->setCurrentIndex(m_values.index(0, NameColumn));
    m_ui->addButton->setIcon(zq::tintedIcon(QStringLiteral("Add")));
    m_ui->removeButton->setIcon(zq::tintedIcon(QStringLiteral("Remove")));
    const auto onKey = [this](int key, auto slot) {
        auto *shortcut = new QShortcut(key, m_ui->valuesTable);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, slot);
    };
    onKey(Qt::Key_Return, &LSMValuesViewController::editCurrentName);
    onKey(Qt::Key_Enter, &LSMValuesViewController::editCurrentName);
    onKey(Qt::Key_Delete, &LSMValuesViewController::removeValueAction);
    onKey(Qt::Key_Backspace, &LSMValuesViewController::removeValueAction);
    connect(m_ui->addButton, &QToolButton::clicked, this, &LSMValuesViewController::addValueAction);
    connect(m_ui->removeButton, &QToolButton::clicked, this,
            &LSMValuesViewController::removeValueAction);
    connect(&m_values, &QStandardItemModel::itemChanged, this,
            &LSMValuesViewController::itemDidChange);
}

LSMValuesViewController::~LSMValuesViewController() = default;

void LSMValuesViewController::addRow(const QVariant &value, bool isDefault)
{
    auto *name = new QStandardItem(LSMPropertyListText(value));
    name->setData(value);
    auto *mark = new QStandardItem;
    mark->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    mark->setCheckState(isDefault ? Qt::Checked : Qt::Unchecked);
    mark->setAccessibleText(localized("Default"));
    m_values.appendRow({name, mark});
}

void LSMValuesViewController::itemDidChange(const QStandardItem *item)
{
    if (item->column() != DefaultColumn || item->checkState() != Qt::Checked)
        return;
    for (int row = 0; row < m_values.rowCount(); ++row) {
        if (row != item->row())
            m_values.item(row, DefaultColumn)->setCheckState(Qt::Unchecked);
    }
}

QVariant LSMValuesViewController::valueAt(int row) const
{
    const QStandardItem *name = m_values.item(row, NameColumn);
    const QVariant before = name->data();
    return name->text() == LSMPropertyListText(before) ? before : name->text();
}

QVariantList LSMValuesViewController::allValues() const
{
    QVariantList values;
    for (int row = 0; row < m_values.rowCount(); ++row)
        values.append(valueAt(row));
    return values;
}

QVariant LSMValuesViewController::defaultValue() const
{
    for (int row = 0; row < m_values.rowCount(); ++row) {
        if (m_values.item(row, DefaultColumn)->checkState() == Qt::Checked)
            return valueAt(row);
    }
    return {};
}

void LSMValuesViewController::addValueAction()
{
    addRow(localized("New Value"), false);
    m_ui->valuesTable->setCurrentIndex(m_values.index(m_values.rowCount() - 1, NameColumn));
    editCurrentName();
}

void LSMValuesViewController::removeValueAction()
{
    QModelIndexList rows = m_ui->valuesTable->selectionModel()->selectedRows();
    if (rows.isEmpty())
        return;
    std::ranges::sort(rows, std::greater(), &QModelIndex::row);
    for (const QModelIndex &index : std::as_const(rows))
        m_values.removeRow(index.row());
    const int next = qMin(rows.constLast().row(), m_values.rowCount() - 1);
    m_ui->valuesTable->setCurrentIndex(m_values.index(next, NameColumn));
}

void LSMValuesViewController::editCurrentName()
{
    const QModelIndex current = m_ui->valuesTable->currentIndex();
    if (current.isValid())
        m_ui->valuesTable->edit(current.siblingAtColumn(NameColumn));
}
