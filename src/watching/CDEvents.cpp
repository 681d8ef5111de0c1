#include "watching/CDEvents.h"

#include "platform/Assert.h"
#include "platform/FileEventStream.h"
#include "watching/CDEventsDelegate.h"

#include <QDir>

using platform::FileEvent;
using platform::FileEventStream;

namespace {

QString pathOf(const QUrl &url)
{
    return QDir::cleanPath(url.toLocalFile());
}

} // namespace

CDEvents::CDEvents(const QList<QUrl> &urls, EventBlock block, QObject *onRunLoop,
                   quint64 sinceEventIdentifier, double notificationLantency, SubDirs subDirs,
                   const QList<QUrl> &excludeURLs, quint32 streamCreationFlags)
    : m_eventBlock(std::move(block)), m_runLoop(onRunLoop ? onRunLoop : this), m_watchedUrls(urls),
      m_excludedUrls(excludeURLs), m_sinceEventIdentifier(sinceEventIdentifier),
      m_notificationLatency(notificationLantency), m_subDirs(subDirs),
      m_eventStreamCreationFlags(streamCreationFlags)
{
    if (urls.isEmpty() || !m_eventBlock)
        throw platform::Exception{
            QStringLiteral("NSInvalidArgumentException"),
            QStringLiteral("Invalid arguments passed to CDEvents init-method.")};
    createStream();
}

CDEvents::CDEvents(const QList<QUrl> &urls, CDEventsDelegate *delegate, QObject *onRunLoop,
                   quint64 sinceEventIdentifier, double notificationLantency, SubDirs subDirs,
                   const QList<QUrl> &excludeURLs, quint32 streamCreationFlags)
    : CDEvents(urls,
               delegate ? EventBlock([](CDEvents *watcher, const CDEvent &event) {
                   if (watcher->delegate())
                       watcher->delegate()->urlWatcherEventOccurred(watcher, event);
               })
                        : EventBlock(),
               onRunLoop, sinceEventIdentifier, notificationLantency, subDirs, excludeURLs,
               streamCreationFlags)
{
    m_delegate = delegate;
}

CDEvents::~CDEvents() = default;

std::unique_ptr<CDEvents> CDEvents::copy() const
{
    auto result = std::make_unique<CDEvents>(m_watchedUrls, m_eventBlock, nullptr,
                                             m_sinceEventIdentifier, m_notificationLatency,
                                             m_subDirs, m_excludedUrls, m_eventStreamCreationFlags);
    result->m_delegate = m_delegate;
    return result;
}

void CDEvents::createStream()
{
    QStringList paths;
    for (const QUrl &url : m_watchedUrls)
        paths << pathOf(url);
    const auto deliver = [this](const std::vector<FileEvent> &events) {
        const QPointer<CDEvents> alive(this);
        std::optional<CDEvent> last;
        for (const FileEvent &event : events) {
            if (!alive)
                return;
            if (isDropped(event.path))
                continue;
            last.emplace(event.identifier, QDateTime::currentDateTime(),
                         QUrl::fromLocalFile(event.path), event.flags);
            if (m_runLoop)
                QMetaObject::invokeMethod(m_runLoop.data(),
                                          [alive, block = m_eventBlock, one = *last] {
                                              if (alive)
                                                  block(alive, one);
                                          });
        }
        if (alive && last)
            m_lastEvent = last;
    };
    m_stream = std::make_unique<FileEventStream>(
        paths, m_sinceEventIdentifier, m_notificationLatency, m_eventStreamCreationFlags, deliver);
    if (!m_stream->start())
        throw platform::Exception{QStringLiteral("CDEventsEventStreamCreationFailureException"),
                                  QStringLiteral("Failed to create event stream.")};
}

bool CDEvents::isDropped(const QString &path) const
{
    if (m_subDirs == SubDirs::Ignore)
        return std::ranges::none_of(m_watchedUrls,
                                    [&](const QUrl &url) { return pathOf(url) == path; });
    return std::ranges::any_of(m_excludedUrls,
                               [&](const QUrl &url) { return path.startsWith(pathOf(url)); });
}

quint64 CDEvents::currentEventIdentifier()
{
    return FileEventStream::currentEventId();
}

void CDEvents::flushSynchronously()
{
    m_stream->flushSync();
}

void CDEvents::flushAsynchronously()
{
    m_stream->flushAsync();
}

QString CDEvents::streamDescription() const
{
    return m_stream->description();
}
