#include "tests/vrml/SceneBindingFixture.h"

#include <Inventor/SoDB.h>
#include <Inventor/VRMLnodes/SoVRMLPositionInterpolator.h>
#include <Inventor/VRMLnodes/SoVRMLTimeSensor.h>
#include <Inventor/fields/SoSFTime.h>

namespace kthost::test
{
namespace
{

using Base = osg::TimeSensorBase;

TEST_F(SceneBindingTest, CarriesTheFractionThroughInterpolatorAndTransform)
{
    open(slide);
    binding->start(100.0);
    advanceTo(101.0);
    EXPECT_EQ(find<SoVRMLPositionInterpolator>().set_fraction.getValue(), 0.25F);
    EXPECT_EQ(position(), 2.0F);
    advanceTo(103.0);
    EXPECT_EQ(position(), 6.0F);
}

TEST_F(SceneBindingTest, RunsAtOnceWhatVrmlRunsAtOnce)
{
    open("TimeSensor { loop TRUE } TimeSensor { loop TRUE startTime 5 stopTime 5 } TimeSensor {} "
         "TimeSensor { loop TRUE enabled FALSE } TimeSensor { loop TRUE startTime 5 stopTime 6 }");
    binding->start(12.5);
    const bool runs[] = {true, true, false, false, false};
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(sensor(i).isActive(), runs[i]) << i;
    EXPECT_EQ(sensor(0).getStartTime(), 12.5);
    EXPECT_EQ(sensor(1).getTime(), 12.5);
    EXPECT_EQ(sensor(4).getStartTime(), 5.0);
}

TEST_F(SceneBindingTest, ShowsTheFirstMomentOfARunningSensorAtOnce)
{
    open("DEF T TimeSensor { loop TRUE } DEF I PositionInterpolator { key [ 0 1 ] keyValue [ 3 0 0, 8 0 0 ] }"
         "DEF B Transform {} ROUTE T.fraction_changed TO I.set_fraction ROUTE I.value_changed TO "
         "B.set_translation");
    binding->start(100.0);
    EXPECT_EQ(position(), 3.0F);
}

TEST_F(SceneBindingTest, StopsTheReadersOwnSensor)
{
    open(slide);
    binding->start(0.0);
    advanceTo(1.0);
    auto* const clock = static_cast<SoSFTime*>(SoDB::getGlobalField("realTime"));
    const SbTime before = clock->getValue();
    clock->setValue(before + SbTime(1.7));
    auto& source = find<SoVRMLTimeSensor>();
    source.cycleInterval.setValue(SbTime(3.0));
    source.enabled.setValue(FALSE);
    source.enabled.setValue(TRUE);
    EXPECT_EQ(position(), 2.0F);
    EXPECT_EQ(source.fraction_changed.getNumConnections(), 0);
    clock->setValue(before);
}

TEST_F(SceneBindingTest, MovesWhatASensorThatDoesNotRunIsSetTo)
{
    open(slide);
    editFraction(0.5F);
    applyChanges();
    EXPECT_EQ(position(), 4.0F);
    editFraction(0.0F);
    applyChanges();
    EXPECT_EQ(position(), 0.0F);
}

TEST_F(SceneBindingTest, HoldsTheEndPose)
{
    open("DEF T TimeSensor { cycleInterval 2 } DEF I PositionInterpolator { key [ 0 1 ] keyValue [ 0 0 0, 8 "
         "0 0 ] }"
         "DEF B Transform {} ROUTE T.fraction_changed TO I.set_fraction ROUTE I.value_changed TO "
         "B.set_translation");
    sensor().setActive(true);
    advanceTo(1.0);
    advanceTo(2.3);
    EXPECT_EQ(position(), 8.0F);
    EXPECT_FALSE(sensor().isActive());
}

TEST_F(SceneBindingTest, SendsAnEqualValueAgain)
{
    open("DEF T TimeSensor {} DEF U TimeSensor {}"
         "DEF I PositionInterpolator { key [ 0 1 ] keyValue [ 0 0 0, 8 0 0 ] } DEF B Transform {}"
         "ROUTE T.fraction_changed TO I.set_fraction ROUTE U.fraction_changed TO I.set_fraction "
         "ROUTE I.value_changed TO B.set_translation");
    editFraction(0.25F, 0);
    applyChanges();
    editFraction(0.75F, 1);
    applyChanges();
    EXPECT_EQ(position(), 6.0F);
    editFraction(0.25F, 0);
    applyChanges();
    EXPECT_EQ(position(), 2.0F);
}

TEST_F(SceneBindingTest, LetsTheLastEditOfAFrameStand)
{
    open("DEF T TimeSensor {} DEF U TimeSensor {}"
         "DEF I PositionInterpolator { key [ 0 1 ] keyValue [ 0 0 0, 8 0 0 ] } DEF B Transform {}"
         "ROUTE T.fraction_changed TO I.set_fraction ROUTE U.fraction_changed TO I.set_fraction "
         "ROUTE I.value_changed TO B.set_translation");
    editFraction(0.25F, 0);
    editFraction(0.75F, 1);
    applyChanges();
    EXPECT_EQ(position(), 6.0F);
}

TEST_F(SceneBindingTest, SendsActivityOnlyWhenItChanges)
{
    open("DEF T TimeSensor {} DEF Out TimeSensor { enabled FALSE } ROUTE T.isActive TO Out.set_enabled");
    auto& enabled = find<SoVRMLTimeSensor>(1).enabled;
    const auto endEdit = [&] { osg::endEdit(osg::FieldContainerPtr(&sensor()), Base::IsActiveFieldMask); };
    sensor().setActive(true);
    endEdit();
    applyChanges();
    EXPECT_TRUE(enabled.getValue());
    enabled.setValue(FALSE);
    endEdit();
    applyChanges();
    EXPECT_FALSE(enabled.getValue());
    sensor().setActive(false);
    endEdit();
    enabled.setValue(TRUE);
    applyChanges();
    EXPECT_FALSE(enabled.getValue());
}

TEST_F(SceneBindingTest, SendsTimeEachFrameAndCycleTimeEachCycle)
{
    open("DEF T TimeSensor { cycleInterval 2 loop TRUE } DEF Out TimeSensor { enabled FALSE }"
         "ROUTE T.time TO Out.set_stopTime ROUTE T.cycleTime TO Out.set_startTime");
    auto& out = find<SoVRMLTimeSensor>(1);
    binding->start(10.0);
    EXPECT_EQ(out.startTime.getValue().getValue(), 10.0);
    advanceTo(11.0);
    EXPECT_EQ(out.startTime.getValue().getValue(), 10.0);
    EXPECT_EQ(out.stopTime.getValue().getValue(), 11.0);
    advanceTo(12.5);
    EXPECT_EQ(out.startTime.getValue().getValue(), 12.5);
    EXPECT_EQ(out.stopTime.getValue().getValue(), 12.5);
}

TEST_F(SceneBindingTest, ConvertsWhatIsRoutedToAFieldOfAnotherType)
{
    open("DEF T TimeSensor {} DEF Out TimeSensor {} ROUTE T.fraction_changed TO Out.set_cycleInterval");
    editFraction(0.5F);
    applyChanges();
    EXPECT_EQ(find<SoVRMLTimeSensor>(1).cycleInterval.getValue().getValue(), 0.5);
}

TEST_F(SceneBindingTest, DrivesWhatAPrototypeInstanceSendsOut)
{
    open(R"(PROTO Clock [ eventOut SFFloat fraction ] { TimeSensor { fraction_changed IS fraction } }
            DEF C Clock {} DEF I PositionInterpolator { key [ 0 1 ] keyValue [ 0 0 0, 8 0 0 ] } DEF B Transform {}
            ROUTE C.fraction TO I.set_fraction ROUTE I.value_changed TO B.set_translation)");
    editFraction(0.5F);
    applyChanges();
    EXPECT_EQ(position(), 4.0F);
}

TEST_F(SceneBindingTest, SkipsContainersThatItDoesNotKnow)
{
    open(slide);
    const osg::TimeSensorPtr stranger = osg::TimeSensor::create();
    stranger->setFraction(0.5F);
    osg::endEdit(stranger, Base::FractionFieldMask);
    applyChanges();
    EXPECT_EQ(position(), 0.0F);
}

} // namespace
} // namespace kthost::test
