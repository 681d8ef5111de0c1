#include "platform/ProgramRun.h"

#include <gtest/gtest.h>
#include <QElapsedTimer>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::outputOfProgram;

namespace {

TEST(ProgramRun, GivesWhatTheProgramMakesOfItsInput)
{
    const QByteArray large(8'000'000, 'x');
    EXPECT_EQ(outputOfProgram(u"cat"_s, {}, large, 1min), large);
    EXPECT_EQ(outputOfProgram(u"wc"_s, {u"-c"_s}, large, 1min), "8000000\n");
    EXPECT_EQ(outputOfProgram(u"true"_s, {}, large, 1min), QByteArray()) << "which reads nothing";
}

TEST(ProgramRun, ABadEndGivesNothing)
{
    EXPECT_EQ(outputOfProgram(u"/nowhere/program"_s, {}, "x", 1min), std::nullopt);
    EXPECT_EQ(outputOfProgram(u"false"_s, {}, "x", 1min), std::nullopt);
    EXPECT_EQ(outputOfProgram(u"sh"_s, {u"-c"_s, u"echo x; kill -SEGV $$"_s}, {}, 1min),
              std::nullopt);
}

TEST(ProgramRun, OneWithoutAnEndIsEnded)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(outputOfProgram(u"sleep"_s, {u"600"_s}, {}, 50ms), std::nullopt);
    std::stop_source stop;
    std::thread stopper([&stop] {
        std::this_thread::sleep_for(50ms);
        stop.request_stop();
    });
    EXPECT_EQ(outputOfProgram(u"sleep"_s, {u"600"_s}, {}, 1h, stop.get_token()), std::nullopt);
    stopper.join();
    EXPECT_LT(timer.elapsed(), 60'000);
}

} // namespace
