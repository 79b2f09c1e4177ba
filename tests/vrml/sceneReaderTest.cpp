#include "host/vrml/SceneReader.h"

#include "tests/vrml/BuiltScene.h"
#include "tests/vrml/SceneFiles.h"

#include <gtest/gtest.h>

#include <Inventor/SbImage.h>
#include <Inventor/VRMLnodes/SoVRMLInline.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/misc/SoProto.h>

#include <filesystem>

namespace kthost
{
namespace
{

class SceneReaderTest : public testing::Test
{
protected:
    std::string errorOf(const std::string& text) { return errorAt(folder.writeScene("scene.wrl", text)); }

    std::string errorAt(const std::string& path)
    {
        const SceneReading reading = SceneReader::read(path);
        EXPECT_FALSE(reading);
        EXPECT_EQ(reading.error.find(path), 0U) << reading.error;
        EXPECT_EQ(reading.error.find('\n'), std::string::npos);
        return reading.error.substr(std::min(path.size(), reading.error.size()));
    }

    test::SceneFolder folder;
};

TEST_F(SceneReaderTest, SaysWhyAFileCannotBeOpened)
{
    EXPECT_EQ(errorAt(folder.path("none.wrl")), ": No such file or directory");
    EXPECT_EQ(errorAt(folder.makeFolder("folder.wrl")), ": it is a folder");
    EXPECT_EQ(errorAt(folder.write("empty.wrl", "")), ": the file is empty");
    EXPECT_EQ(errorAt(folder.write("cut.wrl", "\x1f\x8b\x08")), ": the gzip stream is cut short");
    EXPECT_EQ(errorAt(folder.write("text.wrl", "hello\nworld\n")),
              ", line 1: it does not begin with \"#VRML V2.0 utf8\"");
    EXPECT_EQ(errorAt(folder.write("other.wrl", "#VRML V9.9 utf8\nGroup {}")),
              ", line 1: it does not begin with \"#VRML V2.0 utf8\"");
}

TEST_F(SceneReaderTest, GivesTheReadersWordsAndLine)
{
    EXPECT_EQ(errorOf("Group {\n  children Box }\n"), ", line 3: Expected '{'; got '}'");
}

TEST_F(SceneReaderTest, NamesAnUnknownReferenceAsTheFileDoes)
{
    EXPECT_EQ(errorOf("Group { }\nGroup { children USE T\xC3\xBCr+1 }\n"),
              ", line 3: Unknown reference \"T\xC3\xBCr+1\"");
    EXPECT_EQ(errorOf("Group { children USE A }\nDEF A Group {}\n"), ", line 2: Unknown reference \"A\"");
}

TEST_F(SceneReaderTest, GivesTheReasonAndNotAnEarlierWarning)
{
    EXPECT_EQ(errorOf("DEF T TimeSensor {}\nROUTE T.time TO Nobody.x\nGroup {\n"),
              ", line 5: Expected '}'; got EOF for Group");
}

TEST_F(SceneReaderTest, CollectsWhatDoesNotStopTheLoading)
{
    const SceneReading reading = SceneReader::read(
        folder.writeScene("scene.wrl", "DEF T TimeSensor {}\nROUTE T.time TO T\xC3\xBCr.set_x\n"));
    ASSERT_TRUE(reading) << reading.error;
    EXPECT_EQ(reading.error, "");
    ASSERT_FALSE(reading.warnings.entries().empty());
    EXPECT_NE(reading.warnings.entries()[0].text.find("scene.wrl, line 3: "), std::string::npos);
    EXPECT_NE(reading.warnings.entries()[0].text.find("T\xC3\xBCr"), std::string::npos);
}

TEST_F(SceneReaderTest, LeavesTheMessagesAloneAfterwards)
{
    const std::string path = folder.writeScene("scene.wrl", "Group {}");
    SceneReader::read(path);
    const auto before = SoReadError::getHandlerCallback();
    SceneReader::read(path);
    EXPECT_EQ(SoReadError::getHandlerCallback(), before);
}

TEST_F(SceneReaderTest, ReadsAnInlineFromTheFolderOfItsFile)
{
    folder.makeFolder("parts");
    folder.makeFolder("parts/deep");
    folder.writeScene("parts/part.wrl",
                      "DEF T\xC3\xBCr Group {} Inline { url [ \"none.wrl\", \"deep/more.wrl\" ] }");
    folder.writeScene("parts/deep/more.wrl", "DEF \xE6\x89\x89 Group {}");
    const test::BuiltScene scene(
        folder.writeScene("scene.wrl", "DEF T\xC3\xBCr Group {} Inline { url \"parts/part.wrl\" }"));
    ASSERT_TRUE(scene.reading) << scene.reading.error;
    EXPECT_EQ(scene.reading.warnings.total(), 0U);
    const std::vector<std::string> names = test::namesOf(scene.nodes.root, "Group");
    EXPECT_EQ(std::count(names.begin(), names.end(), "T\xC3\xBCr"), 2);
    EXPECT_EQ(std::count(names.begin(), names.end(), "\xE6\x89\x89"), 1);
}

TEST_F(SceneReaderTest, LeavesAMissingOrBrokenInlineOut)
{
    folder.writeScene("broken.wrl", "Group {");
    const test::BuiltScene scene(
        folder.writeScene("scene.wrl", "Inline { url \"none.wrl\" } Inline { url \"broken.wrl\" }\n"
                                       "Inline { url \"http://example.org/a.wrl\" }\n"
                                       "DEF Rest Group {}"));
    ASSERT_TRUE(scene.reading) << scene.reading.error;
    EXPECT_EQ(scene.reading.warnings.total(), 3U);
    EXPECT_NE(scene.reading.warnings.entries()[0].text.find("there is no file 'none.wrl'"),
              std::string::npos);
    EXPECT_NE(scene.reading.warnings.entries()[1].text.find("broken.wrl, line 2: "), std::string::npos);
    EXPECT_NE(scene.reading.warnings.entries()[2].text.find("nothing is fetched"), std::string::npos);
}

TEST_F(SceneReaderTest, RefusesAnInlineOfAFileThatIsBeingRead)
{
    folder.writeScene("b.wrl", "Inline { url \"a.wrl\" }");
    const test::BuiltScene scene(
        folder.writeScene("a.wrl", "Inline { url \"a.wrl\" } Inline { url \"./b.wrl\" }"));
    ASSERT_TRUE(scene.reading) << scene.reading.error;
    EXPECT_EQ(scene.reading.warnings.total(), 2U);
    EXPECT_NE(scene.reading.warnings.entries()[0].text.find("the file refers to itself"), std::string::npos);
}

TEST_F(SceneReaderTest, ReadsALibraryOnceThatIsOfNoUse)
{
    folder.writeScene("broken.wrl", "Unknown {} Group {");
    std::string text;
    for (int i = 0; i < 5; ++i)
        text += "EXTERNPROTO P" + std::to_string(i) + " [] \"broken.wrl\"\n";
    const test::BuiltScene scene(folder.writeScene("scene.wrl", text + "Group {}"));
    ASSERT_TRUE(scene.reading) << scene.reading.error;
    EXPECT_EQ(scene.reading.warnings.total(), 6U) << "of the unknown node one, and one for each prototype";
}

TEST_F(SceneReaderTest, ReadsExternalPrototypes)
{
    folder.writeScene("library.wrl",
                      "PROTO First [] { Group {} } PROTO Second [] { DEF T\xC3\xBCr TimeSensor {} }");
    const test::BuiltScene scene(
        folder.writeScene("scene.wrl", "EXTERNPROTO Second [] [ \"none.wrl\", \"library.wrl#Second\" ]\n"
                                       "EXTERNPROTO Other [] \"library.wrl\"\n"
                                       "Second {} Second {} Other {}"));
    ASSERT_TRUE(scene.reading) << scene.reading.error;
    EXPECT_EQ(test::namesOf(scene.nodes.root, "TimeSensor"),
              (std::vector<std::string>{"T\xC3\xBCr", "T\xC3\xBCr"}));
}

TEST_F(SceneReaderTest, AMissingExternalPrototypeCostsItsNodesOnly)
{
    folder.writeScene("library.wrl", "PROTO First [] { Group {} }");
    folder.writeScene("broken.wrl", "PROTO First [] { Group {");
    const test::BuiltScene scene(folder.writeScene(
        "scene.wrl", "EXTERNPROTO A [ field SFFloat size exposedField SFNode n eventIn SFTime t ]\n"
                     " \"none.wrl\" A { size 2 n Box {} }\n"
                     "EXTERNPROTO B [] [ \"library.wrl#B\" \"none.wrl\" ] Shape { geometry B {} }\n"
                     "EXTERNPROTO C [] \"broken.wrl\" EXTERNPROTO D [] [] DEF T TimeSensor {}"));
    ASSERT_TRUE(scene.reading) << scene.reading.error;
    EXPECT_EQ(test::namesOf(scene.nodes.root, "TimeSensor"), std::vector<std::string>{"T"});
    const auto& warnings = scene.reading.warnings.entries();
    ASSERT_EQ(warnings.size(), 4U);
    EXPECT_NE(
        warnings[0].text.find("scene.wrl, line 2: EXTERNPROTO 'A' is left out: there is no file 'none.wrl'"),
        std::string::npos)
        << warnings[0].text;
    EXPECT_NE(warnings[1].text.find("line 4: EXTERNPROTO 'B' is left out: 'library.wrl#B' has no such PROTO"),
              std::string::npos)
        << warnings[1].text;
    EXPECT_NE(warnings[2].text.find("line 5: EXTERNPROTO 'C' is left out: broken.wrl, line 2: "),
              std::string::npos)
        << warnings[2].text;
    EXPECT_NE(warnings[3].text.find("line 5: EXTERNPROTO 'D' is left out: it has no URL"), std::string::npos)
        << warnings[3].text;
}

TEST_F(SceneReaderTest, AnExternalPrototypeOfItsOwnFileIsMissing)
{
    const test::BuiltScene scene(
        folder.writeScene("scene.wrl", "EXTERNPROTO P [] \"scene.wrl\" P {} DEF T TimeSensor {}"));
    ASSERT_TRUE(scene.reading) << scene.reading.error;
    EXPECT_EQ(scene.reading.warnings.total(), 1U);
}

TEST_F(SceneReaderTest, PassesOverNodesOfUnknownKinds)
{
    const test::BuiltScene scene(folder.writeScene(
        "scene.wrl",
        "Group { children [ DEF U NurbsThing { a 1 inner DEF Lost Box {}\n} DEF T TimeSensor {} ] }\n"
        "Shape { geometry USE Lost } Group { children USE U }\nGroup {\nfoo 1 }"));
    EXPECT_FALSE(scene.reading);
    EXPECT_NE(scene.reading.error.find("line 6: "), std::string::npos) << scene.reading.error;

    const test::BuiltScene good(folder.writeScene(
        "good.wrl",
        "Group { children [ DEF U NurbsThing { a 1 inner DEF Lost Box {}\n} DEF T TimeSensor {} ] }\n"
        "Shape { geometry USE Lost } Group { children USE U }"));
    ASSERT_TRUE(good.reading) << good.reading.error;
    EXPECT_EQ(test::namesOf(good.nodes.root, "TimeSensor"), std::vector<std::string>{"T"});
    ASSERT_EQ(good.reading.warnings.total(), 1U);
    EXPECT_NE(good.reading.warnings.entries()[0].text.find(
                  "good.wrl, line 2: the node 'NurbsThing' is unknown and passed over"),
              std::string::npos);
}

TEST_F(SceneReaderTest, LeavesAnotherSceneAsItWas)
{
    const test::BuiltScene open(folder.writeScene("open.wrl", "DEF T TimeSensor {}"));
    ASSERT_TRUE(open.reading);
    const int owners = open.reading.root->getRefCount();
    SceneReader::read(folder.writeScene("other.wrl", "DEF T TimeSensor {}\nGroup {"));
    EXPECT_EQ(test::namesOf(open.nodes.root, "TimeSensor"), std::vector<std::string>{"T"});
    EXPECT_EQ(open.reading.root->getRefCount(), owners);
}

} // namespace
} // namespace kthost
