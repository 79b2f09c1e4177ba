#include "host/vrml/StartStopEvents.h"

#include "tests/vrml/SceneBindingFixture.h"

#include <Inventor/VRMLnodes/SoVRMLTimeSensor.h>
#include <Inventor/VRMLnodes/SoVRMLTouchSensor.h>

namespace kthost
{
namespace
{

class StartStopEventsTest : public test::SceneBindingTest
{
protected:
    void frame(double now)
    {
        binding->takeEvents(now);
        advanceTo(now);
    }

    /// A click; the library gives it a time of day.
    void touch(int index = 0) { find<SoVRMLTouchSensor>(index).touchTime.setValue(SbTime(1.8e9 + ++clicks)); }

    double clicks = 0.0;
};

const std::string touched = R"(
    Group { children [ DEF Go TouchSensor {} Shape { geometry Box {} } ] }
    DEF T TimeSensor { cycleInterval 4 }
    DEF I PositionInterpolator { key [ 0 1 ] keyValue [ 0 0 0, 8 0 0 ] }
    DEF B Transform { children Shape { geometry Box {} } }
    ROUTE Go.touchTime TO T.set_startTime
    ROUTE T.fraction_changed TO I.set_fraction
    ROUTE I.value_changed TO B.set_translation)";

TEST_F(StartStopEventsTest, AClickStartsTheSensorInTheNextFrame)
{
    open(touched);
    binding->start(5.0);
    frame(6.0);
    EXPECT_FALSE(sensor().isActive());

    touch();
    EXPECT_FALSE(sensor().isActive());
    frame(10.0);
    EXPECT_TRUE(sensor().isActive());
    EXPECT_EQ(sensor().getStartTime(), 10.0);
    frame(11.0);
    EXPECT_EQ(sensor().getFraction(), 0.25F);
    EXPECT_EQ(position(), 2.0F);
}

TEST_F(StartStopEventsTest, ASensorThatRunsIgnoresAStart)
{
    open(touched);
    touch();
    frame(10.0);
    touch();
    frame(11.0);
    EXPECT_EQ(sensor().getStartTime(), 10.0);
    frame(14.0);
    EXPECT_FALSE(sensor().isActive());
    frame(15.0);
    EXPECT_FALSE(sensor().isActive()) << "an ignored start is no start for later";

    touch();
    frame(20.0);
    EXPECT_TRUE(sensor().isActive());
}

TEST_F(StartStopEventsTest, ADisabledSensorIgnoresAStart)
{
    open(touched);
    sensor().setEnabled(false);
    touch();
    frame(10.0);
    sensor().setEnabled(true);
    frame(11.0);
    EXPECT_FALSE(sensor().isActive());
}

TEST_F(StartStopEventsTest, AStartForLaterWaitsForItsMoment)
{
    open(touched);
    find<SoVRMLTimeSensor>().startTime.setValue(SbTime(12.0));
    frame(10.0);
    EXPECT_FALSE(sensor().isActive());
    frame(13.0);
    EXPECT_TRUE(sensor().isActive());
    EXPECT_EQ(sensor().getStartTime(), 12.0);
    EXPECT_EQ(sensor().getFraction(), 0.25F);
}

TEST_F(StartStopEventsTest, AStopEndsARun)
{
    open("Group { children [ DEF Halt TouchSensor {} Shape { geometry Box {} } ] }" + test::slide +
         " ROUTE Halt.touchTime TO T.set_stopTime");
    binding->start(0.0);
    frame(1.0);
    ASSERT_TRUE(sensor().isActive());

    touch();
    frame(2.0);
    EXPECT_FALSE(sensor().isActive());
    EXPECT_EQ(position(), 2.0F);
}

TEST_F(StartStopEventsTest, AStopBeforeTheStartIsIgnored)
{
    open(test::slide);
    binding->start(5.0);
    find<SoVRMLTimeSensor>().stopTime.setValue(SbTime(3.0));
    frame(6.0);
    EXPECT_TRUE(sensor().isActive());
}

TEST_F(StartStopEventsTest, EditsGoThroughTheChangeList)
{
    open(touched);
    touch();
    binding->takeEvents(10.0);
    ASSERT_EQ(changes.entries().size(), 1U);
    EXPECT_EQ(changes.entries()[0].mask,
              osg::TimeSensorBase::TimeFieldMask | osg::TimeSensorBase::StartTimeFieldMask |
                  osg::TimeSensorBase::IsActiveFieldMask | osg::TimeSensorBase::StopFieldMask);
}

TEST_F(StartStopEventsTest, OneSensorStartsTheNext)
{
    open("DEF A TimeSensor { cycleInterval 2 loop TRUE } DEF B TimeSensor { cycleInterval 8 }"
         " ROUTE A.cycleTime TO B.set_startTime");
    binding->start(0.0);
    frame(1.0);
    frame(1.5);
    EXPECT_TRUE(sensor(1).isActive());
}

} // namespace
} // namespace kthost
