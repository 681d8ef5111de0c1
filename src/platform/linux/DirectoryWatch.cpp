#include "platform/DirectoryWatch.h"

#include "platform/Log.h"

#include <QFile>
#include <QHash>
#include <QSocketNotifier>
#include <sys/inotify.h>
#include <unistd.h>

namespace platform {

namespace {

using Change = DirectoryWatch::Change;

constexpr struct
{
    quint32 mask;
    Change change;
} changes[] = {
    {IN_CREATE, Change::Created},     {IN_DELETE, Change::Removed},
    {IN_MOVED_TO, Change::MovedHere}, {IN_MOVED_FROM, Change::MovedAway},
    {IN_MODIFY, Change::Modified},    {IN_CLOSE_WRITE, Change::Modified},
    {IN_DELETE_SELF, Change::Gone},   {IN_MOVE_SELF, Change::Gone},
    {IN_UNMOUNT, Change::Unmounted},
};

constexpr quint32 whatIsWatched = IN_CREATE | IN_DELETE | IN_MOVED_TO | IN_MOVED_FROM | IN_MODIFY |
                                  IN_CLOSE_WRITE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

} // namespace

/// The descriptor and who listens to what comes from it.
class DirectoryWatches : public QObject
{
public:
    static DirectoryWatches &shared()
    {
        static DirectoryWatches watches;
        return watches;
    }

    DirectoryWatches() : m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        if (m_inotify < 0)
            log("no files can be watched: %@", QString::fromLocal8Bit(std::strerror(errno)));
    }
    ~DirectoryWatches() override
    {
        if (m_inotify >= 0)
            ::close(m_inotify);
    }

    std::shared_ptr<DirectoryWatch> of(const QString &folder)
    {
        listen();
        const int descriptor =
            m_inotify < 0 ? -1
                          : ::inotify_add_watch(m_inotify, QFile::encodeName(folder).constData(),
                                                whatIsWatched);
        if (descriptor < 0) {
            if (errno == ENOSPC || errno == ENOMEM)
                log("too many folders to watch: %@", folder);
            return nullptr;
        }
        std::weak_ptr<DirectoryWatch> &known = m_watches[descriptor];
        std::shared_ptr<DirectoryWatch> watch = known.lock();
        if (!watch) {
            watch.reset(new DirectoryWatch(descriptor));
            known = watch;
        }
        return watch;
    }

    void forget(int descriptor)
    {
        m_watches.remove(descriptor);
        ::inotify_rm_watch(m_inotify, descriptor);
    }

    void drain()
    {
        alignas(inotify_event) char buffer[64 * 1024];
        for (ssize_t size; (size = ::read(m_inotify, buffer, sizeof buffer)) > 0;) {
            for (const char *at = buffer; at < buffer + size;) {
                const auto &event = *reinterpret_cast<const inotify_event *>(at);
                at += sizeof(inotify_event) + event.len;
                tell(event);
            }
        }
    }

private:
    // With the first watch: a program that watches nothing needs no event loop.
    void listen()
    {
        if (m_notifier || m_inotify < 0)
            return;
        m_notifier = std::make_unique<QSocketNotifier>(m_inotify, QSocketNotifier::Read);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, &DirectoryWatches::drain);
    }

    void tell(const inotify_event &event)
    {
        if (event.mask & IN_Q_OVERFLOW) {
            const auto all = m_watches; // receivers make and drop watches
            for (const auto &watch : all)
                emitTo(watch.lock(), Change::Lost, {}, DirectoryWatch::Entry::Folder);
            return;
        }
        const std::shared_ptr<DirectoryWatch> watch = m_watches.value(event.wd).lock();
        if (!watch)
            return;
        if (event.mask & IN_IGNORED) {
            watch->m_descriptor = -1;
            m_watches.remove(event.wd);
            return;
        }
        const auto entry =
            event.mask & IN_ISDIR ? DirectoryWatch::Entry::Folder : DirectoryWatch::Entry::File;
        const QByteArray name(event.len > 0 ? event.name : "");
        for (const auto &[mask, change] : changes) {
            if (event.mask & mask)
                emitTo(watch, change, name, entry);
        }
    }

    static void emitTo(const std::shared_ptr<DirectoryWatch> &watch, Change change,
                       const QByteArray &name, DirectoryWatch::Entry entry)
    {
        if (watch)
            Q_EMIT watch->changed(change, name, entry);
    }

    int m_inotify;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QHash<int, std::weak_ptr<DirectoryWatch>> m_watches; ///< By the system's numbers.
};

std::shared_ptr<DirectoryWatch> DirectoryWatch::of(const QString &folder)
{
    return DirectoryWatches::shared().of(folder);
}

DirectoryWatch::~DirectoryWatch()
{
    if (m_descriptor >= 0)
        DirectoryWatches::shared().forget(m_descriptor);
}

void DirectoryWatch::drain()
{
    DirectoryWatches::shared().drain();
}

} // namespace platform
