#include "host/vrml/ReaderMessages.h"

#include "host/vrml/CoinLibrary.h"
#include "host/vrml/SceneWarnings.h"
#include "tests/support/LogRecorder.h"

#include <gtest/gtest.h>

#include <Inventor/errors/SoDebugError.h>

namespace kthost
{
namespace
{

TEST(ReaderMessagesTest, TakesAReadErrorApart)
{
    const ReaderMessage message = ReaderMessages::parse(
        "Coin read error: Expected '{'; got '\"'\n\tOccurred at line   3 in <memory>", true);
    EXPECT_EQ(message.words, "Expected '{'; got '\"'");
    EXPECT_EQ(message.line, 3);
    EXPECT_TRUE(message.isReadError);
}

TEST(ReaderMessagesTest, TakesAWarningApart)
{
    const ReaderMessage message =
        ReaderMessages::parse("Coin warning in SoBase::connectRoute(): bad\n route", false);
    EXPECT_EQ(message.words, "bad  route");
    EXPECT_EQ(message.line, 0);
    EXPECT_FALSE(message.isReadError);
}

TEST(ReaderMessagesTest, LeavesOtherTextsAsTheyAre)
{
    EXPECT_EQ(ReaderMessages::parse("something(): else", false).words, "something(): else");
    EXPECT_EQ(ReaderMessages::parse("", false).words, "");
}

TEST(ReaderMessagesTest, WhatNobodyTakesGoesToTheLogOnce)
{
    CoinLibrary::init();
    const kt::test::LogRecorder log;
    testing::internal::CaptureStderr();

    for (const char* words : {"odd value", "odd value", "odder value"})
        SoDebugError::postWarning("SoField::set", "%s", words);

    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(
        kt::test::LogRecorder::lines(),
        (std::vector<std::string>{"info: the open scene: odd value", "info: the open scene: odder value"}));
}

TEST(SceneWarningsTest, CountsEqualTexts)
{
    SceneWarnings warnings;
    for (const char* text : {"a", "b", "a"})
        warnings.add(text);
    ASSERT_EQ(warnings.entries().size(), 2U);
    EXPECT_EQ(warnings.entries()[0].text, "a");
    EXPECT_EQ(warnings.entries()[0].count, 2U);
    EXPECT_EQ(warnings.total(), 3U);
}

TEST(SceneWarningsTest, KeepsAHundredTextsAndCountsOn)
{
    SceneWarnings warnings;
    for (int i = 0; i < 500; ++i)
        warnings.add(std::to_string(i));
    EXPECT_EQ(warnings.entries().size(), 100U);
    EXPECT_EQ(warnings.total(), 500U);
}

} // namespace
} // namespace kthost
