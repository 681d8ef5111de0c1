#pragma once

#include "platform/DirectoryWatch.h"
#include <functional>
#include <vector>

namespace platform {

/// One path of a FileEventStream and the folders that have to be watched for it: the one it stands
/// in and the one above, which both may be replaced; where it is a link, the one its target stands
/// in; where it is a folder, itself and all folders in it.
class WatchedPath : public QObject
{
    Q_OBJECT

public:
    using Handler = std::function<void(const QString &path, quint32 flags)>;

    WatchedPath(const QString &path, Handler handler);

    bool isWatched() const { return !m_watches.empty(); }

private:
    using Change = DirectoryWatch::Change;
    using Entry = DirectoryWatch::Entry;
    using Listener = std::function<void(Change change, const QByteArray &name, Entry entry)>;

    void arm();
    void watchName(const QString &path);
    void watchFolderAbove();
    void watchTree();
    void watch(const QString &folder, const Listener &listener);
    void folderDidChange(Change change);

    QString m_path;
    Handler m_handler;
    std::vector<std::shared_ptr<DirectoryWatch>> m_watches;
    std::vector<QMetaObject::Connection> m_connections;
};

} // namespace platform
