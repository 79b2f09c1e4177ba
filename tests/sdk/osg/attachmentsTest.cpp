#include "tests/support/Scene.h"

#include <gtest/gtest.h>

#include <osg/FieldContainerType.h>
#include <osg/Name.h>

namespace
{

using osg::Name;
using osg::NodePtr;

/// A name of a kind of its own: it takes the plain name's place.
class Nickname : public Name
{
public:
    Nickname() : Name("nick") {}
    static const osg::FieldContainerType& getClassType()
    {
        static const osg::FieldContainerType type("Nickname", &Name::getClassType());
        return type;
    }
    const osg::FieldContainerType& getType() const override { return getClassType(); }
};

/// An attachment that is no name.
class Note : public osg::Attachment
{
public:
    static const osg::FieldContainerType& getClassType()
    {
        static const osg::FieldContainerType type("Note", &osg::Attachment::getClassType(), true);
        return type;
    }
    const osg::FieldContainerType& getType() const override { return getClassType(); }
};

const std::uint32_t nameGroup = Name::getClassType().getGroupId();

TEST(AttachmentsTest, AreFoundByGroupAndBinding)
{
    const NodePtr node = osg::Node::create();
    const osg::NamePtr name = Name::create("Door");
    const osg::NamePtr other = Name::create("Other");
    node->addAttachment(name);
    node->addAttachment(other, 1);

    EXPECT_EQ(node->findAttachment(nameGroup), name);
    EXPECT_EQ(node->findAttachment(nameGroup, 1), other);
    EXPECT_FALSE(node->findAttachment(nameGroup, 2));
    EXPECT_FALSE(node->findAttachment(Note::getClassType().getGroupId()));
}

TEST(AttachmentsTest, OfAnotherGroupStandBesideEachOther)
{
    const NodePtr node = osg::Node::create();
    const osg::NamePtr name = Name::create("Door");
    const osg::AttachmentPtr note(new Note);
    node->addAttachment(name);
    node->addAttachment(note);

    EXPECT_EQ(node->findAttachment(nameGroup), name);
    EXPECT_EQ(node->findAttachment(Note::getClassType().getGroupId()), note);
}

TEST(AttachmentsTest, ADerivedOneTakesThePlaceOfItsBase)
{
    const NodePtr node = osg::Node::create();
    const osg::AttachmentPtr nickname(new Nickname);
    node->addAttachment(Name::create("Door"));
    node->addAttachment(nickname);

    EXPECT_EQ(node->findAttachment(nameGroup), nickname);
}

TEST(AttachmentsTest, TakenOffTheyAreGone)
{
    const NodePtr node = osg::Node::create();
    const osg::NamePtr name = Name::create("Door");
    node->addAttachment(name);

    node->subAttachment(name);
    node->subAttachment(name);

    EXPECT_FALSE(node->findAttachment(nameGroup));
}

TEST(AttachmentsTest, TakenOffTheyAreGoneUnderEveryBinding)
{
    const NodePtr node = osg::Node::create();
    const osg::NamePtr name = Name::create("Door");
    node->addAttachment(name, 0);
    node->addAttachment(name, 3);

    node->subAttachment(name);

    EXPECT_FALSE(node->findAttachment(nameGroup, 0));
    EXPECT_FALSE(node->findAttachment(nameGroup, 3));
}

TEST(AttachmentsTest, NullAndStrangersAreIgnored)
{
    const NodePtr node = osg::Node::create();
    const osg::NamePtr name = Name::create("Door");
    node->addAttachment(name);

    node->addAttachment({});
    node->subAttachment({});
    node->subAttachment(Name::create("Door"));

    EXPECT_EQ(node->findAttachment(nameGroup), name);
}

TEST(AttachmentsTest, AnAttachmentOutlivesItsContainerAndTheOtherWayRound)
{
    const osg::NamePtr name = Name::create("Door");
    NodePtr node = osg::Node::create();
    node->addAttachment(name);
    node = nullptr;
    name->setValue("Gate");
    EXPECT_STREQ(name->getCString(), "Gate");

    const NodePtr second = osg::Node::create();
    second->addAttachment(Name::create("Window"));
    EXPECT_TRUE(second->findAttachment(nameGroup));
}

TEST(AttachmentsTest, HangingTheSameOneOnAgainChangesNothing)
{
    const NodePtr node = osg::Node::create();
    const osg::NamePtr name = Name::create("Door");
    node->addAttachment(name);
    node->addAttachment(name);

    node->subAttachment(name);
    name->setValue("Gate");

    EXPECT_FALSE(node->findAttachment(nameGroup));
}

TEST(NameTest, KeepsItsBytes)
{
    const osg::NamePtr name = Name::create(std::string("T\xFC\0r", 4));

    EXPECT_EQ(name->getValue(), std::string("T\xFC\0r", 4));
    EXPECT_EQ(Name::create()->getValue(), "");
}

} // namespace
