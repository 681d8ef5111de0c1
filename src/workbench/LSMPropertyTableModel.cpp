#include "workbench/LSMPropertyTableModel.h"

#include "kit/ui/ZQViewExtensions.h"
#include "library/LSMDesignKeys.h"
#include "platform/Appearance.h"
#include "platform/Bundle.h"
#include "platform/Format.h"
#include "platform/PropertyList.h"
#include "workbench/LSMPropertyListText.h"
#include "workbench/LSMPropertyTransformers.h"

#include <algorithm>
#include <QColor>
#include <QGuiApplication>

using namespace LSMDesignKeys;
using platform::localizable;
using platform::localized;
using platform::ObservableDictionary;
using platform::stringIn;

namespace {

constexpr qsizetype longestToolTip = 2000; // characters
constexpr const char *titles[] = {localizable("Name"), localizable("Type"),
                                  localizable("Default Value")};
using Control = LSMPropertyTableModel::Control;

struct Type
{
    QLatin1StringView name;
    const char *title;
    Control control; // of the value
    QVariant firstValue;
};

const Type types[] = {
    {stringProperty, localizable("String"), Control::Text, QStringLiteral("")},
    {colorProperty, localizable("Color"), Control::Well, {}},
    {booleanProperty, localizable("Boolean"), Control::CheckBox, false},
    {valuesProperty, localizable("Values"), Control::Values, {}},
    {separatorProperty, localizable("Separator"), Control::None, {}},
};

const Type *typeNamed(const QString &name)
{
    const auto *found = std::ranges::find(types, name, &Type::name);
    return found == std::end(types) ? nullptr : found;
}

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

// "#b5633f", and how much of it there is where that is not all.
QString textOfColor(const QColor &color)
{
    return color.alphaF() < 1
               ? QStringLiteral("%1, %2 %").arg(color.name()).arg(qRound(color.alphaF() * 100))
               : color.name();
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
    Control control = Control::None;
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
    for (const Type &each : ::types)
        all.append(each.name);
    return all;
}

QString LSMPropertyTableModel::titleOfType(const QString &type)
{
    const Type *known = typeNamed(type);
    return known ? localized(known->title) : type;
}

QVariant LSMPropertyTableModel::firstValueOfType(const QString &type)
{
    const Type *known = typeNamed(type);
    return known ? known->firstValue : QVariant();
}

void LSMPropertyTableModel::setEditable(bool editable)
{
    if (std::exchange(m_isEditable, editable) != editable && rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
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
    if (!cell.record)
        return cell;
    cell.type = stringIn(cell.record->value(propertyType));
    cell.value = cell.record->value(keys[cell.column]);
    const Type *known = typeNamed(cell.type);
    cell.control = cell.column == NameColumn   ? Control::Text
                   : cell.column == TypeColumn ? Control::Popup
                   : known                     ? known->control
                                               : Control::None;
    return cell;
}

LSMPropertyTableModel::Control LSMPropertyTableModel::controlOf(const Cell &cell) const
{
    const bool shows = cell.control == Control::CheckBox || cell.control == Control::Well;
    return m_isEditable || shows ? cell.control : Control::None;
}

QVariant LSMPropertyTableModel::data(const QModelIndex &index, int role) const
{
    const Cell cell = cellAt(index);
    switch (role) {
    case Qt::DisplayRole:
        return text(cell);
    case Qt::EditRole:
        return cell.control == Control::Text ? LSMPropertyListText(cell.value) : cell.value;
    case Qt::CheckStateRole:
        if (cell.control == Control::CheckBox)
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
        return cell.control == Control::CheckBox && isAsItShouldBe(cell)
                   ? LSMPropertyListText(toBool.transformedValue(cell.value))
                   : text(cell);
    case ControlRole:
        return int(controlOf(cell));
    case ColorRole:
        return cell.control == Control::Well ? toColor.transformedValue(cell.value) : QVariant();
    case SummaryRole:
        return cell.control == Control::Values ? toSummary.transformedValue(cell.record->values())
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
    if (cell.control == Control::Values) {
        const QVariant summary = toSummary.transformedValue(cell.record->values());
        return summary.canConvert<LSMAttributedText>() ? summary.value<LSMAttributedText>().string
                                                       : LSMPropertyListText(summary);
    }
    if (cell.control == Control::Well && isAsItShouldBe(cell))
        return cell.value.isValid()
                   ? textOfColor(toColor.transformedValue(cell.value).value<QColor>())
                   : QString();
    return cell.control == Control::CheckBox && isAsItShouldBe(cell)
               ? QString()
               : LSMPropertyListText(cell.value);
}

QString LSMPropertyTableModel::toolTip(const Cell &cell) const
{
    if (cell.control != Control::Values)
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
    if (cell.control == Control::Well)
        return toColor.transformedValue(cell.value).isValid();
    if (cell.control == Control::CheckBox)
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
    flags.setFlag(Qt::ItemIsEditable, cell.control == Control::Text);
    flags.setFlag(Qt::ItemIsUserCheckable, cell.control == Control::CheckBox);
    return flags;
}

bool LSMPropertyTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const Cell cell = cellAt(index);
    if (!m_isEditable)
        return false;
    const bool isCheck = role == Qt::CheckStateRole && cell.control == Control::CheckBox;
    if (!isCheck && !(role == Qt::EditRole && cell.control == Control::Text))
        return false;
    if (isCheck)
        cell.record->setValue(propertyDefaultValue,
                              toBool.reverseTransformedValue(value.toInt() == Qt::Checked));
    else if (data(index, Qt::EditRole) != value)
        cell.record->setValue(keys[cell.column], value);
    return true;
}
