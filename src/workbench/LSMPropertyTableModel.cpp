#include "workbench/LSMPropertyTableModel.h"

#include "kit/ui/ZQViewExtensions.h"
#include "library/LSMDesignKeys.h"
#include "platform/Appearance.h"
#include "platform/Bundle.h"
#include "platform/Format.h"
#include "workbench/LSMPropertyListText.h"
#include "workbench/LSMPropertyTransformers.h"

#include <QColor>
#include <QGuiApplication>

using namespace LSMDesignKeys;
using platform::localizable;
using platform::localized;
using platform::ObservableDictionary;

namespace {

constexpr qsizetype longestToolTip = 2000; // characters
constexpr const char *titles[] = {localizable("Name"), localizable("Type"),
                                  localizable("Default Value")};
constexpr struct
{
    QLatin1StringView type;
    const char *title;
} types[] = {
    {stringProperty, localizable("String")},       {colorProperty, localizable("Color")},
    {booleanProperty, localizable("Boolean")},     {valuesProperty, localizable("Values")},
    {separatorProperty, localizable("Separator")},
};
constexpr QLatin1StringView keys[] = {propertyName, propertyType, propertyDefaultValue};

const LSMPropertyToBoolTransformer toBool;
const LSMPropertyToColorTransformer toColor;
const LSMPropertyToValuesStringTransformer toSummary;

QVariant boldFont()
{
    QFont font = QGuiApplication::font();
    font.setBold(true);
    return font;
}

QString stringIn(const QVariant &value)
{
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

} // namespace

/// One cell, and what of the record it shows.
struct LSMPropertyTableModel::Cell
{
    int column;
    QVariant object;
    Record record;
    QString type;   ///< Of the record.
    QVariant value; ///< Of the column's key.

    bool isValueOf(QLatin1StringView ofType) const
    {
        return record && column == ValueColumn && type == ofType;
    }
    bool takesText() const { return (record && column == NameColumn) || isValueOf(stringProperty); }
};

LSMPropertyTableModel::LSMPropertyTableModel(platform::ArrayController *controller)
    : m_controller(controller)
{
    connect(controller, &platform::ArrayController::arrangedObjectsDidChange, this, [this] {
        beginResetModel();
        m_objects = m_controller->arrangedObjects();
        endResetModel();
    });
}

QStringList LSMPropertyTableModel::types()
{
    QStringList all;
    for (const auto &each : ::types)
        all.append(each.type);
    return all;
}

QString LSMPropertyTableModel::titleOfType(const QString &type)
{
    for (const auto &each : ::types) {
        if (each.type == type)
            return localized(each.title);
    }
    return type;
}

void LSMPropertyTableModel::setEditable(bool editable)
{
    m_isEditable = editable;
}

QVariant LSMPropertyTableModel::objectOf(const QVariant &entry)
{
    return entry.typeId() == QMetaType::QVariantMap
               ? QVariant::fromValue(std::make_shared<ObservableDictionary>(entry.toMap()))
               : entry;
}

QVariant LSMPropertyTableModel::entryOf(const QVariant &object)
{
    const Record record = recordIn(object);
    return record ? QVariant(record->values()) : object;
}

LSMPropertyTableModel::Record LSMPropertyTableModel::recordIn(const QVariant &object)
{
    return object.value<Record>();
}

LSMPropertyTableModel::Record LSMPropertyTableModel::recordAt(int row) const
{
    return recordIn(m_objects.value(row));
}

void LSMPropertyTableModel::recordDidChange(const Record &record)
{
    const int row = int(m_objects.indexOf(QVariant::fromValue(record)));
    if (row >= 0)
        Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

int LSMPropertyTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_objects.size());
}

int LSMPropertyTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant LSMPropertyTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return localized(titles[section]);
}

LSMPropertyTableModel::Cell LSMPropertyTableModel::cellAt(const QModelIndex &index) const
{
    Cell cell{index.column(), m_objects.value(index.row()), recordAt(index.row()), {}, {}};
    if (cell.record) {
        cell.type = stringIn(cell.record->value(propertyType));
        cell.value = cell.record->value(keys[cell.column]);
    }
    return cell;
}

QVariant LSMPropertyTableModel::data(const QModelIndex &index, int role) const
{
    const Cell cell = cellAt(index);
    switch (role) {
    case Qt::DisplayRole:
        return text(cell);
    case Qt::EditRole:
        return cell.column == NameColumn || cell.type == stringProperty
                   ? LSMPropertyListText(cell.value)
                   : cell.value;
    case Qt::CheckStateRole:
        if (cell.isValueOf(booleanProperty))
            return toBool.transformedValue(cell.value).toBool() ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::ForegroundRole:
        return isAsItShouldBe(cell) ? QVariant()
                                    : platform::namedColor(QStringLiteral("secondaryLabelColor"));
    case Qt::FontRole:
        return cell.type == separatorProperty && cell.column == NameColumn ? boldFont()
                                                                           : QVariant();
    case Qt::BackgroundRole:
        return cell.type == separatorProperty
                   ? platform::namedColor(QStringLiteral("windowBackground"))
                   : QVariant();
    case Qt::ToolTipRole:
        return zq::plainToolTip(toolTip(cell).left(longestToolTip));
    case Qt::AccessibleTextRole:
        return cell.isValueOf(booleanProperty) && isAsItShouldBe(cell)
                   ? LSMPropertyListText(toBool.transformedValue(cell.value))
                   : text(cell);
    case TypeRole:
        return cell.type;
    case HasTypeRole:
        return cell.record && cell.column == TypeColumn;
    case ColorRole:
        return cell.isValueOf(colorProperty) ? toColor.transformedValue(cell.value) : QVariant();
    case SummaryRole:
        return cell.isValueOf(valuesProperty) ? toSummary.transformedValue(cell.record->values())
                                              : QVariant();
    default:
        return {};
    }
}

QString LSMPropertyTableModel::text(const Cell &cell) const
{
    if (!cell.record)
        return cell.column == NameColumn ? platform::format(localized("Not a property: %@"),
                                                            LSMPropertyListText(cell.object))
                                         : QString();
    if (cell.column == NameColumn && LSMPropertyListText(cell.value).isEmpty())
        return localized("No Name");
    if (cell.column == TypeColumn)
        return cell.type.isNull() ? LSMPropertyListText(cell.value) : titleOfType(cell.type);
    if (cell.isValueOf(valuesProperty)) {
        const QVariant summary = toSummary.transformedValue(cell.record->values());
        return summary.canConvert<LSMAttributedText>() ? summary.value<LSMAttributedText>().string
                                                       : LSMPropertyListText(summary);
    }
    if (cell.isValueOf(colorProperty) && isAsItShouldBe(cell))
        return cell.value.isValid() ? toColor.transformedValue(cell.value).value<QColor>().name()
                                    : QString();
    return cell.isValueOf(booleanProperty) && isAsItShouldBe(cell)
               ? QString()
               : LSMPropertyListText(cell.value);
}

QString LSMPropertyTableModel::toolTip(const Cell &cell) const
{
    if (!cell.isValueOf(valuesProperty))
        return text(cell);
    QStringList names;
    for (const QVariant &value : cell.record->value(propertyAllowedValues).toList())
        names.append(LSMPropertyListText(value));
    return names.join(u'\n');
}

/// Of the type that its column, and the type of the record, give it.
bool LSMPropertyTableModel::isAsItShouldBe(const Cell &cell) const
{
    if (!cell.record)
        return false;
    if (cell.column != ValueColumn)
        return !stringIn(cell.value).isEmpty();
    if (!cell.value.isValid())
        return true;
    if (cell.type == colorProperty)
        return toColor.transformedValue(cell.value).isValid();
    if (cell.type == booleanProperty)
        return cell.value.typeId() != QMetaType::QByteArray && // which it gives back as false
               toBool.reverseTransformedValue(cell.value).isValid();
    return cell.value.typeId() == QMetaType::QString && cell.type != separatorProperty;
}

Qt::ItemFlags LSMPropertyTableModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (!m_isEditable)
        return flags;
    const Cell cell = cellAt(index);
    flags |= Qt::ItemIsDragEnabled;
    flags.setFlag(Qt::ItemIsEditable, cell.takesText());
    flags.setFlag(Qt::ItemIsUserCheckable, cell.isValueOf(booleanProperty));
    return flags;
}

bool LSMPropertyTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const Cell cell = cellAt(index);
    if (!m_isEditable)
        return false;
    const bool isCheck = role == Qt::CheckStateRole && cell.isValueOf(booleanProperty);
    if (!isCheck && !(role == Qt::EditRole && cell.takesText()))
        return false;
    if (isCheck)
        cell.record->setValue(propertyDefaultValue,
                              toBool.reverseTransformedValue(value.toInt() == Qt::Checked));
    else if (data(index, Qt::EditRole) != value)
        cell.record->setValue(keys[cell.column], value);
    return true;
}
