#include <kt/ktFileIO.h>
#include <kt/ktMessage.h>
#include <kt/ktMessageId.h>

#include <gtest/gtest.h>

namespace
{

TEST(MessageTest, HasItsIdAndNoAttributes)
{
    EXPECT_EQ(ktMessage(0x8000).id(), 0x8000u);
    EXPECT_EQ(ktMessage().id(), 0u);
    EXPECT_TRUE(ktMessage().attributes().empty());
}

TEST(MessageTest, AnAttributeReplacesAnOlderOne)
{
    ktMessage message;
    message.set("key", 1);
    message.set("key", std::string("two"));

    std::string value;
    EXPECT_TRUE(message.get("key", value));
    EXPECT_EQ(value, "two");
    EXPECT_EQ(message.attributes().size(), 1u);
}

TEST(MessageTest, AMissingAttributeIsAnEmptyValue)
{
    const ktMessage message;

    EXPECT_TRUE(message.get("key").empty());
    EXPECT_TRUE(message.attributes().empty());
}

TEST(MessageTest, AttributesAreOrderedByKey)
{
    ktMessage message;
    message.set("b", 1);
    message.set("a", 2);

    EXPECT_EQ(message.attributes().begin()->first, "a");
}

TEST(MessageTest, AnAttributeIsPersistentUnlessSetOtherwise)
{
    ktMessage message;
    message.set("default", 1);
    message.set("kept", 1, true);
    message.set("transient", 1, false);

    EXPECT_TRUE(message.isPersistent("default"));
    EXPECT_TRUE(message.isPersistent("kept"));
    EXPECT_FALSE(message.isPersistent("transient"));
    EXPECT_FALSE(message.isPersistent("missing"));
    message.set("kept", 1, false);
    EXPECT_FALSE(message.isPersistent("kept"));
}

TEST(MessageTest, ARemovedAttributeIsGone)
{
    ktMessage message;
    message.set("key", 1);

    message.remove("key");
    message.remove("missing");

    EXPECT_TRUE(message.get("key").empty());
    EXPECT_FALSE(message.isPersistent("key"));
}

TEST(MessageTest, ACopyIsAMessageOfItsOwn)
{
    ktMessage message(16);
    message.set("key", 1);
    ktMessage copy = message;
    copy.set("key", 2);

    EXPECT_EQ(boost::any_cast<int>(message.get("key")), 1);
    EXPECT_EQ(copy.id(), 16u);
}

TEST(MessageTest, TheCallStackGoesToTheStandardErrorStream)
{
    testing::internal::CaptureStderr();
    ktMessage::printBT();

    EXPECT_NE(testing::internal::GetCapturedStderr().find("ktHost"), std::string::npos);
}

TEST(MessageIdTest, TheIdsAreThoseThatModulesAskFor)
{
    EXPECT_EQ(ktMessageId::SceneCleared, 16u);
    EXPECT_EQ(ktMessageId::Project, 8192u);
    EXPECT_EQ(ktMessageId::SceneChanged, 32768u);
}

TEST(ProjectTest, IsOneMessageThatCanBeEmptied)
{
    ktMessage* project = &ktFileIO::getProject();
    project->set("Animations", 1);

    ktFileIO::clearProject();

    EXPECT_EQ(&ktFileIO::getProject(), project);
    EXPECT_TRUE(project->attributes().empty());
    EXPECT_EQ(project->id(), 8192u);
}

} // namespace
