#include "library/LSMDeletedDesigns.h"

#include "kit/ZQBundleExtensions.h"
#include "platform/FileIO.h"

#include <cerrno>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>

namespace {

const QString lockName = QStringLiteral("/lock");

QString cachesFolder()
{
    return zq::applicationCachesDirectory(platform::Bundle::mainBundle());
}

// It is held by the process that uses the folder, however long.
std::unique_ptr<QLockFile> lockOf(const QString &folder)
{
    auto lock = std::make_unique<QLockFile>(folder + lockName);
    lock->setStaleLockTime(0);
    return lock;
}

void removeLeftovers()
{
    const QDir caches(cachesFolder());
    for (const QString &name : caches.entryList({QStringLiteral("Deleted-*")}, QDir::Dirs)) {
        const QString folder = caches.filePath(name);
        if (const auto lock = lockOf(folder); lock->tryLock(0)) {
            lock->unlock();
            QDir(folder).removeRecursively();
        }
    }
}

} // namespace

LSMDeletedDesigns::LSMDeletedDesigns()
{
    removeLeftovers();
}

LSMDeletedDesigns::~LSMDeletedDesigns() = default;

QString LSMDeletedDesigns::newFolder(platform::Error *error)
{
    if (!m_folder) {
        QDir().mkpath(cachesFolder());
        auto folder =
            std::make_unique<QTemporaryDir>(cachesFolder() + QStringLiteral("/Deleted-XXXXXX"));
        auto lock = lockOf(folder->path());
        errno = 0;
        if (!folder->isValid() || !lock->tryLock(0)) {
            errno = errno ? errno : EACCES;
            platform::failWithErrno(error, cachesFolder());
            return {};
        }
        m_folder = std::move(folder);
        m_lock = std::move(lock);
    }
    return m_folder->filePath(QString::number(++m_count));
}

bool LSMDeletedDesigns::keep(std::shared_ptr<LSMDesignTemplate> design, platform::Error *error)
{
    const QString path = design->templatePath();
    QString files = design->keptFilesPath();
    if (!path.isNull() && QFileInfo::exists(path)) {
        files = newFolder(error);
        if (files.isNull())
            return false;
        if (!platform::copyTree(QFileInfo(path).canonicalFilePath(), files, error)) {
            QDir(files).removeRecursively();
            return false;
        }
    }
    (void)design->templateImage(); // is read while its file is surely there
    m_entries.push_back({std::move(design), files});
    return true;
}

QString LSMDeletedDesigns::titleOfLast() const
{
    return isEmpty() ? QString() : m_entries.back().design->templateName();
}

std::shared_ptr<LSMDesignTemplate> LSMDeletedDesigns::takeLast()
{
    if (isEmpty())
        return nullptr;
    const auto [design, files] = std::move(m_entries.back());
    m_entries.pop_back();
    const QString path = design->templatePath();
    const QString picture = design->templateImagePath();
    if (!path.isNull() && picture.startsWith(path + u'/'))
        design->setTemplateImagePath(files + picture.mid(path.size()));
    design->setKeptFilesPath(QFileInfo(files).isDir() ? files : QString());
    design->setTemplatePath({});
    design->setVersion(LSMDesignTemplate::Version::Bundle);
    design->setTemplateShouldBeSaved(true);
    return design;
}
