#pragma once

#include "platform/Error.h"
#include <optional>
#include <QByteArray>
#include <QDateTime>
#include <QVariant>

namespace platform {

/// A date of a property list: seconds since 2001-01-01 00:00:00 UTC, kept as the double that the
/// binary form holds, so that one that nobody changed is written as it was read. Converts to and
/// from QDateTime through QVariant as well (`value.value<QDateTime>()`).
struct PropertyListDate
{
    double secondsSince2001 = 0;

    static PropertyListDate fromDateTime(const QDateTime &dateTime);
    QDateTime
    toDateTime() const; ///< UTC, to the millisecond; invalid where QDateTime cannot say it.
    bool operator==(const PropertyListDate &) const = default;
};

/// A reference within a keyed archive (binary type 8; `CF$UID` in XML).
struct PropertyListUid
{
    quint64 value = 0;
    bool operator==(const PropertyListUid &) const = default;
};

/// Is the value a boolean, an integer or a real?
bool isNumber(const QVariant &value);

/// A number other than 0, or a string that says so: "Yes", "true", or what begins with a whole
/// number other than 0.
bool isTrue(const QVariant &value);

/// The value if it is a string; null if it is anything else.
QString stringIn(const QVariant &value);

/// Property lists, XML and binary, read into QVariants that tell every type apart:
///
///   dict QVariantMap | array QVariantList | string QString | data QByteArray | bool bool
///   integer qint64, above its range quint64 | real double | date PropertyListDate
///   uid PropertyListUid
///
/// Reading and writing again in the same form gives equal values, whatever they are: dates outside
/// any calendar, integers above 2^63, strings with NUL or CR. Stateless; any thread.
class PropertyList
{
public:
    enum class Format { Xml, Binary };

    struct Document
    {
        QVariant root;
        Format format = Format::Xml;
    };

    /// Nullopt, with the reason, for anything that is not a well-formed property list. Hostile
    /// input (cycles, absurd counts, deep nesting) is refused; nothing crashes or runs long.
    static std::optional<Document> parse(const QByteArray &bytes, Error *error = nullptr);

    /// Keys in ascending order. Int and uint are taken as integers, float as real, QDateTime as
    /// date, QStringList as array. Nullopt, with the path of the culprit, for a value that has no
    /// form in property lists, or none in `format`: XML has no control characters and no years
    /// beyond 0 to 9999, and its dates are cut to whole seconds. Lists nest up to 512 deep.
    static std::optional<QByteArray> serialize(const QVariant &root, Format format,
                                               Error *error = nullptr);

    /// `parse` on a whole file; a missing or unreadable file is an error in the domain "posix".
    static std::optional<Document> read(const QString &path, Error *error = nullptr);

    /// `serialize`, then an atomic write: the file is old or new, whole, whatever happens.
    static bool write(const QVariant &root, Format format, const QString &path,
                      Error *error = nullptr);
};

} // namespace platform

Q_DECLARE_METATYPE(platform::PropertyListDate)
Q_DECLARE_METATYPE(platform::PropertyListUid)
