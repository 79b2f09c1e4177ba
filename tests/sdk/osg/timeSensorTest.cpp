#include "tests/support/Scene.h"

#include <gtest/gtest.h>

#include <osg/PThreadBase.h>

#include <cmath>
#include <limits>

namespace
{

using osg::TimeSensorBase;

constexpr osg::FieldMask runningMask = TimeSensorBase::TimeFieldMask | TimeSensorBase::FractionFieldMask;
constexpr osg::FieldMask endMask = runningMask | TimeSensorBase::IsActiveFieldMask;

/// A sensor that runs since second 10, with a cycle of four seconds.
class TimeSensorTest : public testing::Test
{
protected:
    TimeSensorTest()
    {
        sensor->setStartTime(10.0);
        sensor->setCycleInterval(4.0);
        sensor->setActive(true);
    }

    /// The fraction at this time, of a sensor that is still the same.
    float fractionAt(double now)
    {
        sensor->setActive(true);
        EXPECT_TRUE(sensor->advance(now));
        return sensor->getFraction();
    }

    osg::Ptr<kt::test::RecordingSensor> sensor = kt::test::RecordingSensor::create();
};

TEST(TimeSensorFieldsTest, StartWithTheFieldsOfANewSensor)
{
    const osg::TimeSensorPtr fresh = osg::TimeSensor::create();
    EXPECT_EQ(fresh->getCycleInterval(), 1.0);
    EXPECT_EQ(fresh->getTime(), 0.0);
    EXPECT_EQ(fresh->getStartTime(), 0.0);
    EXPECT_EQ(fresh->getFraction(), 0.0F);
    EXPECT_FALSE(fresh->isActive());
    EXPECT_FALSE(fresh->isStopped());
    EXPECT_FALSE(fresh->isLooping());
    EXPECT_TRUE(fresh->isEnabled());
}

TEST_F(TimeSensorTest, TheFractionIsThatOfTheCycle)
{
    EXPECT_EQ(fractionAt(11.0), 0.25F);
    EXPECT_EQ(fractionAt(13.0), 0.75F);
    EXPECT_EQ(sensor->getTime(), 13.0);
    EXPECT_EQ(sensor->getStartTime(), 10.0);
    EXPECT_TRUE(sensor->isActive());
}

TEST_F(TimeSensorTest, ALoopGoesOnWithTheNextCycle)
{
    sensor->setLoop(true);

    EXPECT_EQ(fractionAt(15.0), 0.25F);
    EXPECT_EQ(fractionAt(10.0 + 4000.0 + 3.0), 0.75F);
    EXPECT_TRUE(sensor->isActive());
}

TEST_F(TimeSensorTest, AWholeNumberOfCyclesIsOne)
{
    sensor->setLoop(true);

    EXPECT_EQ(fractionAt(14.0), 1.0F);
    EXPECT_EQ(fractionAt(50.0), 1.0F);
    EXPECT_TRUE(sensor->isActive());
}

TEST_F(TimeSensorTest, AtTheStartTimeAndBeforeItIsZero)
{
    EXPECT_EQ(fractionAt(10.0), 0.0F);
    EXPECT_EQ(fractionAt(9.0), 0.0F);
    sensor->setLoop(true);
    EXPECT_EQ(fractionAt(10.0), 0.0F);
    EXPECT_EQ(fractionAt(-100.0), 0.0F);
}

TEST_F(TimeSensorTest, WithoutALoopTheFirstCycleIsTheLast)
{
    EXPECT_TRUE(sensor->advance(14.0));
    EXPECT_EQ(sensor->getFraction(), 1.0F);
    EXPECT_FALSE(sensor->isActive());
    EXPECT_EQ(sensor->getTime(), 14.0);

    EXPECT_FALSE(sensor->advance(15.0)) << "the end pose is held";
    EXPECT_EQ(sensor->getFraction(), 1.0F);
    EXPECT_EQ(sensor->getTime(), 14.0);
}

TEST_F(TimeSensorTest, AFrameThatComesTooLateEndsTheCycleToo)
{
    EXPECT_TRUE(sensor->advance(1000.0));

    EXPECT_EQ(sensor->getFraction(), 1.0F);
    EXPECT_FALSE(sensor->isActive());
}

TEST_F(TimeSensorTest, ACycleIntervalThatIsNotAboveZeroIsAFinishedCycle)
{
    for (const double cycle : {0.0, -1.0, std::nan("")}) {
        sensor->setCycleInterval(cycle);
        sensor->setLoop(false);
        EXPECT_EQ(fractionAt(10.5), 1.0F) << cycle;
        EXPECT_FALSE(sensor->isActive()) << cycle;

        sensor->setLoop(true);
        EXPECT_EQ(fractionAt(10.5), 1.0F) << cycle;
        EXPECT_TRUE(sensor->isActive()) << cycle;
    }
}

TEST_F(TimeSensorTest, WhatCannotBeCountedStaysWithinTheCycle)
{
    sensor->setLoop(true);
    for (const double now : {std::nan(""), std::numeric_limits<double>::infinity(), 1e300, -1e300}) {
        const float fraction = fractionAt(now);
        EXPECT_TRUE(fraction >= 0.0F && fraction <= 1.0F) << now;
    }
}

TEST_F(TimeSensorTest, ADisabledHaltedOrResetSensorIsLeftUntouched)
{
    sensor->setEnabled(false);
    EXPECT_FALSE(sensor->advance(11.0));
    sensor->setEnabled(true);
    sensor->setActive(false);
    EXPECT_FALSE(sensor->advance(11.0));
    sensor->setActive(true);
    sensor->setStop(true);
    EXPECT_FALSE(sensor->advance(11.0));

    EXPECT_EQ(sensor->getTime(), 0.0);
    EXPECT_TRUE(sensor->changes.empty());
}

TEST_F(TimeSensorTest, AFrameClosesOneEdit)
{
    osg::ChangeList list;
    osg::PThreadBase::setCurrentChangeList(&list);

    sensor->advance(11.0);
    sensor->advance(14.0);

    osg::PThreadBase::setCurrentChangeList(nullptr);
    ASSERT_EQ(list.entries().size(), 2u);
    EXPECT_EQ(list.entries()[0].mask, runningMask);
    EXPECT_EQ(list.entries()[1].mask, endMask);
    ASSERT_EQ(sensor->changes.size(), 2u);
    EXPECT_EQ(sensor->changes[0].mask, runningMask);
    EXPECT_EQ(sensor->changes[1].mask, endMask);
}

TEST_F(TimeSensorTest, AChangedCycleIntervalCountsFromTheNextFrame)
{
    EXPECT_EQ(fractionAt(11.0), 0.25F);

    sensor->setCycleInterval(2.0);

    EXPECT_EQ(sensor->getFraction(), 0.25F);
    EXPECT_EQ(fractionAt(11.5), 0.75F);
}

} // namespace
