#include "editor/MGSArchiving.h"

#include "platform/KeyedArchive.h"

using namespace platform::KeyedArchive;

QVariant mgs_archivedValue(const QVariant &value)
{
    if (value.typeId() == QMetaType::QColor)
        return archivedColor(value.value<QColor>());
    if (value.typeId() == QMetaType::QFont)
        return archivedFont(value.value<QFont>());
    return value;
}

QVariant mgs_unarchivedValue(const QVariant &value)
{
    if (value.typeId() != QMetaType::QByteArray)
        return value;
    if (const QColor color = unarchivedColor(value.toByteArray()); color.isValid())
        return color;
    const auto font = unarchivedFont(value.toByteArray());
    return font ? QVariant(*font) : value;
}
