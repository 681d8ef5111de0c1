#include "platform/FileEventStream.h"

#include "platform/DirectoryWatch.h"
#include "platform/WatchedPath.h"

#include <QPointer>

namespace platform {

namespace {

quint64 lastIdentifier = 0;

} // namespace

FileEventStream::FileEventStream(const QStringList &paths, quint64 sinceEvent, double latency,
                                 quint32 flags, Callback callback)
    : m_paths(paths), m_sinceEvent(sinceEvent), m_latency(latency), m_flags(flags),
      m_callback(std::move(callback))
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer); // a coarse one is up to a twentieth early or late
    connect(&m_timer, &QTimer::timeout, this, &FileEventStream::deliver);
}

FileEventStream::~FileEventStream() = default;

bool FileEventStream::start()
{
    DirectoryWatch::drain(); // what was before is not told
    for (const QString &path : m_paths) {
        auto watched = std::make_unique<WatchedPath>(
            path, [this](const QString &at, quint32 flags) { note(at, flags); });
        if (watched->isWatched())
            m_watched.push_back(std::move(watched));
    }
    if (!m_watched.empty() && m_sinceEvent != SinceNow)
        note(m_paths.constFirst(), FileEventFlag::HistoryDone);
    return !m_watched.empty();
}

void FileEventStream::stop()
{
    m_timer.stop();
    m_watched.clear();
    m_pending.clear();
    m_places.clear();
}

void FileEventStream::note(const QString &path, quint32 flags)
{
    if (!(m_flags & WatchRoot))
        flags &= ~FileEventFlag::RootChanged;
    const auto known = m_places.constFind(path);
    if (known == m_places.cend()) {
        m_places.insert(path, m_pending.size());
        m_pending.push_back({++lastIdentifier, path, flags});
    } else {
        m_pending[*known].identifier = ++lastIdentifier;
        m_pending[*known].flags |= flags;
    }
    if (!m_timer.isActive())
        m_timer.start(qRound(qMax(0.0, m_latency) * 1000));
}

void FileEventStream::flushSync()
{
    DirectoryWatch::drain();
    m_timer.stop();
    deliver();
}

void FileEventStream::flushAsync()
{
    QTimer::singleShot(0, this, &FileEventStream::flushSync);
}

void FileEventStream::deliver()
{
    m_places.clear();
    const std::vector<FileEvent> events = std::exchange(m_pending, {});
    const Callback callback = m_callback; // outlives a stream that it destroys
    if (!events.empty())
        callback(events);
}

QString FileEventStream::description() const
{
    return QStringLiteral("FileEventStream (%1): latency %2 s, flags %3, paths: %4")
        .arg(m_watched.empty() ? u"stopped" : u"running")
        .arg(m_latency)
        .arg(m_flags)
        .arg(m_paths.join(QStringLiteral(", ")));
}

quint64 FileEventStream::currentEventId()
{
    return lastIdentifier;
}

} // namespace platform
