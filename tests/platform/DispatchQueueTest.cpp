#include "platform/DispatchQueue.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QThread>
#include <thread>

using platform::DispatchQueue;

TEST(DispatchQueueTest, WorkReachesTheMainThreadInItsOrder)
{
    DispatchQueue &queue = DispatchQueue::mainQueue();
    std::vector<int> done; // of the main thread
    bool isMain = true;
    const auto work = [&](int number) {
        return [&, number] {
            isMain = isMain && QThread::currentThread() == qApp->thread();
            done.push_back(number);
        };
    };
    std::jthread other([&] {
        for (int number = 0; number < 1000; ++number)
            number % 100 == 99 ? void(queue.sync(work(number))) : queue.async(work(number));
    });
    ASSERT_TRUE(support::waitUntil([&] { return done.size() == 1000; }));
    EXPECT_TRUE(isMain);
    EXPECT_TRUE(std::is_sorted(done.begin(), done.end()));
    EXPECT_TRUE(queue.sync(work(1000))) << "at once on the main thread";
    EXPECT_EQ(done.size(), 1001U);
}

TEST(DispatchQueueTest, AModalLoopWithinWorkGoesOnWithTheNext)
{
    bool inner = false;
    bool outer = false;
    DispatchQueue::mainQueue().async([&] { outer = support::waitUntil([&] { return inner; }); });
    DispatchQueue::mainQueue().async([&] { inner = true; });
    EXPECT_TRUE(support::waitUntil([&] { return outer; }));
}

TEST(DispatchQueueTest, AStopEndsTheWaitAndTheWorkIsNeverDone)
{
    bool isDone = false;
    std::atomic<int> result = -1;
    {
        // The main thread waits here for the other to end, and the other for the main thread.
        const std::jthread other([&](const std::stop_token &stop) {
            result = DispatchQueue::mainQueue().sync([&] { isDone = true; }, stop);
        });
    }
    EXPECT_EQ(result, 0);
    support::settle();
    EXPECT_FALSE(isDone);
}
