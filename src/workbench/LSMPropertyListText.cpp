#include "workbench/LSMPropertyListText.h"

#include "platform/Bundle.h"
#include "platform/Format.h"
#include "platform/PropertyList.h"

#include <QLocale>

using platform::localized;

QString LSMPropertyListText(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::QByteArray:
        return platform::format(localized("%ld bytes"), value.toByteArray().size());
    case QMetaType::QVariantList:
        return platform::format(localized("List of %ld"), value.toList().size());
    case QMetaType::QVariantMap:
        return platform::format(localized("Dictionary of %ld"), value.toMap().size());
    case QMetaType::Bool:
        return value.toBool() ? localized("Yes") : localized("No");
    default:
        break;
    }
    if (value.typeId() == qMetaTypeId<platform::PropertyListDate>()) {
        const auto date = value.value<platform::PropertyListDate>().toDateTime();
        return QLocale().toString(date.toLocalTime(), QLocale::ShortFormat);
    }
    return value.toString();
}
