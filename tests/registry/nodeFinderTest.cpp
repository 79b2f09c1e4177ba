#include "registry/ktNodeFinder.h"
#include "registry/timeSensors.h"
#include "tests/support/Scene.h"

#include <gtest/gtest.h>

namespace
{

class NodeFinderTest : public testing::Test
{
protected:
    std::vector<ktNodePtr> find(const osg::NodePtr& from)
    {
        std::vector<ktNodePtr> found;
        ktNodeFinder::findByType<osg::TimeSensor>(from, found);
        return found;
    }

    osg::NodePtr addSensorNode(const osg::NodePtr& parent = {})
    {
        return scene.addNode("", osg::TimeSensor::create(), parent);
    }

    kt::test::Scene scene;
};

TEST_F(NodeFinderTest, FindsNothingBelowNull)
{
    EXPECT_TRUE(find({}).empty());
}

TEST_F(NodeFinderTest, GivesANodeBeforeItsDescendantsAndSiblingsInOrder)
{
    const osg::NodePtr a = addSensorNode();
    const osg::NodePtr aChild = addSensorNode(a);
    const osg::NodePtr b = addSensorNode();

    EXPECT_EQ(find(scene.root()), (std::vector<ktNodePtr>{a, aChild, b}));
}

TEST_F(NodeFinderTest, FindsTheNodeItStartsFrom)
{
    const osg::NodePtr a = addSensorNode();
    addSensorNode();

    EXPECT_EQ(find(a), std::vector<ktNodePtr>{a});
}

TEST_F(NodeFinderTest, SearchesBelowNodesThatItDoesNotCollect)
{
    const osg::NodePtr withoutCore = scene.addNode("Group");
    const osg::NodePtr withOtherCore = scene.addNode("Shape", kt::test::OtherCore::create(), withoutCore);
    const osg::NodePtr sensor = addSensorNode(withOtherCore);

    EXPECT_EQ(find(scene.root()), std::vector<ktNodePtr>{sensor});
}

TEST_F(NodeFinderTest, TakesCoresOfDerivedTypes)
{
    scene.addTimeSensor("Door");

    EXPECT_EQ(find(scene.root()).size(), 1u);
}

TEST_F(NodeFinderTest, AppendsToWhatIsThere)
{
    const osg::NodePtr a = addSensorNode();
    std::vector<ktNodePtr> found{ktNodePtr()};

    ktNodeFinder::findByType<osg::TimeSensor>(scene.root(), found);

    EXPECT_EQ(found, (std::vector<ktNodePtr>{ktNodePtr(), a}));
}

TEST_F(NodeFinderTest, TheTimeSensorTestAcceptsTheTypeAndDerivedOnesOnly)
{
    const osg::TimeSensorPtr plain = osg::TimeSensor::create();
    const osg::Ptr<kt::test::RecordingSensor> derived = kt::test::RecordingSensor::create();

    EXPECT_EQ(timeSensorOf(osg::Node::create(plain)), plain);
    EXPECT_EQ(timeSensorOf(osg::Node::create(derived)), derived);
    EXPECT_FALSE(timeSensorOf(osg::Node::create(kt::test::OtherCore::create())));
    EXPECT_FALSE(timeSensorOf(osg::Node::create()));
    EXPECT_FALSE(timeSensorOf({}));
}

} // namespace
