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

    /// False if the system makes no watch for the folder that the path stands in.
    bool isWatched() const { return m_isWatched; }

private:
    using Change = DirectoryWatch::Change;
    using Entry = DirectoryWatch::Entry;
    using Listener = std::function<void(Change change, const QByteArray &name, Entry entry)>;

    void arm();
    bool watchName(const QString &path);
    bool watchFolderAbove();
    void watchTree();
    bool watch(const QString &folder, const Listener &listener);
    void folderDidChange(Change change);

    QString m_path;
    Handler m_handler;
    bool m_isWatched = false;
    std::vector<std::shared_ptr<DirectoryWatch>> m_watches;
    std::vector<QMetaObject::Connection> m_connections;
};

} // namespace platform
