#include "host/vrml/SceneBinding.h"

#include "tests/vrml/BuiltScene.h"
#include "tests/vrml/SceneFiles.h"

#include <osg/Edit.h>

#include <gtest/gtest.h>

#include <Inventor/SoDB.h>
#include <Inventor/VRMLnodes/SoVRMLPositionInterpolator.h>
#include <Inventor/VRMLnodes/SoVRMLTimeSensor.h>
#include <Inventor/VRMLnodes/SoVRMLTransform.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/fields/SoSFTime.h>
#include <Inventor/sensors/SoNodeSensor.h>

#include <memory>

namespace kthost
{
namespace
{

using Base = osg::TimeSensorBase;

const std::string slide = R"(
    DEF T TimeSensor { cycleInterval 4 loop TRUE }
    DEF I PositionInterpolator { key [ 0 1 ] keyValue [ 0 0 0, 8 0 0 ] }
    DEF B Transform { children Shape { geometry Box { size 2 2 2 } } }
    ROUTE T.fraction_changed TO I.set_fraction
    ROUTE I.value_changed TO B.set_translation)";

class SceneBindingTest : public testing::Test
{
protected:
    SceneBindingTest() { osg::PThreadBase::setCurrentChangeList(&changes); }
    ~SceneBindingTest() override { osg::PThreadBase::setCurrentChangeList(nullptr); }

    void open(const std::string& text)
    {
        scene = std::make_unique<test::BuiltScene>(folder.writeScene("scene.wrl", text));
        ASSERT_TRUE(scene->reading) << scene->reading.error;
        binding =
            std::make_unique<SceneBinding>(CoinRef<SoNode>(scene->reading.root.get()), scene->nodes.sensors);
    }

    osg::TimeSensor& sensor(std::size_t index = 0) { return *binding->sensors()[index]; }

    void applyChanges()
    {
        binding->apply(changes);
        changes.clear();
    }

    /// One frame of the host.
    void advanceTo(double now)
    {
        for (const osg::TimeSensorPtr& each : binding->sensors())
            each->advance(now);
        applyChanges();
    }

    void editFraction(float fraction, std::size_t index = 0)
    {
        sensor(index).setFraction(fraction);
        osg::endEdit(osg::FieldContainerPtr(&sensor(index)), Base::FractionFieldMask);
    }

    template <class Node>
    Node& find(int index = 0)
    {
        SoSearchAction search;
        search.setType(Node::getClassTypeId());
        search.setInterest(SoSearchAction::ALL);
        search.setSearchingAll(TRUE);
        search.apply(scene->reading.root.get());
        return *static_cast<Node*>(search.getPaths()[index]->getNodeFromTail(0));
    }

    float position(int index = 0) { return find<SoVRMLTransform>(index).translation.getValue()[0]; }

    test::SceneFolder folder;
    osg::ChangeList changes;
    std::unique_ptr<test::BuiltScene> scene;
    std::unique_ptr<SceneBinding> binding;
};

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

class MovingPictureTest : public SceneBindingTest
{
protected:
    /// Sensors whose boxes sit side by side, deep below groups that keep what they know of what is below
    /// them.
    void openDeepScene()
    {
        const std::string cached = "Group { renderCaching ON boundingBoxCaching ON children [ ";
        std::string text;
        for (int i = 0; i < 8; ++i)
            text += cached;
        text += "DEF B Transform { children Shape { geometry Box { size 2 2 2 } } }"
                "Group { boundingBoxCaching ON children DEF C Transform { children Shape { geometry Box { "
                "size 2 2 2 } } } }";
        for (int i = 0; i < 8; ++i)
            text += " ] }";
        for (const std::string name : {"B", "C"})
            text += "DEF T" + name + " TimeSensor {} DEF I" + name +
                    " PositionInterpolator { key [ 0 1 ] keyValue [ 0 0 0, 8 0 0 ] } ROUTE T" + name +
                    ".fraction_changed TO I" + name + ".set_fraction ROUTE I" + name + ".value_changed TO " +
                    name + ".set_translation ";
        open(text);
    }

    float rightEdge()
    {
        SoGetBoundingBoxAction box(SbViewportRegion(100, 100));
        box.apply(scene->reading.root.get());
        return box.getBoundingBox().getMax()[0];
    }
};

TEST_F(MovingPictureTest, IsNeverAnOldOne)
{
    openDeepScene();
    for (int round = 0; round < 3; ++round) {
        ASSERT_EQ(rightEdge(), 1.0F);
        editFraction(0.5F, 0);
        applyChanges();
        EXPECT_EQ(rightEdge(), 5.0F);
        editFraction(1.0F, 1);
        applyChanges();
        EXPECT_EQ(rightEdge(), 9.0F);
        editFraction(0.0F, 0);
        editFraction(0.25F, 1);
        applyChanges();
        EXPECT_EQ(rightEdge(), 3.0F);
        editFraction(0.0F, 1);
        applyChanges();
    }
}

TEST_F(MovingPictureTest, IsAnnouncedOnceAFrame)
{
    openDeepScene();
    int announcements = 0;
    SoNodeSensor view([](void* count, SoSensor*) { ++*static_cast<int*>(count); }, &announcements);
    view.setPriority(0);
    view.attach(scene->reading.root.get());
    editFraction(0.5F, 0);
    editFraction(0.5F, 1);
    applyChanges();
    EXPECT_EQ(announcements, 1);
    editFraction(0.6F, 1);
    applyChanges();
    EXPECT_EQ(announcements, 2);
    applyChanges();
    EXPECT_EQ(announcements, 2);
}

} // namespace
} // namespace kthost
