#include "tests/support/Scene.h"

#include <kt/ktScenegraph.h>
#include <osg/Name.h>

#include <gtest/gtest.h>

namespace
{

using Nodes = std::vector<ktNodePtr>;
using Names = std::vector<std::string>;

class ScenegraphTest : public testing::Test
{
protected:
    static Nodes find(const char* name) { return ktScenegraph::findNodes(name); }
    static Nodes find(const Names& names) { return ktScenegraph::findNodes(names); }

    kt::test::Scene scene;
};

TEST_F(ScenegraphTest, TheRootIsTheOneThatWasSet)
{
    EXPECT_EQ(ktScenegraph::getRootNode(), ktNodePtr(scene.root()));
    ktScenegraph::setRootNode({});
    EXPECT_FALSE(ktScenegraph::getRootNode());
}

TEST_F(ScenegraphTest, NamesAreMatchedWholeAndByteForByte)
{
    const osg::NodePtr door = scene.addNode("Door");
    const osg::NodePtr latin1 = scene.addNode("T\xFCr");
    scene.addNode("Doors");
    scene.addNode("door");
    scene.addNode("T\xC3\xBCr");

    EXPECT_EQ(find("Door"), Nodes{door});
    EXPECT_EQ(find("T\xFCr"), Nodes{latin1});
    EXPECT_TRUE(find("Doo").empty());
    EXPECT_TRUE(find("*").empty());
}

TEST_F(ScenegraphTest, NodesComeInDocumentOrder)
{
    const osg::NodePtr first = scene.addNode("Same");
    const osg::NodePtr group = scene.addNode("Group");
    const osg::NodePtr last = scene.addNode("Same");
    const osg::NodePtr below = scene.addNode("Same", {}, group);
    const osg::NodePtr belowFirst = scene.addNode("Same", {}, first);

    EXPECT_EQ(find("Same"), (Nodes{first, belowFirst, below, last}));
}

TEST_F(ScenegraphTest, TheRootIsFoundToo)
{
    scene.root()->addAttachment(osg::Name::create("Root"));

    EXPECT_EQ(find("Root"), Nodes{scene.root()});
}

TEST_F(ScenegraphTest, ANullNameAndNoSceneFindNothing)
{
    scene.addNode("");
    EXPECT_TRUE(find(static_cast<const char*>(nullptr)).empty());

    ktScenegraph::setRootNode({});
    EXPECT_TRUE(find("").empty());
    EXPECT_TRUE(find(Names{""}).empty());
}

TEST_F(ScenegraphTest, AnUnnamedNodeGoesByItsCoresNameOrType)
{
    const osg::TimeSensorPtr named = osg::TimeSensor::create();
    named->addAttachment(osg::Name::create("OfTheCore"));
    const osg::NodePtr byCore = scene.addNode(nullptr, named);
    const osg::NodePtr byType = scene.addNode(nullptr, osg::TimeSensor::create());

    EXPECT_EQ(find("OfTheCore"), Nodes{byCore});
    EXPECT_EQ(find("TimeSensor"), Nodes{byType});
}

TEST_F(ScenegraphTest, AListOfNamesGivesEachNodeOnceInDocumentOrder)
{
    const osg::NodePtr a = scene.addNode("A");
    const osg::NodePtr b = scene.addNode("B");
    const osg::NodePtr a2 = scene.addNode("A");
    scene.addNode("C");

    EXPECT_EQ(find(Names{"B", "A", "B", "Nowhere"}), (Nodes{a, b, a2}));
    EXPECT_TRUE(find(Names{}).empty());
}

TEST_F(ScenegraphTest, LookUpsFollowTheScene)
{
    const osg::NodePtr a = scene.addNode("Same");
    EXPECT_EQ(find("Same").size(), 1u);

    const osg::NodePtr b = scene.addNode("Same", {}, a);
    EXPECT_EQ(find("Same"), (Nodes{a, b}));

    scene.root()->subChild(a);
    EXPECT_TRUE(find("Same").empty());
    EXPECT_TRUE(find(Names{"Same"}).empty());
}

TEST_F(ScenegraphTest, LookUpsFollowTheRoot)
{
    scene.addNode("Door");
    find("Door");
    const osg::NodePtr other = osg::Node::create();
    other->addAttachment(osg::Name::create("Door"));

    ktScenegraph::setRootNode(other);

    EXPECT_EQ(find("Door"), Nodes{other});
}

TEST_F(ScenegraphTest, LookUpsFollowNamesThatAreEditedDirectly)
{
    const osg::NodePtr node = scene.addNode(nullptr);
    const osg::NamePtr name = osg::Name::create("Door");
    node->addAttachment(name);
    EXPECT_EQ(find("Door"), Nodes{node});

    name->setValue("Gate");

    EXPECT_TRUE(find("Door").empty());
    EXPECT_EQ(find("Gate"), Nodes{node});
}

void ignore(const ktNodePtr&) {}
ktNodePtr scrolledTo;
void remember(const ktNodePtr& node)
{
    scrolledTo = node;
}

TEST_F(ScenegraphTest, ScrollingIsLeftToTheHandler)
{
    const osg::NodePtr node = scene.addNode("Door");
    ktScenegraph::scrollToNode(node); // nobody there

    ktScenegraph::setScrollHandler(remember);
    ktScenegraph::scrollToNode({});
    EXPECT_FALSE(scrolledTo);
    ktScenegraph::scrollToNode(node);
    EXPECT_EQ(scrolledTo, ktNodePtr(node));

    ktScenegraph::setScrollHandler(ignore);
    ktScenegraph::setScrollHandler(nullptr);
    scrolledTo = {};
}

TEST_F(ScenegraphTest, DeepScenesAreSearchedToTheirEnd)
{
    osg::NodePtr node = scene.root();
    for (int i = 0; i < 2000; ++i)
        node = scene.addNode("Nest", {}, node);

    EXPECT_EQ(find("Nest").size(), 2000u);
    EXPECT_EQ(find("Nest").back(), ktNodePtr(node));
}

} // namespace
