#include "host/vrml/ReadLimits.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <map>
#include <string>

namespace kthost
{
namespace
{

/// Variables of the environment, which are gone after the test.
class ReadLimitsTest : public testing::Test
{
protected:
    ~ReadLimitsTest() override
    {
        for (const auto& [name, member] : numbers)
            unsetenv(name);
        unsetenv("KTHOST_READ_SECONDS");
        unsetenv("KTHOST_READ_WAIT_SECONDS");
    }

    static ReadLimits with(const char* variable, const char* text)
    {
        setenv(variable, text, 1);
        return ReadLimits::fromEnvironment();
    }

    const std::map<const char*, std::size_t ReadLimits::*> numbers{
        {"KTHOST_READ_BRACKETS", &ReadLimits::brackets},
        {"KTHOST_READ_WORD_BYTES", &ReadLimits::wordBytes},
        {"KTHOST_READ_DEPTH", &ReadLimits::sceneDepth},
        {"KTHOST_READ_DRAWN", &ReadLimits::drawnNodes},
        {"KTHOST_READ_MEGABYTES", &ReadLimits::megabytes},
        {"KTHOST_READ_FILE_MEGABYTES", &ReadLimits::fileMegabytes},
        {"KTHOST_READ_FILES", &ReadLimits::files},
        {"KTHOST_READ_PIXELS", &ReadLimits::imagePixels}};
};

TEST_F(ReadLimitsTest, EachIsTakenFromItsVariable)
{
    for (const auto& [variable, member] : numbers) {
        EXPECT_NE(ReadLimits().*member, 17U) << variable;
        EXPECT_EQ(with(variable, "17").*member, 17U) << variable;
        EXPECT_EQ(with(variable, "16.5").*member, 17U) << variable;
        EXPECT_EQ(with(variable, "2000000000").*member, 1000000000U) << variable;
    }
    EXPECT_EQ(with("KTHOST_READ_SECONDS", "0.5").seconds, 0.5);
    EXPECT_EQ(with("KTHOST_READ_WAIT_SECONDS", "2.5").waitSeconds, 2.5);
    EXPECT_EQ(ReadLimits::fromEnvironment().clockSeconds(), 3.0);
}

TEST_F(ReadLimitsTest, WhatIsNoNumberAboveZeroIsIgnored)
{
    for (const char* text : {"", "x", "0", "-1", "1x", " 1", "nan", "0,5"}) {
        EXPECT_EQ(with("KTHOST_READ_SECONDS", text).seconds, ReadLimits().seconds) << text;
        EXPECT_EQ(with("KTHOST_READ_FILES", text).files, ReadLimits().files) << text;
    }
}

TEST_F(ReadLimitsTest, WordsTellAnotherProcess)
{
    ReadLimits limits = with("KTHOST_READ_SECONDS", "0.30000000000000004");
    std::size_t number = 900000007;
    for (const auto& [variable, member] : numbers)
        limits.*member = --number;
    const std::vector<std::string> words = limits.words();

    const auto taken = ReadLimits::fromWords(words);

    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->seconds, limits.seconds);
    for (const auto& [variable, member] : numbers)
        EXPECT_EQ((*taken).*member, limits.*member) << variable;
    EXPECT_FALSE(ReadLimits::fromWords({words.begin(), words.end() - 1}));
    EXPECT_FALSE(ReadLimits::fromWords({"x"}));
    std::vector<std::string> more = words;
    more.emplace_back("1");
    EXPECT_FALSE(ReadLimits::fromWords(more));
}

TEST_F(ReadLimitsTest, NumbersHaveADotWhateverTheUsersLanguage)
{
    const char* const language = std::setlocale(LC_ALL, "de_DE.UTF-8");
    if (!language)
        GTEST_SKIP() << "no language with a decimal comma is installed";
    const ReadLimits limits = with("KTHOST_READ_SECONDS", "0.5");
    const auto taken = ReadLimits::fromWords(limits.words());
    std::setlocale(LC_ALL, "C");

    EXPECT_EQ(limits.seconds, 0.5);
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->seconds, 0.5);
}

} // namespace
} // namespace kthost
