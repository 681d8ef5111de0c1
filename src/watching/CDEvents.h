#pragma once

#include "platform/FileEventStream.h"
#include "watching/CDEvent.h"
#include <functional>
#include <memory>
#include <optional>
#include <QList>
#include <QObject>
#include <QPointer>

class CDEventsDelegate;

namespace platform {
class FileEventStream;
}

/// Watches files and folders from its construction to its destruction, and calls a block, or a
/// delegate, with each event, in order. It may be destroyed within the call. Main thread; the block
/// is called on the thread of `onRunLoop`, at once if that is the main thread.
class CDEvents : public QObject
{
    Q_OBJECT

public:
    using EventBlock = std::function<void(CDEvents *watcher, const CDEvent &event)>;

    static constexpr quint64 sinceNow = ~quint64(0);
    static constexpr double defaultLatency = 3.0; ///< Seconds from an event to its delivery.
    static constexpr quint32 defaultCreationFlags =
        platform::FileEventStream::NoDefer | platform::FileEventStream::WatchRoot;

    enum class SubDirs { Watch, Ignore };

    /// An empty list or a null block is the exception NSInvalidArgumentException, what cannot be
    /// watched the one named CDEventsEventStreamCreationFailureException. `onRunLoop`: borrowed;
    /// null stands for this object. Excluded URLs count only where sub-directories are watched.
    CDEvents(const QList<QUrl> &urls, EventBlock block, QObject *onRunLoop = nullptr,
             quint64 sinceEventIdentifier = sinceNow, double notificationLantency = defaultLatency,
             SubDirs subDirs = SubDirs::Watch, const QList<QUrl> &excludeURLs = {},
             quint32 streamCreationFlags = defaultCreationFlags);
    CDEvents(const QList<QUrl> &urls, CDEventsDelegate *delegate, QObject *onRunLoop = nullptr,
             quint64 sinceEventIdentifier = sinceNow, double notificationLantency = defaultLatency,
             SubDirs subDirs = SubDirs::Watch, const QList<QUrl> &excludeURLs = {},
             quint32 streamCreationFlags = defaultCreationFlags);
    ~CDEvents() override;

    std::unique_ptr<CDEvents> copy() const; ///< With the same settings, watching from now on.

    double notificationLatency() const { return m_notificationLatency; }
    quint64 sinceEventIdentifier() const { return m_sinceEventIdentifier; }
    bool ignoreEventsFromSubDirectories() const { return m_subDirs == SubDirs::Ignore; }
    const std::optional<CDEvent> &lastEvent() const { return m_lastEvent; }
    const QList<QUrl> &watchedURLs() const { return m_watchedUrls; }
    const QList<QUrl> &excludedURLs() const { return m_excludedUrls; }
    CDEventsDelegate *delegate() const { return m_delegate; }
    void setDelegate(CDEventsDelegate *delegate) { m_delegate = delegate; }

    static quint64 currentEventIdentifier();
    void flushSynchronously();
    void flushAsynchronously();
    QString streamDescription() const;

private:
    void createStream();
    bool isDropped(const QString &path) const;

    EventBlock m_eventBlock;
    QPointer<QObject> m_runLoop;
    QList<QUrl> m_watchedUrls;
    QList<QUrl> m_excludedUrls;
    quint64 m_sinceEventIdentifier;
    double m_notificationLatency;
    SubDirs m_subDirs;
    quint32 m_eventStreamCreationFlags;
    CDEventsDelegate *m_delegate = nullptr;
    std::optional<CDEvent> m_lastEvent;
    std::unique_ptr<platform::FileEventStream> m_stream;
};
