#include "host/files/EndSignals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include <unistd.h>

using kthost::EndSignals;
using testing::KilledBySignal;

namespace
{

constexpr int longEnough = 60000; // milliseconds

void say(const char* word)
{
    std::fputs(word, stderr);
}

} // namespace

TEST(EndSignalsDeathTest, EndTheProgramAtOnceAndByTheSignal)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        EXPECT_EXIT(
            {
                EndSignals::watch();
                std::raise(signal);
                say("late");
                std::exit(0);
            },
            KilledBySignal(signal), testing::StrEq(""));
    }
}

TEST(EndSignalsDeathTest, WaitForTheOutermostHold)
{
    EXPECT_EXIT(
        {
            EndSignals::watch();
            {
                const EndSignals::Hold outer;
                {
                    const EndSignals::Hold inner;
                    std::raise(SIGTERM);
                    say("one");
                }
                say(" two");
            }
            say(" late");
            std::exit(0);
        },
        KilledBySignal(SIGTERM), testing::StrEq("one two"));
}

TEST(EndSignalsDeathTest, WaitForTheHoldOfAnotherThread)
{
    EXPECT_EXIT(
        {
            EndSignals::watch();
            std::thread([] {
                const EndSignals::Hold hold;
                ::kill(::getpid(), SIGINT);
                say("held");
            }).join();
            say(" late");
            std::exit(0);
        },
        KilledBySignal(SIGINT), testing::StrEq("held"));
}

TEST(EndSignalsDeathTest, ThoseThatAreIgnoredStaySo)
{
    EXPECT_EXIT(
        {
            std::signal(SIGHUP, SIG_IGN);
            EndSignals::watch();
            std::raise(SIGHUP);
            std::exit(7);
        },
        testing::ExitedWithCode(7), testing::StrEq(""));
}

TEST(EndSignalsDeathTest, GoToTheOneThatTakesThemOverAndThenEndTheProgram)
{
    EXPECT_EXIT(
        {
            EndSignals::watch();
            const EndSignals::HandOver taker(longEnough);
            std::raise(SIGINT);
            std::raise(SIGTERM); // changes nothing
            std::uint64_t count = 0;
            if (read(taker.descriptor(), &count, sizeof count) > 0)
                say(EndSignals::HandOver::signalName());
            {
                const EndSignals::Hold whatIsPutInOrder;
            }
            say(" late");
            EndSignals::HandOver::end();
        },
        KilledBySignal(SIGINT), testing::StrEq("SIGINT late"));
}

TEST(EndSignalsDeathTest, EndTheProgramWhereTheOneThatTakesThemOverIsStuck)
{
    EXPECT_EXIT(
        {
            EndSignals::watch();
            const EndSignals::HandOver taker(1);
            std::raise(SIGTERM);
            while (true)
                pause();
        },
        KilledBySignal(SIGTERM), testing::StrEq(""));
}

TEST(EndSignalsDeathTest, EndTheProgramWhereTheOneThatTakesThemOverGoes)
{
    EXPECT_EXIT(
        {
            EndSignals::watch();
            {
                const EndSignals::HandOver taker(longEnough);
                std::raise(SIGHUP);
                say("now");
            }
            say(" late");
        },
        KilledBySignal(SIGHUP), testing::StrEq("now"));
    EXPECT_EXIT(
        {
            EndSignals::watch();
            {
                const EndSignals::HandOver taker(longEnough);
            }
            std::raise(SIGHUP);
        },
        KilledBySignal(SIGHUP), testing::StrEq(""));
}
