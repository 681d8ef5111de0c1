#include "library/LSMDesignLoader.h"

#include "library/LSMDesignKeys.h"
#include "library/LSMImageUrls.h"
#include "platform/Concurrent.h"
#include "platform/Log.h"

#include <filesystem>
#include <QFile>
#include <QFileInfo>

using namespace LSMDesignKeys;
using platform::PropertyList;
using Design = std::shared_ptr<LSMDesignTemplate>;

namespace {

Design loadOldVersion(const QString &path, const QString &type, QString &reason)
{
    if (!QFileInfo(path).isFile()) {
        reason = QStringLiteral("not a file");
        return nullptr;
    }
    Design design = LSMDesignTemplate::templateWithTitle(QFileInfo(path).completeBaseName(), path,
                                                         type, LSMDesignTemplate::Version::Old);
    design->setRemoteResources(LSMImageUrlsInString(design->htmlSourceCode()));
    return design;
}

Design loadBundle(const QString &path, const QString &type, QString &reason)
{
    platform::Error error;
    const auto info = PropertyList::read(path + u'/' + infoFile, &error);
    if (info && info->root.typeId() == QMetaType::QVariantMap)
        return LSMDesignTemplate::templateWithDict(info->root.toMap(), path, type, info->format);
    reason = error.isNull() ? QStringLiteral("Info.plist holds no dictionary") : error.description;
    return nullptr;
}

QString extensionOf(const QString &path)
{
    const QString name = path.mid(path.lastIndexOf(u'/') + 1);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.mid(dot + 1) : QString();
}

// Null with the reason if it is to be left out.
Design loadEntry(const QString &path, const QString &type, QString &reason)
{
    if (!LSMDesignLoader::isReachable(path)) {
        reason = QStringLiteral("its name is not UTF-8");
        return nullptr;
    }
    return extensionOf(path) == oldVersionExtension ? loadOldVersion(path, type, reason)
                                                    : loadBundle(path, type, reason);
}

} // namespace

QStringList LSMDesignLoader::candidates(const QString &directory)
{
    QStringList paths;
    if (directory.isEmpty())
        return paths;
    std::error_code failure;
    std::filesystem::directory_iterator entry(QFile::encodeName(directory).toStdString(), failure);
    for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
        const QString path = QFile::decodeName(entry->path().native().c_str());
        const QString extension = extensionOf(path);
        if (extension == bundleExtension || extension == oldVersionExtension)
            paths.append(path);
    }
    if (failure && failure != std::errc::no_such_file_or_directory)
        platform::log("cannot read the folder %@: %@", directory, failure.message().c_str());
    return paths;
}

bool LSMDesignLoader::isReachable(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

LSMDesignTemplateGroup::Designs LSMDesignLoader::load(const QString &directory, const QString &type,
                                                      QStringList *leftOut)
{
    const QStringList paths = candidates(directory);
    LSMDesignTemplateGroup::Designs designs(paths.size());
    std::vector<QString> reasons(designs.size());
    platform::concurrentPerform(designs.size(), [&](std::size_t index) {
        designs[index] = loadEntry(paths[qsizetype(index)], type, reasons[index]);
    });
    for (std::size_t index = 0; index < designs.size(); ++index) {
        if (designs[index])
            continue;
        platform::log("left out %@: %@", paths[qsizetype(index)], reasons[index]);
        if (leftOut)
            leftOut->append(paths[qsizetype(index)] + QStringLiteral(": ") + reasons[index]);
    }
    std::erase(designs, nullptr);
    return designs;
}
