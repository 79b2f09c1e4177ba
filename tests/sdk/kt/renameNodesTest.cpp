#include "tests/support/Scene.h"

#include <kt/NodeUtils.h>
#include <kt/ktScenegraph.h>
#include <osg/Name.h>

#include <gtest/gtest.h>

namespace
{

using Nodes = std::vector<ktNodePtr>;

class RenameNodesTest : public testing::Test
{
protected:
    static Nodes find(const char* name) { return ktScenegraph::findNodes(name); }
    static void rename(const osg::NodePtr& node, const char* name, bool announce = true, bool record = true)
    {
        ktScenegraph::setNodeName(announce, node, name, record);
    }

    kt::test::Scene scene;
};

TEST_F(RenameNodesTest, TheNameAttachmentGetsTheName)
{
    const osg::NodePtr node = scene.addNode("Door");

    rename(node, "Gate");

    EXPECT_STREQ(NodeUtils::getName(node), "Gate");
    EXPECT_TRUE(find("Door").empty());
    EXPECT_EQ(find("Gate"), Nodes{node});
}

TEST_F(RenameNodesTest, ANodeWithoutANameGetsOneAndItsCoreKeepsIts)
{
    const osg::TimeSensorPtr core = osg::TimeSensor::create();
    core->addAttachment(osg::Name::create("OfTheCore"));
    const osg::NodePtr node = scene.addNode(nullptr, core);
    const osg::NodePtr sibling = scene.addNode(nullptr, core);

    rename(node, "Own");

    EXPECT_STREQ(NodeUtils::getName(node), "Own");
    EXPECT_STREQ(NodeUtils::getName(sibling), "OfTheCore");
    EXPECT_EQ(find("OfTheCore"), Nodes{sibling});
}

TEST_F(RenameNodesTest, ANullNameIsEmptyAndANullNodeIsIgnored)
{
    const osg::NodePtr node = scene.addNode("Door");

    rename(node, nullptr);
    rename({}, "Gate");

    EXPECT_STREQ(NodeUtils::getName(node), "");
    EXPECT_EQ(scene.changes.entries().size(), 1u);
}

TEST_F(RenameNodesTest, RenamedNodesKeepTheirPlaceInDocumentOrder)
{
    const osg::NodePtr a = scene.addNode("A");
    const osg::NodePtr b = scene.addNode("B");
    const osg::NodePtr c = scene.addNode("A");
    find("A"); // what is known by now has to be kept up to date

    rename(b, "A");
    EXPECT_EQ(find("A"), (Nodes{a, b, c}));
    rename(a, "B");
    EXPECT_EQ(find("A"), (Nodes{b, c}));
    EXPECT_EQ(find("B"), Nodes{a});
}

TEST_F(RenameNodesTest, ARenameAfterAnEditOfTheSceneIsFollowedToo)
{
    const osg::NodePtr a = scene.addNode("A");
    find("A");
    const osg::NodePtr b = scene.addNode("B", {}, a);

    rename(a, "B");

    EXPECT_EQ(find("B"), (Nodes{a, b}));
    EXPECT_TRUE(find("A").empty());
}

TEST_F(RenameNodesTest, NodesThatShareANameAreAllFoundUnderTheNewOne)
{
    const osg::NamePtr shared = osg::Name::create("Door");
    const osg::NodePtr a = scene.addNode(nullptr);
    const osg::NodePtr b = scene.addNode(nullptr);
    a->addAttachment(shared);
    b->addAttachment(shared);
    EXPECT_EQ(find("Door"), (Nodes{a, b}));

    rename(b, "Gate");

    EXPECT_EQ(find("Gate"), (Nodes{a, b}));
    EXPECT_TRUE(find("Door").empty());
}

TEST_F(RenameNodesTest, ANodeOutsideTheSceneIsRenamedAllTheSame)
{
    const osg::NodePtr outside = osg::Node::create();

    rename(outside, "Gate");

    EXPECT_STREQ(NodeUtils::getName(outside), "Gate");
    EXPECT_TRUE(find("Gate").empty());
}

TEST_F(RenameNodesTest, TheEditIsRecordedWhereAskedFor)
{
    const osg::NodePtr node = scene.addNode("Door");

    rename(node, "Gate", true, false);
    EXPECT_TRUE(scene.changes.isEmpty());

    rename(node, "Door", true, true);
    ASSERT_EQ(scene.changes.entries().size(), 1u);
    EXPECT_EQ(scene.changes.entries()[0].container, node);
    EXPECT_EQ(scene.changes.entries()[0].mask, osg::Node::AttachmentsFieldMask);
}

/// What takeSceneChanged() answers.
class SceneChangedTest : public RenameNodesTest
{
protected:
    SceneChangedTest() : door(scene.addNode("Door")) { ktScenegraph::takeSceneChanged(); }

    osg::NodePtr door;
};

TEST_F(SceneChangedTest, OnceForManyEdits)
{
    scene.addNode("Fan");
    scene.addNode("Bell");
    rename(door, "Gate");

    EXPECT_TRUE(ktScenegraph::takeSceneChanged());
    EXPECT_FALSE(ktScenegraph::takeSceneChanged());
}

TEST_F(SceneChangedTest, NotForASceneThatWasJustOpenedNorForNone)
{
    scene.addNode("Fan");
    const osg::NodePtr other = osg::Node::create();
    other->addChild(osg::Node::create());

    ktScenegraph::setRootNode(other);
    EXPECT_FALSE(ktScenegraph::takeSceneChanged());
    ktScenegraph::setRootNode({});
    EXPECT_FALSE(ktScenegraph::takeSceneChanged());
}

TEST_F(SceneChangedTest, NotForARenameThatIsNotToBeAnnounced)
{
    rename(door, "Gate", false);

    EXPECT_FALSE(ktScenegraph::takeSceneChanged());
}

TEST_F(SceneChangedTest, AQuietRenameDoesNotSwallowAnEarlierEdit)
{
    scene.addNode("Fan");

    rename(door, "Gate", false);

    EXPECT_TRUE(ktScenegraph::takeSceneChanged());
}

TEST_F(SceneChangedTest, AQuietRenameOutsideTheSceneSwallowsNothing)
{
    rename(door, "Gate");
    const osg::NodePtr outside = osg::Node::create();

    rename(outside, "Elsewhere", false);

    EXPECT_TRUE(ktScenegraph::takeSceneChanged());
}

TEST_F(SceneChangedTest, NotForFieldsOfACore)
{
    kt::test::RecordingSensor& sensor = scene.addTimeSensor("Fan");
    ktScenegraph::takeSceneChanged();

    sensor.setTime(3.0);
    sensor.setActive(true);

    EXPECT_FALSE(ktScenegraph::takeSceneChanged());
}

} // namespace
