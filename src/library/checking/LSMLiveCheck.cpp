#include "library/checking/LSMLiveCheck.h"

#include "platform/DispatchQueue.h"

#include <condition_variable>
#include <mutex>
#include <thread>

struct LSMLiveCheck::Worker
{
    struct Request
    {
        quint64 number;
        QString html;
        LSMHtmlCheck::Context context;
        std::stop_source stop;
    };

    explicit Worker(const std::shared_ptr<LSMLiveCheck *> &owner)
        : m_owner(owner), m_thread([this](const std::stop_token &quit) { run(quit); })
    {
    }

    ~Worker() { replace(std::nullopt); }
    Q_DISABLE_COPY_MOVE(Worker)

    /// Ends what goes on and puts the request in its place.
    void replace(std::optional<Request> request)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_running.request_stop();
            m_next = std::move(request);
        }
        m_changed.notify_all();
    }

private:
    std::optional<Request> take(const std::stop_token &quit)
    {
        std::unique_lock lock(m_mutex);
        if (!m_changed.wait(lock, quit, [this] { return m_next.has_value(); }))
            return std::nullopt;
        m_running = m_next->stop;
        return std::exchange(m_next, std::nullopt);
    }

    void run(const std::stop_token &quit)
    {
        while (const std::optional<Request> request = take(quit)) {
            const std::stop_token stop = request->stop.get_token();
            LSMFindings findings = LSMHtmlCheck::findings(request->html, request->context, stop);
            if (stop.stop_requested())
                continue;
            platform::DispatchQueue::mainQueue().async(
                [owner = m_owner, number = request->number, findings = std::move(findings)] {
                    if (const auto self = owner.lock())
                        (*self)->finish(number, findings);
                });
        }
    }

    std::weak_ptr<LSMLiveCheck *> m_owner;
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::optional<Request> m_next;
    std::stop_source m_running;
    std::jthread m_thread; // the last: it ends before what it uses
};

LSMLiveCheck::LSMLiveCheck(QObject *parent)
    : QObject(parent), m_self(std::make_shared<LSMLiveCheck *>(this))
{
    m_worker = std::make_unique<Worker>(m_self);
}

LSMLiveCheck::~LSMLiveCheck() = default;

void LSMLiveCheck::check(const QString &html, const LSMHtmlCheck::Context &context)
{
    m_worker->replace(Worker::Request{++m_number, html, context, {}});
}

void LSMLiveCheck::cancel()
{
    ++m_number;
    m_worker->replace(std::nullopt);
}

void LSMLiveCheck::finish(quint64 number, const LSMFindings &findings)
{
    if (number == m_number)
        Q_EMIT didCheck(findings);
}
