#include "platform/Workspace.h"
#include "platform/Desktop.h"
#include "platform/PropertyList.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>

namespace platform {

namespace {

Workspace *replacement = nullptr;

QStringList applicationFolders()
{
    const QString named = qEnvironmentVariable("LAYOUTSMITH_APPLICATIONS");
    if (!named.isEmpty())
        return named.split(QDir::listSeparator(), Qt::SkipEmptyParts);
    return {QDir::homePath() + QStringLiteral("/Applications"), QStringLiteral("/Applications"),
            QStringLiteral("/opt")};
}

QString identifierOf(const QString &application)
{
    const auto info = PropertyList::read(application + QStringLiteral("/Contents/Info.plist"));
    return info ? info->root.toMap().value(QStringLiteral("CFBundleIdentifier")).toString()
                : QString();
}

} // namespace

Workspace &Workspace::sharedWorkspace()
{
    static Workspace usual;
    return replacement ? *replacement : usual;
}

void Workspace::setSharedWorkspace(Workspace *workspace)
{
    replacement = workspace;
}

QString Workspace::pathForApplication(const QString &bundleIdentifier) const
{
    for (const QString &folder : applicationFolders()) {
        const auto applications =
            QDir(folder).entryInfoList({QStringLiteral("*.app")}, QDir::Dirs, QDir::Name);
        for (const QFileInfo &application : applications) {
            const QString path = application.absoluteFilePath();
            if (!bundleIdentifier.isEmpty() && identifierOf(path) == bundleIdentifier)
                return path;
        }
    }
    return {};
}

bool Workspace::openUrl(const QUrl &url)
{
    return QDesktopServices::openUrl(url);
}

bool Workspace::selectFile(const QString &path, const QString &rootedAtPath)
{
    const QFileInfo file(path);
    if (file.exists() && desktop::showInFileManager(file.absoluteFilePath()))
        return true;
    const QFileInfo folder(rootedAtPath.isEmpty() ? file.absolutePath() : rootedAtPath);
    return folder.isDir() && openUrl(QUrl::fromLocalFile(folder.absoluteFilePath()));
}

} // namespace platform
