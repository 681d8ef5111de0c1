#pragma once

#include <functional>
#include <memory>
#include <stop_token>

namespace platform {

/// Where other threads hand in work for the main thread, which does it in the order it came. What
/// is handed over passes a mutex; Qt only wakes the main thread. Any thread.
class DispatchQueue
{
public:
    /// There as soon as the application object is.
    static DispatchQueue &mainQueue();

    /// Returns at once. Work that is still waiting when the event loop ends is not done.
    void async(std::function<void()> work);

    /// Returns when the work is done: true. On the main thread that is at once. When `stop` is
    /// asked for before the work began, it never will: false.
    bool sync(std::function<void()> work, const std::stop_token &stop = {});

private:
    DispatchQueue();

    struct Inbox;
    std::shared_ptr<Inbox> m_inbox;
};

} // namespace platform
