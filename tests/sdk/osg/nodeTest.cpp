#include <gtest/gtest.h>

#include <osg/Name.h>
#include <osg/Node.h>
#include <osg/TimeSensor.h>

namespace
{

using osg::Node;
using osg::NodePtr;

TEST(NodeTest, ChildrenKeepTheirOrder)
{
    const NodePtr root = Node::create();
    const NodePtr a = Node::create();
    const NodePtr b = Node::create();
    EXPECT_TRUE(root->addChild(a));
    EXPECT_TRUE(root->addChild(b));

    ASSERT_EQ(root->getNChildren(), 2u);
    EXPECT_EQ(root->getChild(0), a);
    EXPECT_EQ(root->getChild(1), b);
    EXPECT_EQ(a->getParent(), root.get());
    EXPECT_EQ(root->getParent(), nullptr);
}

TEST(NodeTest, AChildMovesToItsNewParent)
{
    const NodePtr first = Node::create();
    const NodePtr second = Node::create();
    first->addChild(Node::create());

    EXPECT_TRUE(second->addChild(first->getChild(0)));

    EXPECT_EQ(first->getNChildren(), 0u);
    ASSERT_EQ(second->getNChildren(), 1u);
    EXPECT_EQ(second->getChild(0)->getParent(), second.get());
}

TEST(NodeTest, AddingAChildAgainMovesItToTheEnd)
{
    const NodePtr root = Node::create();
    const NodePtr a = Node::create();
    const NodePtr b = Node::create();
    root->addChild(a);
    root->addChild(b);

    EXPECT_TRUE(root->addChild(a));

    ASSERT_EQ(root->getNChildren(), 2u);
    EXPECT_EQ(root->getChild(1), a);
}

TEST(NodeTest, CyclesAndNullAreRefused)
{
    const NodePtr root = Node::create();
    const NodePtr child = Node::create();
    const NodePtr grandchild = Node::create();
    root->addChild(child);
    child->addChild(grandchild);

    EXPECT_FALSE(grandchild->addChild(root));
    EXPECT_FALSE(child->addChild(child));
    EXPECT_FALSE(root->addChild({}));
    EXPECT_EQ(grandchild->getNChildren(), 0u);
    EXPECT_EQ(child->getParent(), root.get());
}

TEST(NodeTest, AChildIsTakenOff)
{
    const NodePtr root = Node::create();
    const NodePtr child = Node::create();
    root->addChild(child);

    EXPECT_TRUE(root->subChild(child));
    EXPECT_FALSE(root->subChild(child));
    EXPECT_EQ(root->getNChildren(), 0u);
    EXPECT_EQ(child->getParent(), nullptr);
}

TEST(NodeTest, AChildOutlivesItsParent)
{
    NodePtr root = Node::create();
    const NodePtr child = Node::create();
    root->addChild(child);

    root = nullptr;

    EXPECT_EQ(child->getParent(), nullptr);
}

TEST(NodeTest, ACoreIsSetSharedAndTakenOff)
{
    const osg::TimeSensorPtr core = osg::TimeSensor::create();
    const NodePtr a = Node::create(core);
    NodePtr b = Node::create(core);
    EXPECT_EQ(a->getCore(), b->getCore());

    b = nullptr;
    a->setCore({});
    EXPECT_FALSE(a->getCore());
}

/// The count of a tree's root, over every kind of edit below it.
class StructureRevisionTest : public testing::Test
{
protected:
    StructureRevisionTest()
    {
        root->addChild(child);
        child->addAttachment(name);
        seen = root->getStructureRevision();
    }

    bool hasChanged()
    {
        const bool changed = root->getStructureRevision() != seen;
        seen = root->getStructureRevision();
        return changed;
    }

    NodePtr root = Node::create();
    NodePtr child = Node::create(osg::TimeSensor::create());
    osg::NamePtr name = osg::Name::create("Door");
    std::uint64_t seen = 0;
};

TEST_F(StructureRevisionTest, CountsChildren)
{
    const NodePtr added = Node::create();
    child->addChild(added);
    EXPECT_TRUE(hasChanged());
    child->subChild(added);
    EXPECT_TRUE(hasChanged());
}

TEST_F(StructureRevisionTest, CountsCores)
{
    child->setCore({});
    EXPECT_TRUE(hasChanged());
}

TEST_F(StructureRevisionTest, CountsNamesOfNodesAndOfCores)
{
    name->setValue("Gate");
    EXPECT_TRUE(hasChanged());
    child->subAttachment(name);
    EXPECT_TRUE(hasChanged());
    child->getCore()->addAttachment(name);
    EXPECT_TRUE(hasChanged());
    name->setValue("Door");
    EXPECT_TRUE(hasChanged());
}

TEST_F(StructureRevisionTest, CountsWhatLeavesForAnotherTree)
{
    const NodePtr elsewhere = Node::create();
    const std::uint64_t before = elsewhere->getStructureRevision();
    elsewhere->addChild(child);
    EXPECT_TRUE(hasChanged());
    EXPECT_NE(elsewhere->getStructureRevision(), before);

    name->setValue("Gate");
    EXPECT_FALSE(hasChanged()) << "it is another tree's by now";
}

TEST_F(StructureRevisionTest, DoesNotCountFieldsAndRefusedEdits)
{
    osg::staticCast<osg::TimeSensor>(child->getCore())->setTime(3.0);
    child->addChild(root);
    root->addChild({});
    root->subChild(Node::create());

    EXPECT_FALSE(hasChanged());
}

} // namespace
