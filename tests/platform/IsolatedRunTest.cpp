#include "platform/IsolatedRun.h"

#include "support/TestSupport.h"
#include <gtest/gtest.h>
#include <QElapsedTimer>
#include <thread>

using namespace std::chrono_literals;

namespace {

QByteArray endless()
{
    for (;;)
        std::this_thread::sleep_for(1s);
}

TEST(IsolatedRun, GivesWhatTheWorkGives)
{
    int calls = 0;
    const auto large = platform::runIsolated(
        [&calls] {
            ++calls;
            return QByteArray(3 << 20, 'x');
        },
        1min);
    EXPECT_EQ(large, QByteArray(3 << 20, 'x')) << "more than a pipe holds";
    EXPECT_EQ(calls, 0) << "done in a copy";
    EXPECT_EQ(platform::runIsolated([] { return QByteArray(); }, 1min), QByteArray());
}

TEST(IsolatedRun, WhatTheWorkBreaksIsTheCopys)
{
    EXPECT_EQ(platform::runIsolated([]() -> QByteArray { std::abort(); }, 1min), std::nullopt);
    EXPECT_EQ(platform::runIsolated([]() -> QByteArray { throw 1; }, 1min), std::nullopt);
    const auto greedy = [] {
        std::vector<QByteArray> all;
        for (;;)
            all.emplace_back(100 << 20, 'x');
        return QByteArray();
    };
    EXPECT_EQ(platform::runIsolated(greedy, 1min), std::nullopt);
}

TEST(IsolatedRun, WorkWithoutAnEndIsEnded)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(platform::runIsolated(endless, 50ms), std::nullopt);
    std::stop_source stop;
    const std::jthread stopper([&stop] {
        std::this_thread::sleep_for(50ms);
        stop.request_stop();
    });
    EXPECT_EQ(platform::runIsolated(endless, 1min, stop.get_token()), std::nullopt);
    EXPECT_LT(timer.elapsed(), 30'000);
}

TEST(IsolatedRun, NoRunWaitsForAnother)
{
    std::stop_source stop;
    std::atomic<int> done = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back(
                [&stop] { (void)platform::runIsolated(endless, 1min, stop.get_token()); });
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([&done] {
                for (int run = 0; run < 20; ++run)
                    done += platform::runIsolated([] { return QByteArray("x"); }, 20s).has_value();
            });
        EXPECT_TRUE(support::waitUntil([&done] { return done == 80; }, 60));
        stop.request_stop();
    }
}

} // namespace
