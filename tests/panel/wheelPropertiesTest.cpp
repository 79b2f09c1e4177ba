#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

#include <QSignalSpy>

namespace
{

using osg::TimeSensorBase;

class WheelPropertiesTest : public kt::test::ModuleFixture
{
protected:
    WheelPropertiesTest() : door(addTimeSensor("Door")) { addRecord("Door"); }

    kt::test::RecordingSensor& door;
};

TEST_F(WheelPropertiesTest, TheCycleIntervalIsLoadedFromTheSceneWithoutFeedback)
{
    door.setCycleInterval(4.5);
    const QSignalSpy changes(panel()._cycle_interval, SIGNAL(valueChanged(double)));

    select({"Door"});

    EXPECT_EQ(panel()._cycle_interval->value(), 4.5);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_TRUE(door.changes.empty());
    EXPECT_FALSE(panel()._cycle_interval->signalsBlocked());
}

TEST_F(WheelPropertiesTest, OfSeveralSensorsTheLastOnesCycleIntervalIsShown)
{
    door.setCycleInterval(4.5);
    addTimeSensor("Door").setCycleInterval(6.0);
    scene.addNode("Door", kt::test::OtherCore::create());

    select({"Door"});

    EXPECT_EQ(panel()._cycle_interval->value(), 6.0);
}

TEST_F(WheelPropertiesTest, WithoutASensorTheWheelKeepsItsValue)
{
    panel()._cycle_interval->setValue(3.0);
    addRecord("Nowhere");

    select({"Nowhere"});

    EXPECT_EQ(panel()._cycle_interval->value(), 3.0);
}

TEST_F(WheelPropertiesTest, TheFractionIsNeverLoadedFromTheScene)
{
    panel()._fraction->setValue(0.25);
    door.setFraction(0.75F);

    select({"Door"});

    EXPECT_EQ(panel()._fraction->value(), 0.25);
}

TEST_F(WheelPropertiesTest, AnEditedCycleIntervalGoesToEverySensorOfTheName)
{
    kt::test::RecordingSensor& second = addTimeSensor("Door");
    const kt::test::RecordingSensor& other = addTimeSensor("Fan");
    scene.addNode("Door", kt::test::OtherCore::create());
    select({"Door"});

    panel()._cycle_interval->setValue(7.0);

    EXPECT_EQ(door.getCycleInterval(), 7.0);
    EXPECT_EQ(second.getCycleInterval(), 7.0);
    EXPECT_EQ(other.getCycleInterval(), 1.0);
    ASSERT_EQ(door.changes.size(), 1u);
    EXPECT_EQ(door.changes[0].mask, TimeSensorBase::CycleIntervalFieldMask);
    EXPECT_EQ(scene.changes.entries().size(), 2u);
}

TEST_F(WheelPropertiesTest, AfterAnEditTheLastSensorsValueIsShown)
{
    kt::test::RecordingSensor& second = addTimeSensor("Door");
    select({"Door"});
    panel()._cycle_interval->setValue(7.0);
    second.setCycleInterval(8.0);

    module().animationDisplayProperties();

    EXPECT_EQ(panel()._cycle_interval->value(), 8.0);
}

TEST_F(WheelPropertiesTest, AnEditedFractionGoesToEverySensorOfTheName)
{
    const kt::test::RecordingSensor& second = addTimeSensor("Door");
    select({"Door"});

    panel()._fraction->setValue(0.1);

    EXPECT_EQ(door.getFraction(), 0.1F);
    EXPECT_EQ(second.getFraction(), 0.1F);
    ASSERT_EQ(door.changes.size(), 1u);
    EXPECT_EQ(door.changes[0].mask, TimeSensorBase::FractionFieldMask);
}

TEST_F(WheelPropertiesTest, EditsTouchNoOtherField)
{
    door.setTime(2.0);
    door.setStartTime(1.0);
    door.setActive(true);
    setSimulationTime(50.0);
    select({"Door"});

    panel()._cycle_interval->setValue(7.0);
    panel()._fraction->setValue(0.5);

    EXPECT_EQ(door.getTime(), 2.0);
    EXPECT_EQ(door.getStartTime(), 1.0);
    EXPECT_TRUE(door.isActive());
    EXPECT_FALSE(door.isStopped());
}

TEST_F(WheelPropertiesTest, NamesAreLookedUpAsUtf8)
{
    ktAnimationInfo& record = addRecord("T\xC3\xBCr");
    const kt::test::RecordingSensor& utf8 = addTimeSensor("T\xC3\xBCr");
    const kt::test::RecordingSensor& latin1 = addTimeSensor("T\xFCr");
    module()._current = &record;

    module().changedCycleInterval(7.0);
    module().changedFraction(0.5);

    EXPECT_EQ(utf8.getCycleInterval(), 7.0);
    EXPECT_EQ(utf8.getFraction(), 0.5F);
    EXPECT_TRUE(latin1.changes.empty());
    module()._current->comment.clear();
    panel()._cycle_interval->setValue(1.0);
    module().animationDisplayProperties();
    EXPECT_EQ(panel()._cycle_interval->value(), utf8.getCycleInterval());
}

TEST_F(WheelPropertiesTest, WithoutACurrentRecordTheSceneIsNotTouched)
{
    panel()._cycle_interval->setValue(7.0);
    panel()._fraction->setValue(0.5);
    module().changedCycleInterval(8.0);
    module().changedFraction(0.6);

    EXPECT_TRUE(door.changes.empty());
    EXPECT_EQ(door.getCycleInterval(), 1.0);
}

TEST_F(WheelPropertiesTest, NothingIsStoredInTheRecord)
{
    select({"Door"});
    const ktAnimationInfo before = *module()._current;

    panel()._cycle_interval->setValue(7.0);

    EXPECT_EQ(module()._current->name, before.name);
    EXPECT_EQ(module()._current->comment, before.comment);
    EXPECT_EQ(module()._current->startHotkey, before.startHotkey);
}

} // namespace
