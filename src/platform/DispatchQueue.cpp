#include "platform/DispatchQueue.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <QCoreApplication>
#include <QScopeGuard>
#include <QThread>

namespace platform {

// Lives on the main thread; one event for each piece of work, so that a modal loop within one goes
// on with the next.
struct DispatchQueue::Inbox : QObject
{
    void add(std::function<void()> work)
    {
        auto wake = std::make_unique<QEvent>(QEvent::User);
        {
            const std::lock_guard lock(m_mutex);
            m_work.push_back(std::move(work));
        }
        QCoreApplication::postEvent(this, wake.release());
    }

    bool event(QEvent *event) override
    {
        const auto work = takeFirstFor(event);
        if (!work)
            return QObject::event(event);
        work();
        return true;
    }

private:
    // The event too was made by the other thread before it held the mutex.
    std::function<void()> takeFirstFor(const QEvent *event)
    {
        const std::lock_guard lock(m_mutex);
        if (event->type() != QEvent::User || m_work.empty())
            return nullptr;
        auto first = std::move(m_work.front());
        m_work.pop_front();
        return first;
    }

    std::mutex m_mutex;
    std::deque<std::function<void()>> m_work;
};

DispatchQueue::DispatchQueue() : m_inbox(std::make_shared<Inbox>()) {}

DispatchQueue &DispatchQueue::mainQueue()
{
    static DispatchQueue queue;
    return queue;
}

// On the main thread, so that the inbox and its mutex are there before any other asks.
static void makeMainQueue()
{
    DispatchQueue::mainQueue();
}
Q_COREAPP_STARTUP_FUNCTION(makeMainQueue)

void DispatchQueue::async(std::function<void()> work)
{
    m_inbox->add(std::move(work));
}

bool DispatchQueue::sync(std::function<void()> work, const std::stop_token &stop)
{
    if (QThread::currentThread() == m_inbox->thread()) {
        work();
        return true;
    }
    struct Call
    {
        std::mutex mutex;
        std::condition_variable_any changed;
        enum { Waiting, Running, Done, Abandoned } state = Waiting;
    };
    const auto call = std::make_shared<Call>();
    async([call, work = std::move(work)] {
        {
            const std::lock_guard lock(call->mutex);
            if (call->state == Call::Abandoned)
                return;
            call->state = Call::Running;
        }
        const auto finish = qScopeGuard([&call] {
            const std::lock_guard lock(call->mutex);
            call->state = Call::Done;
            call->changed.notify_all();
        });
        work();
    });
    std::unique_lock lock(call->mutex);
    call->changed.wait(lock, stop, [&call] { return call->state == Call::Done; });
    if (call->state == Call::Waiting) {
        call->state = Call::Abandoned;
        return false;
    }
    call->changed.wait(lock, [&call] { return call->state == Call::Done; });
    return true;
}

} // namespace platform
