#include "platform/PropertyList.h"

#include "platform/BinaryPropertyList.h"
#include "platform/FileIO.h"
#include "platform/PropertyListValue.h"
#include "platform/XmlPropertyList.h"

#include <cmath>
#include <limits>
#include <QRegularExpression>

namespace platform {

namespace {

constexpr qint64 referenceDate = 978'307'200'000; // 2001-01-01, in milliseconds since 1970

const bool convertersAreRegistered = [] {
    return QMetaType::registerConverter(&PropertyListDate::toDateTime) &&
           QMetaType::registerConverter<QDateTime, PropertyListDate>(
               &PropertyListDate::fromDateTime);
}();

} // namespace

PropertyListDate PropertyListDate::fromDateTime(const QDateTime &dateTime)
{
    if (!dateTime.isValid())
        return {std::numeric_limits<double>::quiet_NaN()};
    return {double(dateTime.toMSecsSinceEpoch() - referenceDate) / 1000};
}

QDateTime PropertyListDate::toDateTime() const
{
    constexpr double limit = 9e18; // of milliseconds in 64 bits
    const double milliseconds = std::round(secondsSince2001 * 1000);
    if (!(std::abs(milliseconds) < limit))
        return {};
    return QDateTime::fromMSecsSinceEpoch(qint64(milliseconds) + referenceDate, Qt::UTC);
}

PropertyListKind kindOfPropertyListValue(const QVariant &value)
{
    using enum PropertyListKind;
    switch (value.typeId()) {
    case QMetaType::QVariantMap:
        return Dictionary;
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return Array;
    case QMetaType::QString:
        return String;
    case QMetaType::QByteArray:
        return Data;
    case QMetaType::Bool:
        return Boolean;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return Integer;
    case QMetaType::Double:
    case QMetaType::Float:
        return Real;
    case QMetaType::QDateTime:
        return value.toDateTime().isValid() ? Date : None;
    default:
        if (value.metaType() == QMetaType::fromType<PropertyListDate>())
            return Date;
        return value.metaType() == QMetaType::fromType<PropertyListUid>() ? Uid : None;
    }
}

bool failPropertyList(Error *error, const QString &description)
{
    return fail(error, QStringLiteral("platform.propertylist"), 1, description);
}

bool failPropertyListValue(Error *error, const QStringList &path, const QString &reason)
{
    return failPropertyList(
        error,
        QStringLiteral("The value at \"%1\" cannot be written: %2.").arg(path.join(u'/'), reason));
}

std::optional<PropertyList::Document> PropertyList::parse(const QByteArray &bytes, Error *error)
{
    const bool isBinary = BinaryPropertyList::recognizes(bytes);
    auto root =
        isBinary ? BinaryPropertyList::parse(bytes, error) : XmlPropertyList::parse(bytes, error);
    if (!root)
        return std::nullopt;
    return Document{std::move(*root), isBinary ? Format::Binary : Format::Xml};
}

std::optional<QByteArray> PropertyList::serialize(const QVariant &root, Format format, Error *error)
{
    return format == Format::Binary ? BinaryPropertyList::serialize(root, error)
                                    : XmlPropertyList::serialize(root, error);
}

std::optional<PropertyList::Document> PropertyList::read(const QString &path, Error *error)
{
    const auto bytes = readFile(path, error);
    if (!bytes)
        return std::nullopt;
    auto document = parse(*bytes, error);
    if (!document && error)
        error->description = QStringLiteral("%1: %2").arg(path, error->description);
    return document;
}

bool PropertyList::write(const QVariant &root, Format format, const QString &path, Error *error)
{
    const auto bytes = serialize(root, format, error);
    return bytes && writeFileAtomically(path, *bytes, error);
}

bool isTrue(const QVariant &value)
{
    static const QRegularExpression pattern(QStringLiteral("^\\s*[+-]?0*[YyTt1-9]"));
    return isNumber(value) ? value.toDouble() != 0 : pattern.match(stringIn(value)).hasMatch();
}

QString stringIn(const QVariant &value)
{
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

bool isNumber(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

} // namespace platform
