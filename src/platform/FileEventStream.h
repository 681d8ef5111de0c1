#pragma once

#include <functional>
#include <memory>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <vector>

namespace platform {

class WatchedPath;

/// What has happened to a file; several of these may come in one event.
namespace FileEventFlag {
inline constexpr quint32 MustScanSubDirs = 1; ///< Events were lost: anything may have changed.
inline constexpr quint32 UserDropped = 2;     ///< ... here; never sent.
inline constexpr quint32 KernelDropped = 4;   ///< ... by the kernel.
inline constexpr quint32 EventIdsWrapped = 8; ///< Never sent.
inline constexpr quint32 HistoryDone = 16;
inline constexpr quint32 RootChanged = 32; ///< A folder on the way to the watched path.
inline constexpr quint32 Mount = 64;       ///< Never sent.
inline constexpr quint32 Unmount = 128;
inline constexpr quint32 ItemCreated = 256;
inline constexpr quint32 ItemRemoved = 512;
inline constexpr quint32 ItemInodeMetaMod = 1024; ///< Never sent.
inline constexpr quint32 ItemRenamed = 2048;      ///< To or from this path.
inline constexpr quint32 ItemModified = 4096;
inline constexpr quint32 ItemFinderInfoMod = 8192; ///< Never sent.
inline constexpr quint32 ItemChangeOwner = 16384;  ///< Never sent.
inline constexpr quint32 ItemXattrMod = 32768;     ///< Never sent.
inline constexpr quint32 ItemIsFile = 65536;
inline constexpr quint32 ItemIsDir = 131072;
inline constexpr quint32 ItemIsSymlink = 262144; ///< Never sent.
} // namespace FileEventFlag

struct FileEvent
{
    quint64 identifier = 0; ///< Ascending over all streams of the process.
    QString path;
    quint32 flags = 0; ///< FileEventFlag.
};

/// Events of files and folders, those in a folder's folders included, in batches: what happens to a
/// path within the latency is one event. A path need not exist; it may be replaced, removed and
/// made again, reached through a symbolic link (whose target counts as the path), or lie in a
/// folder that is replaced. A folder that is moved away with the one it stood in is not found
/// again. Changes of permissions or dates are no events.
///
/// Owned by whoever made it; it may be destroyed by its own callback. Main thread.
class FileEventStream : public QObject
{
    Q_OBJECT

public:
    using Callback = std::function<void(const std::vector<FileEvent> &events)>;
    static constexpr quint64 SinceNow = ~quint64(0);
    static constexpr quint32 NoDefer = 1;   ///< Flag without a meaning here, as all others.
    static constexpr quint32 WatchRoot = 4; ///< Flag that asks for RootChanged.

    /// There is no
    /// memory of what was before: a stream that is to begin with an earlier event says HistoryDone
    /// and goes on from now. `latency` in seconds.
    FileEventStream(const QStringList &paths, quint64 sinceEvent, double latency, quint32 flags,
                    Callback callback);
    ~FileEventStream() override;

    /// False if not one of the paths can be watched.
    bool start();
    void stop(); ///< What was not delivered yet is dropped.

    void flushSync();  ///< Delivers what has happened so far before it returns.
    void flushAsync(); ///< Soon, without waiting for the latency.

    QString description() const;

    static quint64 currentEventId(); ///< Of the last event; 0 before the first.

private:
    void note(const QString &path, quint32 flags);
    void deliver();

    QStringList m_paths;
    quint64 m_sinceEvent;
    double m_latency;
    quint32 m_flags;
    Callback m_callback;
    std::vector<std::unique_ptr<WatchedPath>> m_watched;
    std::vector<FileEvent> m_pending;
    QHash<QString, size_t> m_places; ///< In the former, by path.
    QTimer m_timer;
};

} // namespace platform
