#include "tests/support/Scene.h"

#include <kt/NodeUtils.h>
#include <osg/FieldContainerType.h>
#include <osg/Name.h>

#include <gtest/gtest.h>

namespace
{

/// An attachment that is no name.
class Note : public osg::Attachment
{
public:
    const osg::FieldContainerType& getType() const override
    {
        static const osg::FieldContainerType type("Note", &osg::Attachment::getClassType());
        return type;
    }
};

TEST(NodeNameTest, ANullNodeHasNone)
{
    EXPECT_EQ(NodeUtils::getName({}), nullptr);
}

TEST(NodeNameTest, TheNodesOwnNameComesFirst)
{
    const osg::NodePtr node = osg::Node::create(osg::TimeSensor::create());
    node->getCore()->addAttachment(osg::Name::create("OfTheCore"));
    node->addAttachment(osg::Name::create("OfTheNode"));

    EXPECT_STREQ(NodeUtils::getName(node), "OfTheNode");
}

TEST(NodeNameTest, AnEmptyNameIsAName)
{
    const osg::NodePtr node = osg::Node::create(osg::TimeSensor::create());
    node->addAttachment(osg::Name::create(""));

    EXPECT_STREQ(NodeUtils::getName(node), "");
}

TEST(NodeNameTest, TheCoresNameComesNext)
{
    const osg::NodePtr node = osg::Node::create(osg::TimeSensor::create());
    node->getCore()->addAttachment(osg::Name::create("OfTheCore"));

    EXPECT_STREQ(NodeUtils::getName(node), "OfTheCore");
}

TEST(NodeNameTest, TheCoresTypeComesLast)
{
    EXPECT_STREQ(NodeUtils::getName(osg::Node::create(osg::TimeSensor::create())), "TimeSensor");
    EXPECT_STREQ(NodeUtils::getName(osg::Node::create(kt::test::RecordingSensor::create())),
                 "RecordingSensor");
}

TEST(NodeNameTest, WithoutNameAndCoreThereIsNone)
{
    EXPECT_EQ(NodeUtils::getName(osg::Node::create()), nullptr);
}

TEST(NodeNameTest, OnlyTheNameAtBindingZeroCounts)
{
    const osg::NodePtr node = osg::Node::create();
    node->addAttachment(osg::Name::create("Second"), 1);

    EXPECT_EQ(NodeUtils::getName(node), nullptr);
}

TEST(NodeNameTest, AnAttachmentOfAnotherKindIsNoName)
{
    const osg::NodePtr node = osg::Node::create();
    node->addAttachment(osg::AttachmentPtr(new Note));

    EXPECT_EQ(NodeUtils::getName(node), nullptr);
}

} // namespace
