#include "library/LSMPropertyValues.h"

#include "library/LSMDesignKeys.h"
#include "library/LSMDesignTemplate.h"
#include "library/LSMPlaceholders.h"
#include "platform/KeyedArchive.h"

using namespace LSMDesignKeys;

namespace {

QString textOf(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("1") : QStringLiteral("");
    case QMetaType::QByteArray: {
        const QColor color = platform::KeyedArchive::unarchivedColor(value.toByteArray());
        return color.isValid() ? color.name() : QString();
    }
    default:
        return value.toString();
    }
}

} // namespace

QHash<QString, QString> LSMPropertyValues(const LSMDesignTemplate &design)
{
    QHash<QString, QString> values;
    for (const QVariant &each : design.templateDictionary()->value(properties).toList()) {
        const QVariantMap record = each.toMap();
        const QString text = textOf(record.value(propertyDefaultValue));
        if (!text.isNull())
            values.insert(LSMPlaceholders::nameOfProperty(record.value(propertyName).toString()),
                          text);
    }
    return values;
}
