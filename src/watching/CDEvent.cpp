#include "watching/CDEvent.h"

#include "platform/Format.h"
#include "platform/PropertyList.h"

namespace {

const QString identifierKey = QStringLiteral("identifier");
const QString flagsKey = QStringLiteral("flags");
const QString dateKey = QStringLiteral("date");
const QString urlKey = QStringLiteral("URL");

} // namespace

CDEvent::CDEvent(quint64 identifier, const QDateTime &date, const QUrl &url, quint32 flags)
    : m_identifier(identifier), m_date(date), m_url(url), m_flags(flags)
{
}

QVariantMap CDEvent::archived() const
{
    return {{identifierKey, m_identifier},
            {flagsKey, m_flags},
            {dateKey, QVariant::fromValue(platform::PropertyListDate::fromDateTime(m_date))},
            {urlKey, m_url.toString(QUrl::FullyEncoded)}};
}

std::optional<CDEvent> CDEvent::unarchived(const QVariantMap &archive)
{
    for (const QString &key : {identifierKey, flagsKey, dateKey, urlKey}) {
        if (!archive.contains(key))
            return std::nullopt;
    }
    return CDEvent(archive[identifierKey].toULongLong(),
                   archive[dateKey].value<platform::PropertyListDate>().toDateTime(),
                   QUrl(archive[urlKey].toString()), archive[flagsKey].toUInt());
}

QString CDEvent::description() const
{
    return platform::format(
        QStringLiteral("<%@: %p { identifier = %ld, URL = %@, flags = %ld, date = %@ }>"),
        QStringLiteral("CDEvent"), static_cast<const void *>(this), qint64(m_identifier),
        m_url.toString(QUrl::FullyEncoded), qint64(m_flags), m_date.toString(Qt::ISODateWithMs));
}
