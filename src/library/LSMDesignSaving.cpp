// Saving, deleting and naming: the half of LSMDesignTemplateManager that writes to the custom
// folder.
#include "library/LSMDesignTemplateManager.h"

#include "kit/ZQImageExtensions.h"
#include "library/LSMBundlePaths.h"
#include "library/LSMDesignKeys.h"
#include "platform/Assert.h"
#include "platform/FileIO.h"
#include "platform/FileTags.h"
#include "platform/Log.h"
#include "platform/TextEncoding.h"
#include "platform/UserDefaults.h"
#include "watching/CDEvents.h"

#include <cstdio>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace LSMDesignKeys;
using LSMBundlePaths::withExtension;
using platform::Error;

namespace {

constexpr std::array labelTitles = {"Grey", "Green", "Purple", "Blue", "Yellow", "Red", "Orange"};

// What a save writes, made before anything on disk or in the design is touched: a text or a value
// that has no written form leaves everything as it was.
struct Contents
{
    QStringList urls;
    QByteArray body;
    QByteArray info;
};

std::optional<Contents> contentsOf(const LSMDesignTemplate &design, Error *error)
{
    const QString html = design.htmlSourceCode();
    const QStringList urls = LSMDesignTemplateManager::extractImageUrlsFromString(html);
    QVariantMap values = design.templateDictionary()->values();
    values.insert(remoteResources, urls);
    if (!design.isPaidTemplate())
        values.remove(store);
    const auto body = platform::encodeUtf8(html, error);
    const auto info =
        body ? platform::PropertyList::serialize(values, design.infoFormat(), error) : std::nullopt;
    return info ? std::optional(Contents{urls, *body, *info}) : std::nullopt;
}

bool writeContents(const Contents &contents, const QString &bundle, Error *error)
{
    return platform::writeFileAtomically(bundle + u'/' + bodyFile, contents.body, error) &&
           platform::writeFileAtomically(bundle + u'/' + infoFile, contents.info, error);
}

// One file at each save, and never over the one that the picture came from.
bool writePicture(const LSMDesignTemplate &design, const QString &bundle, Error *error)
{
    const QImage image = design.templateImage();
    if (image.isNull())
        return true;
    using Writer = bool (*)(const QImage &, const QString &, Error *);
    const std::pair<QLatin1StringView, Writer> kinds[] = {{pngThumbnail, zq::writeAsPNGToPath},
                                                          {jpegThumbnail, zq::writeAsJPEGToPath}};
    Error reason;
    for (const auto &[file, write] : kinds) {
        const QString target = bundle + u'/' + file;
        if (design.templateImagePath() == target)
            continue;
        if (write(image, target, &reason))
            return true;
    }
    if (error && !reason.isNull())
        *error = reason;
    return reason.isNull();
}

// A folder out of sight, beside the bundles: what takes many steps is done there.
QString asideOf(const QString &folder)
{
    return folder + QStringLiteral("/.deleted-XXXXXX");
}

// In the place of the new bundle, which is empty, in one step.
bool bringKeptFiles(LSMDesignTemplate *design, const QString &bundle, Error *error)
{
    const QString kept = design->keptFilesPath();
    if (kept.isNull())
        return true;
    const QTemporaryDir aside(asideOf(QFileInfo(bundle).path()));
    if (!aside.isValid())
        return platform::failWithErrno(error, bundle);
    const QString copy = aside.filePath(QFileInfo(bundle).fileName());
    if (!platform::copyTree(kept, copy, error))
        return false;
    if (std::rename(QFile::encodeName(copy).constData(), QFile::encodeName(bundle).constData()) !=
        0)
        return platform::failWithErrno(error, bundle);
    design->setKeptFilesPath({});
    return true;
}

// Out of sight in one step first: a bundle that cannot be removed stays whole.
bool removeWhole(const QString &path)
{
    const QFileInfo info(path);
    if (!info.isDir() || info.isSymLink())
        return QFile::remove(path);
    QTemporaryDir aside(asideOf(info.path()));
    const QString moved = aside.filePath(info.fileName());
    return aside.isValid() && QDir().rename(path, moved) && QDir(moved).removeRecursively();
}

} // namespace

bool LSMDesignTemplateManager::saveDesignTemplate(LSMDesignTemplate *design, Error *error)
{
    const auto contents = contentsOf(*design, error);
    if (!contents)
        return false;
    if (!design->templatePath().isNull())
        stopWatchingFileAtPath(design->bodyPath());
    validateCustomTemplateFolderExists();
    const QString bundle = settleBundleFolder(design, error);
    if (bundle.isNull())
        return false;
    if (!writeContents(*contents, bundle, error)) {
        if (design->isOldVersion())
            QDir(bundle).removeRecursively();
        return false;
    }
    design->noteBodyOnDisk(contents->body);
    design->setRemoteResources(contents->urls);
    if (!design->isPaidTemplate())
        design->templateDictionary()->removeValue(store);
    if (design->isOldVersion())
        finishConversion(design, bundle);
    if (!writePicture(*design, bundle, error))
        return false;

    const qint64 label =
        platform::UserDefaults::standardUserDefaults().integer(QStringLiteral("finderLabelInt"));
    if (design->isPaidTemplate() && label >= 1 && label <= qint64(labelTitles.size()))
        setFinderLabel(int(label), bundle);
    startWatchingFileAtPath(design->bodyPath());
    return true;
}

// A folder that someone removed is made again; one that cannot be made leaves the design as it was.
QString LSMDesignTemplateManager::settleBundleFolder(LSMDesignTemplate *design, Error *error) const
{
    const bool hasBundle = !design->templatePath().isNull() && !design->isOldVersion();
    const QString bundle =
        hasBundle ? design->templatePath()
                  : pathForCustomTemplates() + u'/' + freeFolderName(design->templateName());
    // A new one must not be there yet, under whatever spelling the file system takes for the same.
    if (hasBundle ? !QDir().mkpath(bundle) : !QDir().mkdir(bundle)) {
        platform::failWithErrno(error, bundle);
        return {};
    }
    if (!hasBundle && !bringKeptFiles(design, bundle, error)) {
        QDir().rmdir(bundle);
        return {};
    }
    if (!design->isOldVersion())
        design->setTemplatePath(bundle);
    return bundle;
}

// The old file goes aside only when its bundle can be loaded: whatever happens before, the design
// is still found at the next start.
void LSMDesignTemplateManager::finishConversion(LSMDesignTemplate *design, const QString &bundle)
{
    const QString oldFile = design->templatePath();
    if (!QFile::rename(oldFile, withExtension(oldFile, convertedExtension)))
        platform::log("could not put %@ aside", oldFile);
    design->setTemplatePath(bundle);
    design->setVersion(LSMDesignTemplate::Version::Bundle);
}

QString LSMDesignTemplateManager::freeFolderName(const QString &title) const
{
    const QString folder =
        withExtension(LSMBundlePaths::folderNameForTitle(title), bundleExtension);
    return designBundleFolder(folder, pathForCustomTemplates()) ? saveNameForDesignName(title)
                                                                : folder;
}

QString LSMDesignTemplateManager::saveNameForDesignName(const QString &name) const
{
    const QString base = LSMBundlePaths::folderNameForTitle(name);
    for (qint64 counter = 1;; ++counter) {
        const QString folder = withExtension(
            platform::format(QStringLiteral("%@ %ld"), base, counter), bundleExtension);
        if (!designBundleFolder(folder, pathForCustomTemplates()))
            return folder;
    }
}

bool LSMDesignTemplateManager::designBundleFolder(const QString &folder,
                                                  const QString &existsAtPath)
{
    return QDir(existsAtPath)
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                   QDir::NoSort)
        .contains(folder.mid(folder.lastIndexOf(u'/') + 1));
}

void LSMDesignTemplateManager::validateCustomTemplateFolderExists() const
{
    QDir().mkpath(pathForCustomTemplates());
}

void LSMDesignTemplateManager::setFinderLabel(int label, const QString &forFolderAtPath)
{
    PLATFORM_ASSERT(label >= 1 && label <= int(labelTitles.size()), "no such label: %d", label);
    QStringList tags = platform::fileTags(forFolderAtPath).split(u',', Qt::SkipEmptyParts);
    for (const char *title : labelTitles)
        tags.removeAll(QString::fromLatin1(title));
    tags.append(QString::fromLatin1(labelTitles[std::size_t(label - 1)]));
    platform::setFileTags(forFolderAtPath, tags.join(u','));
}

bool LSMDesignTemplateManager::deleteDesignTemplate(LSMDesignTemplate *design)
{
    if (!design->isCustomDesignTemplate())
        return false;
    const QString path = design->templatePath();
    if (!path.isNull())
        stopWatchingFileAtPath(design->bodyPath());
    if (!path.isNull() && !removeWhole(path))
        platform::log("could not remove all of %@", path);
    designTemplateGroupForType(customType)->removeDesign(design);
    return true;
}
