#include "host/vrml/SceneBuilder.h"

#include "host/vrml/DrawnNodes.h"
#include "tests/vrml/BuiltScene.h"
#include "tests/vrml/SceneFiles.h"

#include <gtest/gtest.h>

#include <Inventor/VRMLnodes/SoVRMLTimeSensor.h>

#include <algorithm>

namespace kthost
{
namespace
{

using Names = std::vector<std::string>;

class SceneBuilderTest : public testing::Test
{
protected:
    test::BuiltScene build(const std::string& text)
    {
        test::BuiltScene scene(folder.writeScene("scene.wrl", text));
        EXPECT_TRUE(scene.reading) << scene.reading.error;
        return scene;
    }

    test::SceneFolder folder;
};

TEST_F(SceneBuilderTest, GivesEachNodeACoreOfItsKindInTheOrderOfTheFile)
{
    const test::BuiltScene scene = build(R"(
        DEF Room Transform { children [ DEF Wall Shape { appearance Appearance { material DEF Paint Material {} }
                                                         geometry DEF Brick Box {} } ] }
        DEF View Viewpoint {})");
    Names kinds;
    test::forEachNode(scene.nodes.root, [&](const osg::NodePtr& node) {
        kinds.push_back(test::nameOf(node) + ":" + test::kindOf(node));
    });
    EXPECT_EQ(kinds, (Names{":Group", "Room:Transform", "Wall:Shape", ":Appearance", "Paint:Material",
                            "Brick:Box", "View:Viewpoint"}));
}

TEST_F(SceneBuilderTest, CopiesTheFieldsOfATimeSensor)
{
    const test::BuiltScene scene = build(
        "TimeSensor { cycleInterval 2.5 loop TRUE enabled FALSE startTime 7 stopTime 9 } TimeSensor {}");
    ASSERT_EQ(scene.nodes.sensors.size(), 2U);
    const osg::TimeSensor& full = *scene.nodes.sensors[0].sensor;
    EXPECT_EQ(full.getCycleInterval(), 2.5);
    EXPECT_TRUE(full.isLooping());
    EXPECT_FALSE(full.isEnabled());
    EXPECT_EQ(full.getStartTime(), 7.0);
    EXPECT_EQ(full.getTime(), 7.0);
    EXPECT_FALSE(full.isActive());
    const osg::TimeSensor& plain = *scene.nodes.sensors[1].sensor;
    EXPECT_EQ(plain.getCycleInterval(), 1.0);
    EXPECT_FALSE(plain.isLooping());
    EXPECT_TRUE(plain.isEnabled());
    EXPECT_EQ(test::namesOf(scene.nodes.root, "TimeSensor"), (Names{"", ""}));
}

TEST_F(SceneBuilderTest, VisitsASharedNodeOnceBelowItsFirstParent)
{
    const test::BuiltScene scene = build("DEF First Group { children DEF Shared TimeSensor {} }"
                                         "DEF Second Group { children [ USE Shared USE Shared ] }");
    EXPECT_EQ(test::namesOf(scene.nodes.root, "TimeSensor"), Names{"Shared"});
    EXPECT_EQ(scene.nodes.root->getChild(0)->getNChildren(), 1U);
    EXPECT_EQ(scene.nodes.root->getChild(1)->getNChildren(), 0U);
}

TEST_F(SceneBuilderTest, WalksALatticeOfSharedNodesOnce)
{
    std::string text = "DEF N0 Group {}\n";
    for (int i = 1; i <= 40; ++i) {
        const std::string below = "N" + std::to_string(i - 1);
        text += "DEF N" + std::to_string(i) + " Group { children [ USE " + below + " USE " + below + " ] }\n";
    }
    EXPECT_EQ(test::countNodes(build(text).nodes.root), 42U);
}

TEST_F(SceneBuilderTest, WalksASceneThatHoldsItselfOnce)
{
    test::BuiltScene scene = build("DEF Loop Group { children [ USE Loop DEF T TimeSensor {} ] }");
    EXPECT_EQ(test::namesOf(scene.nodes.root, "TimeSensor"), Names{"T"});
    // Only without its circle can the library let go of the scene, or search it.
    static_cast<SoVRMLGroup*>(scene.reading.root.get())->removeAllChildren();
}

TEST_F(SceneBuilderTest, WalksADeepSceneWithoutTheCallStack)
{
    // As deep as one file may be, four times over.
    constexpr int depth = 900;
    std::string text = "DEF Bottom TimeSensor {}";
    for (int file = 0; file < 4; ++file) {
        std::string groups;
        for (int i = 0; i < depth; ++i)
            groups += "Group { children ";
        text = groups + text + std::string(depth, '}');
        const std::string name = "part" + std::to_string(file) + ".wrl";
        folder.writeScene(name, text);
        text = "Inline { url \"" + name + "\" }";
    }
    const test::BuiltScene scene = build(text);
    EXPECT_EQ(test::namesOf(scene.nodes.root, "TimeSensor"), Names{"Bottom"});
    EXPECT_EQ(scene.nodes.problem, "more than 3000 nodes stand inside each other");
}

TEST_F(SceneBuilderTest, ReachesEveryNodeField)
{
    const test::BuiltScene scene = build(R"(
        Switch { choice [ DEF InSwitch TimeSensor {} ] whichChoice -1 }
        LOD { level [ DEF InLevel TimeSensor {} ] }
        Collision { proxy Group { children DEF InProxy TimeSensor {} } }
        Script { field SFNode one DEF InScript TimeSensor {} field MFNode more [ DEF InScriptToo TimeSensor {} ] })");
    EXPECT_EQ(test::namesOf(scene.nodes.root, "TimeSensor"),
              (Names{"InSwitch", "InLevel", "InProxy", "InScript", "InScriptToo"}));
    EXPECT_EQ(scene.nodes.scriptCount, 1U);
}

TEST_F(SceneBuilderTest, GivesEachPrototypeInstanceItsOwnNodes)
{
    const test::BuiltScene scene = build(R"(
        PROTO Clock [ field SFTime cycle 2 ] {
            Group { children DEF T)"
                                         "\xC3\xBC"
                                         R"(r TimeSensor { cycleInterval IS cycle } } }
        Clock {} Clock { cycle 5 } DEF Mine Clock { cycle 7 })");
    EXPECT_EQ(test::namesOf(scene.nodes.root, "TimeSensor"),
              (Names{"T\xC3\xBCr", "T\xC3\xBCr", "T\xC3\xBCr"}));
    ASSERT_EQ(scene.nodes.sensors.size(), 3U);
    EXPECT_EQ(scene.nodes.sensors[0].sensor->getCycleInterval(), 2.0);
    EXPECT_EQ(scene.nodes.sensors[1].sensor->getCycleInterval(), 5.0);
    EXPECT_EQ(scene.nodes.sensors[2].sensor->getCycleInterval(), 7.0);
    const Names groups = test::namesOf(scene.nodes.root, "Group");
    EXPECT_EQ(std::count(groups.begin(), groups.end(), "Mine"), 1);
}

TEST_F(SceneBuilderTest, ReachesNodesThatOnlyAnInstanceHolds)
{
    const test::BuiltScene scene = build(R"(
        PROTO Holder [ field SFNode held NULL ] { Group {} }
        Holder { held DEF Held TimeSensor {} })");
    EXPECT_EQ(test::namesOf(scene.nodes.root, "TimeSensor"), Names{"Held"});
}

TEST_F(SceneBuilderTest, CountsNoPrototypeDeclaration)
{
    const test::BuiltScene scene = build("PROTO Clock [ field SFNode n DEF Default TimeSensor {} ]"
                                         "{ Group { children DEF Body TimeSensor {} } } Group {}");
    EXPECT_EQ(scene.nodes.sensors.size(), 0U);
}

TEST_F(SceneBuilderTest, RegistersAKindOnce)
{
    const test::BuiltScene first = build("Transform {} Transform {}");
    const test::BuiltScene second = build("Transform {} Box {}");
    const auto& kind = first.nodes.root->getChild(0)->getCore()->getType();
    EXPECT_EQ(&kind, &first.nodes.root->getChild(1)->getCore()->getType());
    EXPECT_EQ(&kind, &second.nodes.root->getChild(0)->getCore()->getType());
    EXPECT_TRUE(kind.isDerivedFrom(osg::NodeCore::getClassType()));
    EXPECT_FALSE(kind.isDerivedFrom(osg::TimeSensor::getClassType()));
}

TEST_F(SceneBuilderTest, ANodeThatIsDrawnInsideItselfIsAProblem)
{
    EXPECT_EQ(build("DEF T\xC3\xBCr Group { children [ TimeSensor {} USE T\xC3\xBCr ] }").nodes.problem,
              "'T\xC3\xBCr' stands inside itself");
    EXPECT_EQ(build("DEF A Group { children LOD { level DEF B Group { children USE A } } }").nodes.problem,
              "'A' stands inside itself");
    EXPECT_EQ(build("PROTO P [ field MFNode c [] ] { Group { children IS c } }\n"
                    "DEF A Group { children P { c USE A } }")
                  .nodes.problem,
              "'A' stands inside itself");
}

TEST_F(SceneBuilderTest, ASceneThatIsRefusedForThatLeavesNothing)
{
    for (const char* text : {"Shape {} DEF A Group { children [ TimeSensor {} USE A ] }",
                             "Shape {} DEF A Group { children LOD { level DEF B Group { children USE A } } }",
                             "PROTO P [ field MFNode c [] ] { Group { children IS c } }\n"
                             "Shape {} DEF A Group { children P { c USE A } }"}) {
        SceneReading reading = SceneReader::read(folder.writeScene("scene.wrl", text));
        ASSERT_TRUE(reading) << reading.error;
        const CoinRef<SoNode> node(reading.root->getChild(reading.root->getNumChildren() - 1));
        ASSERT_TRUE(node->isOfType(SoVRMLGroup::getClassTypeId()));
        EXPECT_NE(SceneBuilder::build(*reading.root, reading.names, {}).problem, "");
        reading = {};
        EXPECT_EQ(node->getRefCount(), 1) << text;
    }
}

TEST_F(SceneBuilderTest, WhatOnlyScriptsHoldIsNotDrawn)
{
    const test::BuiltScene scene =
        build("DEF A Group { children DEF S Script { field SFNode other DEF B Group { children USE A } } }");
    EXPECT_EQ(scene.nodes.problem, "");
    EXPECT_EQ(build("PROTO P [ field SFNode n NULL ] { Group { children Script { field SFNode n IS n } } }\n"
                    "DEF A Group { children P { n USE A } }")
                  .nodes.problem,
              "");
}

TEST_F(SceneBuilderTest, ALoopIsFoundAlsoWhereAScriptLedToItFirst)
{
    EXPECT_NE(
        build("DEF A Group { children [ Script { field SFNode q DEF Q Group { children USE A } } USE Q ] }")
            .nodes.problem,
        "");
}

TEST_F(SceneBuilderTest, MoreNodesInsideEachOtherThanTheLimitAreAProblem)
{
    const test::BuiltScene scene = build("Group { children Group { children Group {} } }");
    EXPECT_EQ(scene.nodes.problem, "");
    ReadLimits limits;
    limits.sceneDepth = 2;
    EXPECT_EQ(SceneBuilder::build(*scene.reading.root, scene.reading.names, limits).problem,
              "more than 2 nodes stand inside each other");
    limits.sceneDepth = 3;
    EXPECT_EQ(SceneBuilder::build(*scene.reading.root, scene.reading.names, limits).problem, "");
}

TEST_F(SceneBuilderTest, WhatIsDrawnIsCountedAsOftenAsItIsUsed)
{
    std::string text = "DEF G0 Group {}";
    for (int i = 1; i <= 60; ++i) {
        const std::string below = "USE G" + std::to_string(i - 1);
        text += " DEF G" + std::to_string(i) + " Group { children [ " + below + " " + below + " ] }";
    }
    EXPECT_EQ(build(text).nodes.problem, "more than 10000000 nodes are to be drawn");

    const test::BuiltScene twice = build("Group { children [ DEF A Group { children Group {} } USE A ] }");
    const test::BuiltScene once = build("Group { children [ DEF A Group { children Group {} } ] }");
    ReadLimits limits;
    limits.drawnNodes = DrawnNodes::of(*once.reading.root).count + 2; // the two of A once more
    EXPECT_EQ(SceneBuilder::build(*twice.reading.root, twice.reading.names, limits).problem, "");
    --limits.drawnNodes;
    EXPECT_EQ(SceneBuilder::build(*twice.reading.root, twice.reading.names, limits).problem,
              "more than " + std::to_string(limits.drawnNodes) + " nodes are to be drawn");
}

} // namespace
} // namespace kthost
