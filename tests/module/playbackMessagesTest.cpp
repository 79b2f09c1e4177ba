#include "tests/support/ModuleFixture.h"

#include <kt/ktController.h>
#include <kt/ktMessage.h>

namespace
{

using osg::TimeSensorBase;

constexpr osg::FieldMask runMask = TimeSensorBase::TimeFieldMask | TimeSensorBase::IsActiveFieldMask |
                                   TimeSensorBase::StartTimeFieldMask | TimeSensorBase::StopFieldMask;

const char* const names[] = {"animationStart", "animationStop",     "animationToggle",
                             "animationPause", "animationContinue", "animationReset"};

class PlaybackMessagesTest : public kt::test::ModuleFixture
{
protected:
    PlaybackMessagesTest() : door(addTimeSensor("Door")) { setSimulationTime(50.0); }

    /// Sends the named message; what is said on the standard error stream goes to `said`.
    int send(const char* message, const boost::any& animation)
    {
        ktMessage sent;
        sent.set("animation-name", animation);
        testing::internal::CaptureStderr();
        const int answer = ktController::sendMessage(message, sent);
        said = testing::internal::GetCapturedStderr();
        return answer;
    }

    int send(const char* message) { return send(message, std::string("Door")); }

    kt::test::RecordingSensor& door;
    std::string said;
};

TEST_F(PlaybackMessagesTest, StartStarts)
{
    EXPECT_EQ(send("animationStart"), 1);

    EXPECT_TRUE(door.isActive());
    EXPECT_EQ(door.getStartTime(), 50.0);
}

TEST_F(PlaybackMessagesTest, StopHalts)
{
    door.setActive(true);

    EXPECT_EQ(send("animationStop"), 1);

    EXPECT_FALSE(door.isActive());
    EXPECT_FALSE(door.isStopped());
    ASSERT_EQ(door.changes.size(), 1u);
    EXPECT_EQ(door.changes[0].mask, TimeSensorBase::IsActiveFieldMask);
}

TEST_F(PlaybackMessagesTest, ToggleAlternates)
{
    EXPECT_EQ(send("animationToggle"), 1);
    EXPECT_TRUE(door.isActive());

    EXPECT_EQ(send("animationToggle"), 1);
    EXPECT_FALSE(door.isActive());
}

TEST_F(PlaybackMessagesTest, PauseHaltsExactlyAsStop)
{
    door.setActive(true);

    EXPECT_EQ(send("animationPause"), 1);

    EXPECT_FALSE(door.isActive());
    EXPECT_FALSE(door.isStopped());
    ASSERT_EQ(door.changes.size(), 1u);
    EXPECT_EQ(door.changes[0].mask, TimeSensorBase::IsActiveFieldMask);
}

TEST_F(PlaybackMessagesTest, ContinueResumesOnlyWhatIsHalted)
{
    door.setTime(2.0);
    EXPECT_EQ(send("animationContinue"), 1);
    EXPECT_TRUE(door.isActive());
    EXPECT_EQ(door.getStartTime(), 48.0);

    EXPECT_EQ(send("animationContinue"), 1);
    ASSERT_EQ(door.changes.size(), 1u);
    EXPECT_EQ(door.changes[0].mask, runMask);
}

TEST_F(PlaybackMessagesTest, ResetResets)
{
    door.setFraction(0.5F);

    EXPECT_EQ(send("animationReset"), 1);

    EXPECT_TRUE(door.isStopped());
    EXPECT_EQ(door.getFraction(), 0.0F);
}

TEST_F(PlaybackMessagesTest, WithoutANameNothingIsDone)
{
    for (const char* name : names) {
        ktMessage empty;
        EXPECT_EQ(ktController::sendMessage(name, empty), 1);
        send(name, std::string());
        EXPECT_EQ(said, "");
    }
    EXPECT_TRUE(door.changes.empty());
}

TEST_F(PlaybackMessagesTest, AnEmptyNameDoesNotReachANodeOfThatName)
{
    const kt::test::RecordingSensor& unnamed = addTimeSensor("");

    for (const char* name : names)
        send(name, std::string());

    EXPECT_TRUE(unnamed.changes.empty());
}

TEST_F(PlaybackMessagesTest, ANameOfAnotherTypeIsReportedAndNothingIsDone)
{
    for (const char* name : names) {
        send(name, static_cast<const char*>("Door"));
        EXPECT_EQ(said.find("ktMessage::get : Attribute 'animation-name' has wrong type (is:'PKc'"), 0u)
            << name;
        send(name, 17);
        EXPECT_EQ(said.find("ktMessage::get : Attribute 'animation-name' has wrong type (is:'i'"), 0u)
            << name;
    }
    EXPECT_TRUE(door.changes.empty());
}

TEST_F(PlaybackMessagesTest, TheNameIsPassedByteForByteUpToAZero)
{
    const kt::test::RecordingSensor& utf8 = addTimeSensor("T\xC3\xBCr");

    send("animationStart", std::string("T\xC3\xBCr"));
    send("animationStart", std::string("Door\0ignored", 12));

    EXPECT_EQ(utf8.changes.size(), 1u);
    EXPECT_EQ(door.changes.size(), 1u);
}

TEST_F(PlaybackMessagesTest, TheRegistryIsNotInvolved)
{
    send("animationStart");

    EXPECT_TRUE(door.isActive());
    EXPECT_TRUE(records().isEmpty());
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(PlaybackMessagesTest, AfterDestructionNoneIsLeft)
{
    destroyModule();

    for (const char* name : names)
        EXPECT_EQ(send(name), 0) << name;
    EXPECT_TRUE(door.changes.empty());
}

} // namespace
