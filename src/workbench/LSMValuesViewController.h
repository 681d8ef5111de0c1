#pragma once

#include <memory>
#include <QStandardItemModel>
#include <QWidget>

namespace Ui {
class LSMValuesViewController;
}

/// The allowed values of one property while they are edited: rows of a name and a check box that
/// says which is the default. Added and removed by buttons and keys (Return edits, Space checks,
/// Delete removes). The content of a popover; main thread.
///
/// Checking a row makes it the only default; unchecking leaves the others alone. A value that is no
/// string shows as what it is, and stays what it is until it is typed over.
class LSMValuesViewController : public QWidget
{
    Q_OBJECT

public:
    LSMValuesViewController(const QVariantList &values, const QVariant &defaultValue,
                            QWidget *parent = nullptr);
    ~LSMValuesViewController() override;

    QVariantList allValues() const; ///< The names in order.

    /// Of the first row that is marked as the default; invalid without one.
    QVariant defaultValue() const;

private:
    enum Column { NameColumn, DefaultColumn };

    void addRow(const QVariant &value, bool isDefault);
    void itemDidChange(const QStandardItem *item);
    QVariant valueAt(int row) const;

    std::unique_ptr<Ui::LSMValuesViewController> m_ui;
    QStandardItemModel m_values;
};
