#include "workbench/LSMValuesViewController.h"

#include "kit/ui/ListEditing.h"
#include "platform/Bundle.h"
#include "ui_LSMValuesViewController.h"
#include "workbench/LSMPropertyListText.h"
#include "workbench/LSMTextCellDelegate.h"

#include <QHeaderView>

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
    m_ui->valuesTable->setItemDelegate(new LSMTextCellDelegate(this));
    m_ui->valuesTable->verticalHeader()->hide();
    m_ui->valuesTable->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_ui->valuesTable->horizontalHeader()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    new zq::ListEditing(m_ui->valuesTable, m_ui->addButton, m_ui->removeButton,
                        [this] { addRow(localized("New Value"), false); });
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
