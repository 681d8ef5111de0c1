#include "kit/ZQBundleExtensions.h"

#include "platform/Format.h"
#include "platform/Log.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace zq {

namespace {

QString folderInHome(QStandardPaths::StandardLocation location, const platform::Bundle &bundle)
{
    const QString folder = QStandardPaths::writableLocation(location);
    return folder.isEmpty() ? QDir::tempPath() : QDir(folder).filePath(bundleName(bundle));
}

QString localizedValue(const platform::Bundle &bundle, const QString &key)
{
    const QString value = bundle.localizedString(key, {}, QStringLiteral("InfoPlist"));
    return value == key ? QString() : value;
}

} // namespace

QString localizedOrNonLocalizedInfoDictionaryValue(const platform::Bundle &bundle,
                                                   const QString &key)
{
    const QString localized = localizedValue(bundle, key);
    return localized.isNull() ? bundle.infoDictionary().value(key).toString() : localized;
}

QString versionString(const platform::Bundle &bundle)
{
    return localizedOrNonLocalizedInfoDictionaryValue(bundle,
                                                      QStringLiteral("CFBundleShortVersionString"));
}

QString bundleVersion(const platform::Bundle &bundle)
{
    return bundle.infoDictionary().value(QStringLiteral("CFBundleVersion")).toString();
}

QString versionInfo(const platform::Bundle &bundle)
{
    return platform::format(QStringLiteral("%@ (%@)"), versionString(bundle),
                            bundleVersion(bundle));
}

QString bundleName(const platform::Bundle &bundle)
{
    return localizedOrNonLocalizedInfoDictionaryValue(bundle, QStringLiteral("CFBundleName"));
}

QString bundleDisplayName(const platform::Bundle &bundle)
{
    const QString name = localizedValue(bundle, QStringLiteral("CFBundleDisplayName"));
    return name.isNull() ? bundleName(bundle) : name;
}

QString applicationSupportFolder(const platform::Bundle &bundle)
{
    return folderInHome(QStandardPaths::GenericDataLocation, bundle);
}

QString existingApplicationSupportFolder(const platform::Bundle &bundle)
{
    const QString path = applicationSupportFolder(bundle);
    if (QFileInfo(path).isFile())
        platform::log("Cannot create data directory because plain file exists at path %@", path);
    else
        QDir().mkpath(path);
    return path;
}

QString applicationCachesDirectory(const platform::Bundle &bundle)
{
    return folderInHome(QStandardPaths::GenericCacheLocation, bundle);
}

} // namespace zq
