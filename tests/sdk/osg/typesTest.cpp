#include "tests/support/Scene.h"

#include <gtest/gtest.h>

#include <osg/FieldContainerType.h>
#include <osg/Name.h>
#include <osg/TypeRegistry.h>

namespace
{

using osg::TypeBase;
using osg::TypeRegistry;

TEST(TypesTest, TypesGoByTheirClassName)
{
    EXPECT_STREQ(osg::FieldContainer::getClassType().getName(), "FieldContainer");
    EXPECT_STREQ(osg::Node::getClassType().getName(), "Node");
    EXPECT_STREQ(osg::Name::getClassType().getName(), "Name");
    EXPECT_STREQ(osg::TimeSensorBase::getClassType().getName(), "TimeSensorBase");
    EXPECT_STREQ(osg::TimeSensor::getClassType().getName(), "TimeSensor");
}

TEST(TypesTest, ATimeSensorsParentsLeadToTheFieldContainer)
{
    const TypeBase* const chain[] = {
        &osg::TimeSensor::getClassType(),     &osg::TimeSensorBase::getClassType(),
        &osg::NodeCore::getClassType(),       &osg::AttachmentContainer::getClassType(),
        &osg::FieldContainer::getClassType(), nullptr};
    for (std::size_t i = 0; i + 1 < std::size(chain); ++i)
        EXPECT_EQ(chain[i]->getParent(), chain[i + 1]);
}

TEST(TypesTest, AnObjectTellsItsOwnType)
{
    EXPECT_EQ(&osg::TimeSensor::create()->getType(), &osg::TimeSensor::getClassType());
    EXPECT_EQ(&kt::test::RecordingSensor::create()->getType(), &kt::test::RecordingSensor::getClassType());
    EXPECT_EQ(&osg::Node::create()->getType(), &osg::Node::getClassType());
    EXPECT_EQ(&osg::Name::create("a")->getType(), &osg::Name::getClassType());
}

TEST(TypesTest, DerivationIncludesTheTypeItselfAndItsParentsOnly)
{
    const TypeBase& sensor = osg::TimeSensor::getClassType();
    EXPECT_TRUE(sensor.isDerivedFrom(sensor));
    EXPECT_TRUE(sensor.isDerivedFrom(osg::NodeCore::getClassType()));
    EXPECT_TRUE(kt::test::RecordingSensor::getClassType().isDerivedFrom(sensor));
    EXPECT_FALSE(sensor.isDerivedFrom(kt::test::RecordingSensor::getClassType()));
    EXPECT_FALSE(sensor.isDerivedFrom(osg::Node::getClassType()));
}

TEST(TypesTest, IdsAreNeverGivenTwice)
{
    std::uint32_t gone = 0;
    {
        const TypeBase shortLived("ShortLived", nullptr);
        gone = shortLived.getId();
    }
    const TypeBase next("Next", nullptr);

    EXPECT_NE(next.getId(), gone);
    EXPECT_NE(next.getId(), osg::Node::getClassType().getId());
}

TEST(TypesTest, TheRegistryFindsLivingTypes)
{
    std::uint32_t id = 0;
    {
        const TypeBase type("Registered", nullptr);
        id = type.getId();
        EXPECT_EQ(TypeRegistry::find(id), &type);
        EXPECT_EQ(TypeRegistry::find("Registered"), &type);
        EXPECT_EQ(TypeRegistry::find("registered"), nullptr);
    }
    EXPECT_EQ(TypeRegistry::find(id), nullptr);
    EXPECT_EQ(TypeRegistry::find("Registered"), nullptr);
}

TEST(TypesTest, OfOneNameTheOldestTypeIsFound)
{
    const TypeBase older("Same", nullptr);
    const TypeBase newer("Same", nullptr);

    EXPECT_EQ(TypeRegistry::find("Same"), &older);
    EXPECT_EQ(TypeRegistry::find(newer.getId()), &newer);
}

TEST(TypesTest, ANullNameIsEmpty)
{
    const TypeBase type(nullptr, nullptr);

    EXPECT_STREQ(type.getName(), "");
}

TEST(TypesTest, ATypeSharesItsParentsGroupUnlessItOpensOne)
{
    const osg::FieldContainerType root("Root", nullptr);
    const osg::FieldContainerType child("Child", &root);
    const osg::FieldContainerType own("Own", &root, true);

    EXPECT_EQ(root.getGroupId(), root.getId());
    EXPECT_EQ(child.getGroupId(), root.getId());
    EXPECT_EQ(own.getGroupId(), own.getId());
    EXPECT_NE(osg::Name::getClassType().getGroupId(), osg::Attachment::getClassType().getGroupId());
}

} // namespace
