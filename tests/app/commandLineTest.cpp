#include "host/app/CommandLine.h"
#include "host/app/HostError.h"

#include <gtest/gtest.h>

using namespace kthost;

namespace
{

CommandLine parse(std::vector<const char*> words)
{
    words.insert(words.begin(), "kthost");
    return CommandLine::parse(static_cast<int>(words.size()), words.data());
}

/// What is said of words that are off; the test fails where they are taken.
std::string refusalOf(const std::vector<const char*>& words)
{
    try {
        parse(words);
    } catch (const HostError& error) {
        EXPECT_EQ(error.status(), ExitStatus::BadArguments);
        EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos) << error.what();
        return error.what();
    }
    ADD_FAILURE() << "the words were taken";
    return {};
}

} // namespace

TEST(CommandLine, KeepsActionsInTheOrderGiven)
{
    const CommandLine line = parse({"--run", "1", "--dump", "--run=2", "--list", "--dump"});

    ASSERT_EQ(line.actions.size(), 5U);
    EXPECT_EQ(std::get<RunAction>(line.actions[0]).seconds, 1.0);
    EXPECT_TRUE(std::holds_alternative<DumpAction>(line.actions[1]));
    EXPECT_EQ(std::get<RunAction>(line.actions[2]).seconds, 2.0);
    EXPECT_TRUE(std::holds_alternative<ListAction>(line.actions[3]));
    EXPECT_TRUE(std::holds_alternative<DumpAction>(line.actions[4]));
}

TEST(CommandLine, TakesTheFileBeforeOrAfterOptions)
{
    EXPECT_EQ(parse({"a scene.wrl", "--headless"}).file, "a scene.wrl");
    EXPECT_EQ(parse({"--headless", "--list", "a scene.wrl"}).file, "a scene.wrl");
    EXPECT_TRUE(parse({"--headless"}).file.isEmpty());
}

TEST(CommandLine, KnowsWhetherAWindowIsWanted)
{
    EXPECT_TRUE(parse({"--headless"}).isHeadless);
    EXPECT_FALSE(parse({"scene.wrl"}).isHeadless);
}

TEST(CommandLine, SplitsAMessageAtItsFirstEqualsSign)
{
    const auto send = std::get<SendAction>(parse({"--send", "animationStart=a=b"}).actions.at(0));

    EXPECT_EQ(send.message, "animationStart");
    EXPECT_EQ(send.animation, "a=b");
}

TEST(CommandLine, PassesAnimationNamesByteForByte)
{
    const char* const bytes = "animationStart=T\xC3\xBCr \xFF\xFE";

    EXPECT_EQ(std::get<SendAction>(parse({"--send", bytes}).actions.at(0)).animation, "T\xC3\xBCr \xFF\xFE");
}

TEST(CommandLine, LetsAMessageNameNoAnimation)
{
    EXPECT_EQ(std::get<SendAction>(parse({"--send", "animationStart="}).actions.at(0)).animation, "");
}

TEST(CommandLine, ReadsSizesAndRates)
{
    const CommandLine line =
        parse({"--size", "640x480", "--fps", "29.97", "--frames", "out", "--screenshot", "a.png"});

    EXPECT_EQ(std::get<SizeAction>(line.actions.at(0)).size, QSize(640, 480));
    EXPECT_EQ(std::get<FpsAction>(line.actions.at(1)).framesPerSecond, 29.97);
    EXPECT_EQ(std::get<FramesAction>(line.actions.at(2)).folder, "out");
    EXPECT_EQ(std::get<ScreenshotAction>(line.actions.at(3)).file, "a.png");
}

TEST(CommandLine, SavesInItsTurnUnderTheNameOfAProject)
{
    const CommandLine line = parse({"a.ktproj", "--run", "1", "--save", "b.ktproj", "--list"});

    EXPECT_EQ(line.file, "a.ktproj");
    EXPECT_EQ(std::get<SaveAction>(line.actions.at(1)).file, "b.ktproj");
    EXPECT_NE(refusalOf({"--save", "b.wrl"}).find("'b.wrl' does not end in .ktproj"), std::string::npos);
    EXPECT_NE(refusalOf({"--save", ""}).find("--save"), std::string::npos);
}

TEST(CommandLine, CollectsPluginsInOrder)
{
    const CommandLine line = parse({"--plugin", "b.so", "--plugin-dir", "folder", "--plugin", "a.so"});

    EXPECT_EQ(line.pluginFiles, (std::vector<QString>{"b.so", "a.so"}));
    EXPECT_EQ(line.pluginFolders, std::vector<QString>{"folder"});
}

TEST(CommandLine, RefusesWhatItDoesNotKnow)
{
    EXPECT_NE(refusalOf({"--no-such-thing"}).find("no-such-thing"), std::string::npos);
    EXPECT_NE(refusalOf({"--no.such.thing"}).find("'no.such.thing'"), std::string::npos);
    EXPECT_NE(refusalOf({"--no\nthing"}).find("no thing"), std::string::npos);
    EXPECT_NE(refusalOf({"one.wrl", "two.wrl"}).find("two.wrl"), std::string::npos);
}

TEST(CommandLine, RefusesValuesThatAreOff)
{
    EXPECT_NE(refusalOf({"--run", "soon"}).find("soon"), std::string::npos);
    EXPECT_NE(refusalOf({"--fps", "0"}).find("--fps"), std::string::npos);
    refusalOf({"--fps", "1e300"});
    refusalOf({"--run=-1"});
    refusalOf({"--run", "nan"});
    refusalOf({"--run", "inf"});
    refusalOf({"--run"});
    refusalOf({"--size", "640"});
    refusalOf({"--size", "0x480"});
    refusalOf({"--size", "640x480x3"});
    refusalOf({"--size", "99999x1"});
    refusalOf({"--send", "animationStart"});
    refusalOf({"--send", "=Door"});
    refusalOf({"--screenshot", ""});
}

TEST(CommandLine, RepeatsAValueThatIsOffAsItIs)
{
    EXPECT_NE(
        refusalOf({"--size", "%1x%2"}).find("'%1x%2' is no size such as 1280x800, at most 16384 pixels"),
        std::string::npos);
    EXPECT_NE(refusalOf({"--run", "%2"}).find("'%2' is no number from 0"), std::string::npos);
}

TEST(CommandLine, HelpAndVersionWinOverTheRest)
{
    EXPECT_TRUE(parse({"--help", "--run", "soon"}).wantsHelp);
    EXPECT_TRUE(parse({"--version"}).wantsVersion);
}

TEST(CommandLine, HelpNamesEveryOption)
{
    const QString help = CommandLine::helpText();

    for (const char* option :
         {"--headless", "--list", "--dump", "--send", "--run", "--fps", "--screenshot", "--frames", "--size",
          "--plugin ", "--plugin-dir", "--script", "--save", "--version", "--help"})
        EXPECT_TRUE(help.contains(option)) << option;
    for (const char* status :
         {"0 all done", "2 the", "3 a file", "4 the", "5 a script", "6 a plug-in", "70 an", "130 a script"})
        EXPECT_TRUE(help.simplified().contains(status)) << status;
}
