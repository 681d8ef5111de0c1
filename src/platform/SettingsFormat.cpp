#include "platform/SettingsFormat.h"
#include "platform/Log.h"
#include "platform/PropertyList.h"

#include <cerrno>
#include <QFileInfo>
#include <QLockFile>

namespace platform {

namespace {

bool isDictionary(const std::optional<PropertyList::Document> &document)
{
    return document && document->root.typeId() == QMetaType::QVariantMap;
}

bool isReadable(const QString &path, Error *error = nullptr)
{
    const QFileInfo file(path);
    return !file.exists() || file.size() == 0 || isDictionary(PropertyList::read(path, error));
}

// True once nothing stands at `path` that a write would destroy. The caller holds the file's lock.
bool makeWay(const QString &path)
{
    Error error;
    if (isReadable(path, &error))
        return true;
    if (error.domain == u"posix" && error.code != EACCES)
        return false;
    const QString file = QFileInfo(path).canonicalFilePath();
    QString aside = file + QStringLiteral(".unreadable");
    for (int number = 2; QFileInfo::exists(aside); ++number)
        aside = QStringLiteral("%1.unreadable.%2").arg(file).arg(number);
    const bool moved = QFile::rename(file, aside);
    log(moved ? "unreadable settings %@ set aside as %@" : "cannot set %@ aside as %@", file,
        aside);
    return moved;
}

bool readSettings(QIODevice &device, QSettings::SettingsMap &map)
{
    const auto document = PropertyList::parse(device.readAll());
    const QVariantMap values = isDictionary(document) ? document->root.toMap() : QVariantMap();
    for (auto entry = values.begin(); entry != values.end(); ++entry)
        map.insert(encodedKey(entry.key()), entry.value());
    return true; // an unreadable file counts as empty until a write sets it aside
}

bool writeSettings(QIODevice &device, const QSettings::SettingsMap &map)
{
    QVariantMap values;
    for (auto entry = map.begin(); entry != map.end(); ++entry)
        values.insert(decodedKey(entry.key()), entry.value());
    auto bytes = PropertyList::serialize(values, PropertyList::Format::Xml);
    const bool isExact = bytes && PropertyList::parse(*bytes)->root == QVariant(values);
    if (!isExact) // XML has whole seconds only, and no control characters
        bytes = PropertyList::serialize(values, PropertyList::Format::Binary);
    const auto *file = qobject_cast<QFileDevice *>(&device);
    return bytes && makeWay(file->fileName()) && device.write(*bytes) == bytes->size();
}

} // namespace

QString encodedKey(QString key)
{
    return key.isEmpty()
               ? QStringLiteral("%")
               : key.replace(u'%', QStringLiteral("%25")).replace(u'/', QStringLiteral("%2F"));
}

QString decodedKey(QString key)
{
    return key == u"%" ? QString()
                       : key.replace(QStringLiteral("%2F"), QStringLiteral("/"))
                             .replace(QStringLiteral("%25"), QStringLiteral("%"));
}

QSettings::Format settingsFormat()
{
    static const QSettings::Format format = QSettings::registerFormat(
        QStringLiteral("plist"), readSettings, writeSettings, Qt::CaseSensitive);
    return format;
}

void setAsideIfUnreadable(const QString &path)
{
    if (isReadable(path))
        return;
    QLockFile lock(path + QStringLiteral(".lock")); // the one that QSettings writes under
    if (lock.lock())
        makeWay(path);
}

} // namespace platform
