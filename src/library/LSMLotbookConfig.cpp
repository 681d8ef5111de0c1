#include "library/LSMLotbookConfig.h"

#include "platform/UserDefaults.h"

#include <QDir>
#include <QFileInfo>

namespace {

const QString identifierKey = QStringLiteral("lotbookApplicationIdentifier");

QString containersFolder()
{
    const QString moved = qEnvironmentVariable("LAYOUTSMITH_CONTAINERS");
    return moved.isEmpty() ? QDir::homePath() + QStringLiteral("/Library/Containers") : moved;
}

QString newestInstalledVersion()
{
    for (const LSMLotbookConfig::Version &version : LSMLotbookConfig::lotbookVersions()) {
        if (LSMLotbookConfig::lotbookContainerFolderExistsForBundleIdentifier(version.bundle))
            return version.bundle;
    }
    return LSMLotbookConfig::lotbookVersions().back().bundle;
}

} // namespace

const std::vector<LSMLotbookConfig::Version> &LSMLotbookConfig::lotbookVersions()
{
    static const std::vector<Version> versions = {
        {QStringLiteral("Lotbook 9"), QStringLiteral("com.quillbyte.lotbook9")},
        {QStringLiteral("Lotbook 8"), QStringLiteral("com.quillbyte.lotbook8")},
        {QStringLiteral("Lotbook 7"), QStringLiteral("com.quillbyte.lotbook7")},
    };
    return versions;
}

void LSMLotbookConfig::registerDefaults()
{
    platform::UserDefaults::standardUserDefaults().registerDefaults(
        {{identifierKey, newestInstalledVersion()}});
}

QString LSMLotbookConfig::lotbookApplicationIdentifier()
{
    const QString stored = platform::UserDefaults::standardUserDefaults().string(identifierKey);
    const bool isName = !stored.isEmpty() && !stored.contains(u'/');
    return isName ? stored : newestInstalledVersion(); // the settings file was damaged by hand
}

QString LSMLotbookConfig::lotbookContainerFolderForBundleIdentifier(const QString &bundle)
{
    return QDir::cleanPath(containersFolder() + u'/' + bundle + QStringLiteral("/Data"));
}

bool LSMLotbookConfig::lotbookContainerFolderExistsForBundleIdentifier(const QString &bundle)
{
    return QFileInfo(lotbookContainerFolderForBundleIdentifier(bundle)).isDir();
}

QString LSMLotbookConfig::lotbookPreferencesPathForBundleIdentifier(const QString &bundle)
{
    return lotbookContainerFolderForBundleIdentifier(bundle) +
           QStringLiteral("/Library/Preferences/") + bundle + QStringLiteral(".plist");
}

QString LSMLotbookConfig::lotbookContainerFolder()
{
    return lotbookContainerFolderForBundleIdentifier(lotbookApplicationIdentifier());
}

QString LSMLotbookConfig::lotbookApplicationSupportPath()
{
    return lotbookContainerFolder() + QStringLiteral("/Library/Application Support/Lotbook");
}

QString LSMLotbookConfig::lotbookDesignTemplatesPath()
{
    return lotbookApplicationSupportPath() + QStringLiteral("/DesignTemplates");
}
