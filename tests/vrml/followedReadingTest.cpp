// How the host reads a file behind the process that reads it first.
#include "host/vrml/CoinLibrary.h"
#include "host/vrml/DefLexer.h"
#include "host/vrml/FileBytes.h"
#include "host/vrml/NodeNames.h"
#include "host/vrml/ReaderMessages.h"
#include "host/vrml/ReportingInput.h"
#include "host/vrml/SceneEnd.h"
#include "host/vrml/SceneGuard.h"
#include "host/vrml/SceneReader.h"
#include "tests/vrml/SceneFiles.h"
#include "tests/vrml/WildTexts.h"

#include <Inventor/SoDB.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <vector>

namespace kthost
{
namespace
{

const std::string many = " 1, 2, 3, -1, 4, 5, 6, -1, 1, 2, 3, -1, 4, 5, 6, -1, 7, 8, 9, -1 ";

std::string plainNodes(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "Transform { children Shape { geometry IndexedLineSet { coordIndex [" + many + "] } } }\n";
    return text;
}

/// Each node holds the one before it.
std::string chain(int length)
{
    std::string text = "DEF A0 Group {}\n";
    for (int i = 1; i < length; ++i)
        text += "DEF A" + std::to_string(i) + " Group { children USE A" + std::to_string(i - 1) + " }\n";
    return text;
}

class FollowedReadingTest : public testing::Test
{
protected:
    /// Reads a file that the guard refuses for this reason; answers how far the host was led, from 0 to 1.
    double placeOfRefusal(const std::string& text, const std::string& reason, double seconds = 100.0)
    {
        ReadLimits limits;
        limits.seconds = seconds;
        limits.megabytes = 100000;
        limits.brackets = 100000;
        SceneGuard guard(KT_SCENE_CHECK, limits);
        const std::string path = folder.writeScene("scene.wrl", text);
        double last = 0.0;
        const SceneReading reading = SceneReader::read(
            path, [&](double part) { last = part; }, &guard);
        EXPECT_EQ(reading.error, path + ": " + reason);
        return last;
    }

    const std::string tooDeep = "it is nested too deep for the reader, or without end";
    test::SceneFolder folder;
};

TEST_F(FollowedReadingTest, GoesAsFarAsTheCheckAndNoFurther)
{
    folder.writeScene("deep.wrl", test::nested(20000));
    const double place =
        placeOfRefusal(plainNodes(1000) + "Inline { url \"deep.wrl\" }\n" + plainNodes(1000), tooDeep);
    EXPECT_GT(place, 0.47);
    EXPECT_LE(place, 0.51);
}

TEST_F(FollowedReadingTest, StopsBeforeWorkThatDoesNotEnd)
{
    EXPECT_LE(placeOfRefusal(plainNodes(1000) + test::explosion(16) + plainNodes(1000),
                             "the reader takes longer than 0.5 s for it", 0.5),
              0.52);
}

TEST_F(FollowedReadingTest, WaitsForTheWholeCheckWhereManyNodesStandInsideEachOther)
{
    folder.writeScene("deep.wrl", test::nested(20000));
    EXPECT_EQ(placeOfRefusal(chain(1500) + plainNodes(1000) + "Inline { url \"deep.wrl\" }", tooDeep), 0.0);
}

TEST_F(FollowedReadingTest, WaitsForTheWholeCheckAfterAFileInsideFailed)
{
    folder.writeScene("bad.wrl", "Group { children [" + many + "] }");
    folder.writeScene("deep.wrl", test::nested(20000));
    EXPECT_LE(placeOfRefusal(
                  "Inline { url \"bad.wrl\" }\n" + plainNodes(1000) + "Inline { url \"deep.wrl\" }", tooDeep),
              0.01);
}

TEST_F(FollowedReadingTest, ReadsThroughInlinesAndPrototypesOfOtherFiles)
{
    folder.writeScene("part.wrl", plainNodes(300));
    folder.writeScene("library.wrl", "PROTO Post [] { Group {} }\n" + plainNodes(300));
    const std::string text = "EXTERNPROTO Post [] \"library.wrl#Post\"\n" + plainNodes(300) +
                             "Inline { url \"part.wrl\" }\nPost {}\n" + plainNodes(300);
    SceneGuard guard(KT_SCENE_CHECK, {});
    std::vector<double> parts;
    SceneReading reading = SceneReader::read(
        folder.writeScene("scene.wrl", text), [&](double part) { parts.push_back(part); }, &guard);
    ASSERT_TRUE(reading) << reading.error;
    EXPECT_EQ(reading.end.problem(), "");
    EXPECT_GT(parts.size(), 50U);
    EXPECT_TRUE(std::is_sorted(parts.begin(), parts.end()));
}

TEST_F(FollowedReadingTest, TheGuardKnowsWhatTheCheckFound)
{
    const std::string scene = folder.writeScene("scene.wrl", "Inline { url \"part.wrl\" }");
    const std::string part = folder.writeScene("part.wrl", "Group {}");
    SceneGuard guard(KT_SCENE_CHECK, {});
    guard.check(scene);
    using Found = SceneGuard::Found;
    const auto inFile = [](const std::string& file) {
        std::string error;
        return FoundFile::of(file, FileBytes::read(file, error));
    };
    // In between it looks for what the URL means.
    for (const auto& [look, file] : {std::pair{0U, scene}, {2U, part}}) {
        EXPECT_EQ(guard.found(look, inFile(file)), Found::Same);
        EXPECT_EQ(guard.found(inFile(file)), Found::Same);
        EXPECT_EQ(guard.found(look, FoundFile::of(file, "other bytes")), Found::Other);
        EXPECT_EQ(guard.found(FoundFile::of(file, "other bytes")), Found::Other);
        EXPECT_EQ(guard.found(look, FoundFile::of(file, std::nullopt)), Found::Other);
        EXPECT_EQ(guard.found(2U - look, inFile(file)), Found::Nothing);
        EXPECT_EQ(guard.found(3U, inFile(file)), Found::Nothing);
    }
    EXPECT_EQ(guard.found(FoundFile::of(folder.path("none"), "")), Found::Nothing);
    guard.check(folder.path("none"));
    EXPECT_EQ(guard.found(inFile(scene)), Found::Nothing);
    EXPECT_EQ(guard.found(0U, inFile(folder.path("none"))), Found::Same) << "none";
    EXPECT_EQ(guard.found(0U, FoundFile::of(folder.path("none"), "Group {}")), Found::Nothing);
}

TEST_F(FollowedReadingTest, ASceneWhoseEndIsNotSurvivedIsRefusedAndStays)
{
    ReadLimits limits;
    limits.seconds = 0.2;
    SceneGuard guard(KT_SCENE_CHECK, limits);
    CoinLibrary::init();
    auto* const scene = new SoVRMLGroup;
    scene->ref();
    guard.check(folder.writeScene("scene.wrl", test::explosion(16)));
    {
        SceneEnd end(CoinRef<SoVRMLGroup>(scene), guard, "scene.wrl");
        EXPECT_EQ(end.problem(), "scene.wrl: the reader takes longer than 0.2 s for it");
    }
    EXPECT_EQ(scene->getRefCount(), 2);
}

TEST_F(FollowedReadingTest, ASceneWhoseEndIsSurvivedGoes)
{
    SceneGuard guard(KT_SCENE_CHECK, {});
    CoinLibrary::init();
    auto* const scene = new SoVRMLGroup;
    scene->ref();
    guard.check(folder.writeScene("scene.wrl", "Group {}"));
    {
        SceneEnd first(CoinRef<SoVRMLGroup>(scene), guard, "scene.wrl");
        const SceneEnd end = std::move(first);
    }
    EXPECT_EQ(scene->getRefCount(), 1);
    scene->unref();
}

TEST_F(FollowedReadingTest, AVerdictOnAnotherFileIsNone)
{
    SceneGuard guard(KT_SCENE_CHECK, {});
    CoinLibrary::init();
    guard.check(folder.writeScene("scene.wrl", "Group {}"));
    SceneEnd end(CoinRef<SoVRMLGroup>(new SoVRMLGroup), guard, "scene.wrl");
    guard.check(folder.writeScene("other.wrl", "Group {}"));
    EXPECT_EQ(end.problem(), "scene.wrl: its check was left before its end");
}

/// A reading that ends early, wherever that is, leaves nothing that the next one stumbles over.
class EndedReadingTest : public testing::TestWithParam<const char*>
{
protected:
    EndedReadingTest() : _silence([](const ReaderMessage&) {}) {}

    static void readUntil(const std::string& text, int question)
    {
        int asked = 0;
        ReportingInput input(text, [&](std::size_t) { return asked++ < question; });
        const CoinRef<SoVRMLGroup> root(SoDB::readAllVRML(&input));
    }

    static int questionsOf(const std::string& text)
    {
        int asked = 0;
        std::size_t last = 0;
        ReportingInput input(text, [&](std::size_t bytes) {
            const bool isOver = bytes == 0; // the library's answer then
            EXPECT_TRUE(isOver || bytes >= last);
            last = std::max(last, bytes);
            return ++asked > 0;
        });
        const CoinRef<SoVRMLGroup> root(SoDB::readAllVRML(&input));
        EXPECT_LE(last, text.size());
        return asked;
    }

private:
    ReaderMessages _silence;
};

TEST_P(EndedReadingTest, IsSurvivedAtEveryPlace)
{
    CoinLibrary::init();
    std::string bytes = GetParam();
    if (bytes.rfind('#', 0) != 0) {
        if (!test::haveRealScenes())
            GTEST_SKIP() << "no scenes at " KT_SCENES_DIR;
        std::string error;
        bytes = FileBytes::read(test::realScene(GetParam()), error).value_or("");
        bytes = FileBytes::unpack(bytes, error).value_or("");
        ASSERT_EQ(error, "");
    }
    NodeNames names;
    const std::string text = DefLexer::rewrite(bytes, names).text;
    const int questions = questionsOf(text);
    EXPECT_GT(questions, 5);
    constexpr int endings = 60;
    const int step = std::max(1, questions / endings);
    for (int i = 0; i < questions; i += step)
        readUntil(text, i);
    EXPECT_EQ(questionsOf(DefLexer::rewrite(bytes, names).text), questions);
}

INSTANTIATE_TEST_SUITE_P(
    Files, EndedReadingTest,
    testing::Values(
        "#VRML V2.0 utf8\nPROTO P [ field SFVec3f at 0 0 0 exposedField MFNode c [] ] { Group { "
        "children [ DEF T Transform { translation IS at children IS c } DEF S TimeSensor {} ] } "
        "ROUTE S.fraction_changed TO T.set_scale }\nDEF Q P { at 1 2 3 c [ P { c Shape {} } ] } USE Q",
        "#VRML V2.0 utf8\nDEF S Script { eventIn SFFloat f field SFNode n DEF G Group {} url "
        "\"vrmlscript:\" } DEF T TimeSensor {} ROUTE T.fraction_changed TO S.f",
        "02-guided-tour/vaneyck.wrl", "03-max-chapel/pyopenglchapel.wrl", "05-proto-instances/7.wrl",
        "06-proto-shared-use/6.wrl", "07-externproto/externproto.wrl", "09-inlines/geist.wrl",
        "12-stopwatch-script/simple_stopwatch.wrl", "16-broken-house/house.wrl",
        "20-touch-trigger/touch_trigger.wrl", "21-gz-road/index.wrl.gz"));

} // namespace
} // namespace kthost
