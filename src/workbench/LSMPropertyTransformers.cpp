#include "workbench/LSMPropertyTransformers.h"

#include "library/LSMDesignKeys.h"
#include "platform/KeyedArchive.h"
#include "platform/PropertyList.h"
#include "workbench/LSMPropertyListText.h"

#include <QGuiApplication>

using namespace LSMDesignKeys;
using namespace platform::KeyedArchive;

namespace {

constexpr double smallSize = 0.85; // of the application's font

QTextCharFormat smallFormat(QFont::Weight weight)
{
    QFont font = QGuiApplication::font();
    font.setPointSizeF(font.pointSizeF() * smallSize);
    font.setWeight(weight);
    QTextCharFormat format;
    format.setFont(font);
    return format;
}

} // namespace

QVariant LSMPropertyToBoolTransformer::transformedValue(const QVariant &value) const
{
    return platform::isTrue(value);
}

QVariant LSMPropertyToBoolTransformer::reverseTransformedValue(const QVariant &value) const
{
    if (value.typeId() == QMetaType::QByteArray)
        return false;
    return platform::isNumber(value) ? value : QVariant();
}

QVariant LSMPropertyToColorTransformer::transformedValue(const QVariant &value) const
{
    if (value.typeId() != QMetaType::QByteArray)
        return {};
    const QColor color = unarchivedColor(value.toByteArray());
    return color.isValid() ? QVariant(color) : QVariant();
}

QVariant LSMPropertyToColorTransformer::reverseTransformedValue(const QVariant &value) const
{
    if (value.typeId() == QMetaType::QByteArray)
        return value;
    const auto archive =
        archivedColor(value.typeId() == QMetaType::QColor ? value.value<QColor>() : QColor());
    return archive.isNull() ? QVariant() : QVariant(archive);
}

QVariant LSMPropertyToValuesStringTransformer::transformedValue(const QVariant &value) const
{
    const QVariantMap record =
        value.typeId() == QMetaType::QVariantMap ? value.toMap() : QVariantMap();
    const QVariant preset = record.value(propertyDefaultValue);
    const QVariant allowed = record.value(propertyAllowedValues);
    if (!preset.isValid())
        return {};
    if (allowed.typeId() != QMetaType::QVariantList || allowed.toList().isEmpty())
        return preset;
    LSMAttributedText text;
    const QTextCharFormat formats[] = {smallFormat(QFont::Normal), smallFormat(QFont::Bold)};
    for (const QVariant &each : allowed.toList()) {
        if (!text.formats.isEmpty())
            text.string += QStringLiteral(", ");
        const QString name = LSMPropertyListText(each);
        text.formats.append({int(text.string.size()), int(name.size()), formats[each == preset]});
        text.string += name;
    }
    return QVariant::fromValue(text);
}
