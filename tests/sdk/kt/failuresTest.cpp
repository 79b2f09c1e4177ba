#include <kt/ktFailures.h>

#include "tests/support/LogRecorder.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{

class FailuresTest : public testing::Test
{
protected:
    /// Whether a call survived what is done in it.
    template <class Call>
    static bool survived(Call&& call)
    {
        return ktFailures::survived([] { return std::string("here"); }, call);
    }

    kt::test::LogRecorder log;
};

TEST_F(FailuresTest, WhatIsThrownIsToldInOneLine)
{
    EXPECT_TRUE(survived([] {}));
    EXPECT_FALSE(survived([] { throw std::runtime_error("no\nluck\x7F"); }));
    EXPECT_FALSE(survived([] { throw 17; }));

    EXPECT_EQ(log.lines(),
              (std::vector<std::string>{"error: here: no luck ", "error: here: an unknown exception"}));
    EXPECT_EQ(ktFailures::present(), "") << "nothing is being handled any more";
}

TEST_F(FailuresTest, WhatFailsAgainIsToldAgainOnlyWithOtherWordsOrElsewhere)
{
    for (const char* what : {"a", "a", "b", "b", "a"})
        ktFailures::tell("here", what);
    ktFailures::tell("there", "a");

    EXPECT_EQ(log.lines(), (std::vector<std::string>{"error: here: a", "error: here: b", "error: here: a",
                                                     "error: there: a"}));
}

TEST_F(FailuresTest, AHundredTimesAreEnough)
{
    for (int i = 0; i < 1000; ++i)
        ktFailures::tell("here", std::to_string(i));

    ASSERT_EQ(log.lines().size(), 100U);
    EXPECT_EQ(log.lines().back(), "error: here: 99 (told for the last time)");
}

TEST_F(FailuresTest, AnotherSinkHasBeenToldOfNothing)
{
    ktFailures::tell("here", "a");
    const kt::test::LogRecorder next;
    ktFailures::tell("here", "a");

    EXPECT_EQ(next.lines(), std::vector<std::string>{"error: here: a"});
}

} // namespace
