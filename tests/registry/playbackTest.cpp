#include "tests/support/ModuleFixture.h"

namespace
{

using osg::TimeSensorBase;

constexpr osg::FieldMask runMask = TimeSensorBase::TimeFieldMask | TimeSensorBase::IsActiveFieldMask |
                                   TimeSensorBase::StartTimeFieldMask | TimeSensorBase::StopFieldMask;
constexpr osg::FieldMask haltMask = TimeSensorBase::IsActiveFieldMask;
constexpr osg::FieldMask resetMask = runMask | TimeSensorBase::FractionFieldMask;

class PlaybackTest : public kt::test::ModuleFixture
{
protected:
    PlaybackTest() : door(addTimeSensor("Door")) { setSimulationTime(100.0); }

    /// Two and a half seconds into a run that was halted, or is still on.
    void setElapsed(bool active)
    {
        door.setStartTime(10.0);
        door.setTime(12.5);
        door.setFraction(0.25F);
        door.setActive(active);
        door.setStop(true);
    }

    void expectOneEdit(osg::FieldMask mask)
    {
        ASSERT_EQ(door.changes.size(), 1u);
        EXPECT_EQ(door.changes[0].mask, mask);
        ASSERT_EQ(scene.changes.entries().size(), 1u);
        EXPECT_EQ(scene.changes.entries()[0].mask, mask);
    }

    kt::test::RecordingSensor& door;
};

TEST_F(PlaybackTest, StartRunsFromTheBeginning)
{
    setElapsed(false);

    module().startAnimation("Door");

    EXPECT_EQ(door.getTime(), 100.0);
    EXPECT_EQ(door.getStartTime(), 100.0);
    EXPECT_TRUE(door.isActive());
    EXPECT_FALSE(door.isStopped());
    expectOneEdit(runMask);
}

TEST_F(PlaybackTest, StartRestartsARunningSensor)
{
    setElapsed(true);

    module().startAnimation("Door");

    EXPECT_EQ(door.getTime(), 100.0);
    EXPECT_EQ(door.getStartTime(), 100.0);
    EXPECT_TRUE(door.isActive());
    expectOneEdit(runMask);
}

TEST_F(PlaybackTest, StopHaltsAndKeepsTheElapsedTime)
{
    setElapsed(true);

    module().stopAnimation("Door");

    EXPECT_FALSE(door.isActive());
    EXPECT_EQ(door.getTime(), 12.5);
    EXPECT_EQ(door.getStartTime(), 10.0);
    EXPECT_TRUE(door.isStopped()) << "stop is left as it was";
    expectOneEdit(haltMask);
}

TEST_F(PlaybackTest, StopOfAHaltedSensorStillClosesAnEdit)
{
    setElapsed(false);

    module().stopAnimation("Door");

    EXPECT_FALSE(door.isActive());
    expectOneEdit(haltMask);
}

TEST_F(PlaybackTest, PauseIsStopAlsoInItsMask)
{
    setElapsed(true);

    module().pauseAnimation("Door");

    EXPECT_FALSE(door.isActive());
    EXPECT_EQ(door.getTime(), 12.5);
    EXPECT_EQ(door.getStartTime(), 10.0);
    EXPECT_TRUE(door.isStopped());
    expectOneEdit(haltMask);
}

TEST_F(PlaybackTest, ContinueResumesAtTheElapsedTimeOfTheHalt)
{
    setElapsed(false);

    module().continueAnimation("Door");

    EXPECT_EQ(door.getTime(), 100.0);
    EXPECT_EQ(door.getStartTime(), 97.5);
    EXPECT_TRUE(door.isActive());
    EXPECT_FALSE(door.isStopped());
    EXPECT_EQ(door.getFraction(), 0.25F);
    expectOneEdit(runMask);
}

TEST_F(PlaybackTest, ContinueLeavesARunningSensorUntouched)
{
    setElapsed(true);

    module().continueAnimation("Door");

    EXPECT_EQ(door.getTime(), 12.5);
    EXPECT_EQ(door.getStartTime(), 10.0);
    EXPECT_TRUE(door.isStopped());
    EXPECT_TRUE(door.changes.empty());
    EXPECT_TRUE(scene.changes.isEmpty());
}

TEST_F(PlaybackTest, ToggleHaltsARunningSensor)
{
    setElapsed(true);

    module().toggleAnimation("Door");

    EXPECT_FALSE(door.isActive());
    EXPECT_EQ(door.getTime(), 12.5);
    EXPECT_EQ(door.getStartTime(), 10.0);
    EXPECT_TRUE(door.isStopped());
    expectOneEdit(haltMask);
}

TEST_F(PlaybackTest, ToggleResumesAHaltedSensor)
{
    setElapsed(false);

    module().toggleAnimation("Door");

    EXPECT_EQ(door.getTime(), 100.0);
    EXPECT_EQ(door.getStartTime(), 97.5);
    EXPECT_TRUE(door.isActive());
    EXPECT_FALSE(door.isStopped());
    expectOneEdit(runMask);
}

TEST_F(PlaybackTest, ResetPutsTheSensorBackToItsBeginning)
{
    setElapsed(true);
    door.setStop(false);

    module().resetAnimation("Door");

    EXPECT_EQ(door.getTime(), 100.0);
    EXPECT_EQ(door.getStartTime(), 100.0);
    EXPECT_EQ(door.getFraction(), 0.0F);
    EXPECT_FALSE(door.isActive());
    EXPECT_TRUE(door.isStopped());
    expectOneEdit(resetMask);
}

TEST_F(PlaybackTest, ToggleAfterAResetStartsFromTheBeginning)
{
    setElapsed(true);
    module().resetAnimation("Door");
    setSimulationTime(130.0);

    module().toggleAnimation("Door");

    EXPECT_EQ(door.getTime(), 130.0);
    EXPECT_EQ(door.getStartTime(), 130.0);
    EXPECT_TRUE(door.isActive());
    EXPECT_FALSE(door.isStopped());
}

TEST_F(PlaybackTest, NoOperationTouchesCycleIntervalLoopAndEnabled)
{
    door.setCycleInterval(7.0);
    door.setLoop(true);
    door.setEnabled(false);

    module().startAnimation("Door");
    module().toggleAnimation("Door");
    module().continueAnimation("Door");
    module().pauseAnimation("Door");
    module().resetAnimation("Door");

    EXPECT_EQ(door.getCycleInterval(), 7.0);
    EXPECT_TRUE(door.isLooping());
    EXPECT_FALSE(door.isEnabled());
}

TEST_F(PlaybackTest, OnlyResetTouchesTheFraction)
{
    door.setFraction(0.5F);

    module().startAnimation("Door");
    module().stopAnimation("Door");
    module().toggleAnimation("Door");
    module().pauseAnimation("Door");
    module().continueAnimation("Door");

    EXPECT_EQ(door.getFraction(), 0.5F);
}

} // namespace
