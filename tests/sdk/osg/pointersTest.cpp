#include "tests/support/Scene.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{

/// Counts those that live.
class Counted : public osg::TimeSensor
{
public:
    Counted() { ++living; }
    ~Counted() override { --living; }

    static int living;
};

int Counted::living = 0;

using CountedPtr = osg::Ptr<Counted>;

TEST(PointersTest, TheLastOwnerDestroys)
{
    CountedPtr first(new Counted);
    CountedPtr second = first;
    first = nullptr;
    EXPECT_EQ(Counted::living, 1);

    second = nullptr;
    EXPECT_EQ(Counted::living, 0);
}

TEST(PointersTest, AMoveHandsTheOwnershipOver)
{
    CountedPtr first(new Counted);
    const CountedPtr second = std::move(first);

    EXPECT_FALSE(first); // NOLINT: moved from on purpose
    EXPECT_TRUE(second);
    EXPECT_EQ(Counted::living, 1);
}

TEST(PointersTest, SelfAssignmentKeepsTheContainer)
{
    CountedPtr pointer(new Counted);
    const CountedPtr& alias = pointer;

    pointer = alias;

    EXPECT_EQ(Counted::living, 1);
    EXPECT_TRUE(pointer);
}

TEST(PointersTest, APointerToTheBaseOwnsToo)
{
    osg::NodeCorePtr core = CountedPtr(new Counted);
    EXPECT_EQ(Counted::living, 1);

    const osg::Ptr<Counted> back = osg::staticCast<Counted>(core);
    EXPECT_EQ(back, core);
    core = nullptr;
    EXPECT_EQ(Counted::living, 1);
}

TEST(PointersTest, ComparisonIsByContainer)
{
    const CountedPtr a(new Counted);
    const CountedPtr b(new Counted);
    const osg::FieldContainerPtr aAgain = a;

    EXPECT_TRUE(a == aAgain);
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(CountedPtr() == osg::FieldContainerPtr(nullptr));
}

TEST(PointersTest, ATreeOwnsItsCoresAndLetsGoOfThem)
{
    osg::NodePtr root = osg::Node::create();
    root->addChild(osg::Node::create(CountedPtr(new Counted)));
    EXPECT_EQ(Counted::living, 1);

    root = nullptr;
    EXPECT_EQ(Counted::living, 0);
}

} // namespace
