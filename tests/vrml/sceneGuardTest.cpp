// The process that reads scene files first, as built.
#include "host/vrml/SceneGuard.h"

#include "host/vrml/SceneReader.h"
#include "tests/vrml/SceneFiles.h"
#include "tests/vrml/WildTexts.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>

namespace kthost
{
namespace
{

using test::explosion;
using test::nested;

class SceneGuardTest : public testing::Test
{
protected:
    std::string verdict(const std::string& path, const ReadLimits& limits = {})
    {
        SceneGuard guard(KT_SCENE_CHECK, limits);
        guard.check(path);
        return guard.verdict();
    }

    static ReadLimits anyBrackets()
    {
        ReadLimits limits;
        limits.brackets = 1000000;
        return limits;
    }

    test::SceneFolder folder;
};

TEST_F(SceneGuardTest, HasNothingAgainstAFileThatTheReaderSurvives)
{
    SceneGuard guard(KT_SCENE_CHECK, {});
    for (const char* text : {"Group {}", "DEF T TimeSensor { loop TRUE }", "Group {", "nonsense"}) {
        guard.check(folder.writeScene("scene.wrl", text));
        EXPECT_EQ(guard.verdict(), "") << text;
    }
    guard.check(folder.path("none.wrl"));
    EXPECT_EQ(guard.verdict(), "");
}

TEST_F(SceneGuardTest, TellsWhereTheStackIsTooSmall)
{
    EXPECT_EQ(verdict(folder.writeScene("deep.wrl", nested(20000)), anyBrackets()),
              "it is nested too deep for the reader, or without end");
}

TEST_F(SceneGuardTest, TellsOfAFileThatTakesTooLong)
{
    ReadLimits limits;
    limits.seconds = 0.2;
    limits.megabytes = 100000;
    EXPECT_EQ(verdict(folder.writeScene("long.wrl", explosion(16)), limits),
              "the reader takes longer than 0.2 s for it");
}

TEST_F(SceneGuardTest, NoTimeIsALimitToo)
{
    ReadLimits limits;
    limits.seconds = 1e-9;
    EXPECT_EQ(verdict(folder.writeScene("long.wrl", explosion(4)), limits),
              "the reader takes longer than 1e-09 s for it");
}

TEST_F(SceneGuardTest, ALinkIsCheckedWithTheFilesBesideIt)
{
    folder.makeFolder("a");
    folder.makeFolder("b");
    folder.writeScene("a/part.wrl", nested(20000));
    const std::string link = folder.path("a/scene.wrl");
    std::filesystem::create_symlink(folder.writeScene("b/scene.wrl", "Inline { url \"part.wrl\" }"), link);
    SceneGuard guard(KT_SCENE_CHECK, anyBrackets());
    EXPECT_EQ(SceneReader::read(link, {}, &guard).error,
              link + ": it is nested too deep for the reader, or without end");
}

TEST_F(SceneGuardTest, TellsOfAFileThatTakesTooMuchMemory)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer's own memory cannot be limited";
#endif
    ReadLimits limits;
    limits.megabytes = 400;
    limits.seconds = 100.0;
    const std::string answer = verdict(folder.writeScene("large.wrl", explosion(16)), limits);
    EXPECT_TRUE(answer == "the reader needs more than 400 megabytes for it" ||
                answer == "the reader breaks down over it" ||
                answer == "the reader does not come back from it")
        << answer;
}

TEST_F(SceneGuardTest, GoesOnAfterABadFile)
{
    SceneGuard guard(KT_SCENE_CHECK, anyBrackets());
    const std::string deep = folder.writeScene("deep.wrl", nested(20000));
    const std::string good = folder.writeScene("good.wrl", "Group {}");
    for (int i = 0; i < 3; ++i) {
        guard.check(deep);
        EXPECT_NE(guard.verdict(), "");
        guard.check(good);
        EXPECT_EQ(guard.verdict(), "");
    }
}

TEST_F(SceneGuardTest, FollowsTheReferencesOfTheFile)
{
    folder.writeScene("deep.wrl", nested(20000));
    EXPECT_NE(verdict(folder.writeScene("scene.wrl", "Group {} Inline { url \"deep.wrl\" }"), anyBrackets()),
              "");
}

TEST_F(SceneGuardTest, SaysWhereItsProgramDoesNotRun)
{
    SceneGuard guard(folder.path("no-such-program"), {});
    guard.check(folder.writeScene("good.wrl", "Group {}"));
    EXPECT_EQ(guard.verdict(), "the program no-such-program does not run: No such file or directory");
}

TEST_F(SceneGuardTest, AReadingThatIsRefusedNeverGetsToTheReader)
{
    SceneGuard guard(KT_SCENE_CHECK, anyBrackets());
    const std::string deep = folder.writeScene("deep.wrl", nested(20000));
    EXPECT_EQ(SceneReader::read(deep, {}, &guard).error,
              deep + ": it is nested too deep for the reader, or without end");
    const SceneReading good = SceneReader::read(folder.writeScene("good.wrl", "DEF A Group {}"), {}, &guard);
    EXPECT_TRUE(good) << good.error;
}

TEST_F(SceneGuardTest, KeepsToTheLimitsOfTheText)
{
    SceneGuard guard(KT_SCENE_CHECK, {});
    const std::string deep = folder.writeScene("deep.wrl", nested(501));
    EXPECT_EQ(SceneReader::read(deep, {}, &guard).error,
              deep + ", line 2: more than 1000 brackets are open inside each other");
    const std::string word = folder.writeScene("word.wrl", "Group {\n" + std::string(70000, 'x') + " 1 }");
    EXPECT_EQ(SceneReader::read(word, {}, &guard).error, word + ", line 3: a word of 70000 bytes");
    EXPECT_TRUE(SceneReader::read(
        folder.writeScene("name.wrl", "DEF " + std::string(70000, 'x') + " Group {}"), {}, &guard));
}

TEST_F(SceneGuardTest, AVerdictIsOnTheFileThatWasHandedOverLast)
{
    SceneGuard guard(KT_SCENE_CHECK, anyBrackets());
    const std::string deep = folder.writeScene("deep.wrl", nested(20000));
    const std::string good = folder.writeScene("good.wrl", "Group {}");
    guard.check(deep);
    guard.check(good);
    EXPECT_EQ(guard.verdict(), "");
    guard.check(good);
    guard.check(deep);
    EXPECT_EQ(guard.verdict(), "it is nested too deep for the reader, or without end");
}

TEST_F(SceneGuardTest, AFileThatItsTextRefusesLeavesNoVerdictToTheNext)
{
    ReadLimits limits;
    limits.seconds = 0.2;
    SceneGuard guard(KT_SCENE_CHECK, limits);
    const std::string word = folder.writeScene("word.wrl", std::string(70000, 'x'));
    EXPECT_EQ(SceneReader::read(word, {}, &guard).error, word + ", line 2: a word of 70000 bytes");
    const std::string large = folder.writeScene("large.wrl", explosion(16));
    EXPECT_EQ(SceneReader::read(large, {}, &guard).error,
              large + ": the reader takes longer than 0.2 s for it");
}

class WildFilesTest : public testing::TestWithParam<const char*>
{
};

TEST_P(WildFilesTest, TheReaderSurvivesThem)
{
    if (!test::haveRealScenes())
        GTEST_SKIP() << "no scenes at " KT_SCENES_DIR;
    SceneGuard guard(KT_SCENE_CHECK, {});
    const SceneReading reading = SceneReader::read(test::realScene(GetParam()), {}, &guard);
    EXPECT_TRUE(reading) << reading.error;
}

INSTANTIATE_TEST_SUITE_P(Files, WildFilesTest,
                         testing::Values("10-recursive-inline/recurse_inline.wrl",
                                         "11-self-script-proto/index.wrl", "made/use-cycle.wrl"));

} // namespace
} // namespace kthost
