#pragma once

#include "platform/ArrayController.h"
#include "platform/ObservableDictionary.h"

#include <QAbstractTableModel>

/// The records of an array controller as a table: name, type and default value. An entry that is no
/// record, and a field that is not of its type, shows as what it is. What the user enters goes to
/// the record at once. Main thread.
class LSMPropertyTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using Record = std::shared_ptr<platform::ObservableDictionary>;
    enum Column { NameColumn, TypeColumn, ValueColumn, ColumnCount };

    /// What a cell is changed by. What shows a value, a check box or a well, is there in a table
    /// that is not editable too; all others are not.
    enum class Control { None, Text, CheckBox, Popup, Well, Values };

    /// What the cells have beyond the usual roles: their control, as a number; the colour or the
    /// summary of allowed values that a value cell shows.
    enum Role { ControlRole = Qt::UserRole, ColorRole, SummaryRole };

    /// The controller is borrowed and lives longer.
    explicit LSMPropertyTableModel(platform::ArrayController *controller);

    void setEditable(bool editable); ///< False at first.

    static QStringList types();                      ///< In the order of the popup.
    static QString titleOfType(const QString &type); ///< One that is none of them as it stands.
    static QVariant firstValueOfType(const QString &type); ///< Of a property that has just got it.

    /// An entry of a design's list as an object of the controller, and back: a dictionary becomes a
    /// record, anything else stays.
    static QVariant objectOf(const QVariant &entry);
    static QVariant entryOf(const QVariant &object);
    static Record recordIn(const QVariant &object); ///< Null if it is none.

    Record recordAt(int row) const; ///< Null for no record, and for no row.
    void recordDidChange(const Record &record);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /// A text into a name or value cell, or, by CheckStateRole, a boolean into a value cell. A text
    /// that is what the cell shows changes nothing.
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    struct Cell;

    Cell cellAt(const QModelIndex &index) const;
    Control controlOf(const Cell &cell) const;
    QString text(const Cell &cell) const;
    QString toolTip(const Cell &cell) const;
    bool isAsItShouldBe(const Cell &cell) const;

    platform::ArrayController *m_controller;
    QVariantList m_objects;
    bool m_isEditable = false;
};
