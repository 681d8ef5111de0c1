#include "platform/WatchedPath.h"

#include "platform/FileEventStream.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

namespace platform {

namespace {

using enum DirectoryWatch::Change;

bool isStructural(DirectoryWatch::Change change)
{
    return change == Created || change == Removed || change == MovedHere || change == MovedAway;
}

bool isOfFolder(DirectoryWatch::Change change)
{
    return change == Gone || change == Unmounted || change == Lost;
}

quint32 flagsOf(DirectoryWatch::Change change, DirectoryWatch::Entry entry)
{
    static constexpr std::pair<DirectoryWatch::Change, quint32> flags[] = {
        {Created, FileEventFlag::ItemCreated},
        {Removed, FileEventFlag::ItemRemoved},
        {MovedHere, FileEventFlag::ItemRenamed},
        {MovedAway, FileEventFlag::ItemRenamed},
        {Modified, FileEventFlag::ItemModified},
        {Gone, FileEventFlag::RootChanged},
        {Unmounted, FileEventFlag::RootChanged | FileEventFlag::Unmount},
        {Lost, FileEventFlag::MustScanSubDirs | FileEventFlag::KernelDropped},
    };
    const auto found = std::ranges::find(flags, change, [](const auto &row) { return row.first; });
    if (isOfFolder(change))
        return found->second;
    return found->second | (entry == DirectoryWatch::Entry::Folder ? FileEventFlag::ItemIsDir
                                                                   : FileEventFlag::ItemIsFile);
}

} // namespace

WatchedPath::WatchedPath(const QString &path, Handler handler)
    : m_path(QDir::cleanPath(path)), m_handler(std::move(handler))
{
    arm();
}

// Anew from what stands there now. Watches that go on are kept meanwhile.
void WatchedPath::arm()
{
    const auto former = std::exchange(m_watches, {});
    for (const QMetaObject::Connection &connection : std::exchange(m_connections, {}))
        disconnect(connection);
    const QFileInfo info(m_path);
    const bool isNameWatched = watchName(m_path);
    const bool isFolderWatched = watchFolderAbove();
    m_isWatched = isNameWatched || (isFolderWatched && !QFileInfo::exists(info.path()));
    const QString target = info.isSymLink() ? info.canonicalFilePath() : QString();
    if (!target.isEmpty())
        watchName(target);
    if (info.isDir())
        watchTree();
}

bool WatchedPath::watch(const QString &folder, const Listener &listener)
{
    const std::shared_ptr<DirectoryWatch> watch = DirectoryWatch::of(folder);
    if (!watch)
        return false;
    m_watches.push_back(watch);
    m_connections.push_back(connect(watch.get(), &DirectoryWatch::changed, this, listener));
    return true;
}

bool WatchedPath::watchName(const QString &path)
{
    const QFileInfo info(path);
    const QByteArray name = QFile::encodeName(info.fileName());
    return watch(info.path(), [this, name](Change change, const QByteArray &at, Entry entry) {
        if (isOfFolder(change))
            return folderDidChange(change);
        if (at != name)
            return;
        if (isStructural(change))
            arm();
        m_handler(m_path, flagsOf(change, entry));
    });
}

bool WatchedPath::watchFolderAbove()
{
    const QFileInfo folder(QFileInfo(m_path).path());
    const QByteArray name = QFile::encodeName(folder.fileName());
    return watch(folder.path(), [this, name](Change change, const QByteArray &at, Entry) {
        if (at == name && isStructural(change))
            folderDidChange(Gone);
    });
}

void WatchedPath::folderDidChange(Change change)
{
    if (change != Lost)
        arm();
    m_handler(m_path, flagsOf(change, Entry::Folder));
}

void WatchedPath::watchTree()
{
    const auto watchEntries = [this](const QString &folder) {
        watch(folder, [this, folder](Change change, const QByteArray &name, Entry entry) {
            if (isOfFolder(change))
                return folderDidChange(change);
            if (entry == Entry::Folder && isStructural(change))
                arm();
            m_handler(folder + u'/' + QFile::decodeName(name), flagsOf(change, entry));
        });
    };
    watchEntries(m_path);
    for (QDirIterator folders(m_path,
                              QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot | QDir::NoSymLinks,
                              QDirIterator::Subdirectories);
         folders.hasNext();)
        watchEntries(folders.next());
}

} // namespace platform
