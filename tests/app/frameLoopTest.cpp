#include "host/app/FrameLoop.h"

#include <kt/ktController.h>
#include <kt/ktMessage.h>
#include <kt/ktMessageId.h>
#include <kt/ktModuleBase.h>
#include <kt/ktScenegraph.h>
#include <osg/Edit.h>
#include <osg/Name.h>

#include <gtest/gtest.h>

using namespace kthost;

namespace
{

class CountingModule : public ktModuleBase
{
public:
    CountingModule() : ktModuleBase("Counting", "Counting", ktMessageId::SceneChanged, nullptr) {}

    void update() override { calls += 'u'; }
    void loop() override { calls += 'l'; }
    void receivedMessage(ktMessage& message) override
    {
        calls += message.id() == ktMessageId::SceneChanged ? 'c' : '?';
    }

    std::string calls;
};

class FrameLoopTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ktController::setSimulationTime(0.0);
        ktScenegraph::setRootNode(root);
    }

    void TearDown() override { ktScenegraph::setRootNode({}); }

    osg::TimeSensor& addRunningSensor(const char* name)
    {
        const osg::TimeSensorPtr sensor = osg::TimeSensor::create();
        sensor->setActive(true);
        const osg::NodePtr node = osg::Node::create(sensor);
        node->addAttachment(osg::Name::create(name));
        root->addChild(node);
        return *sensor;
    }

    osg::NodePtr root = osg::Node::create();
    FrameLoop frames;
};

} // namespace

TEST_F(FrameLoopTest, AFrameEvaluatesTheRunningSensors)
{
    osg::TimeSensor& door = addRunningSensor("Door");

    frames.advanceTo(0.25);

    EXPECT_EQ(ktController::getSimulationTime(), 0.25);
    EXPECT_EQ(door.getTime(), 0.25);
    EXPECT_EQ(door.getFraction(), 0.25F);
}

TEST_F(FrameLoopTest, TheClockNeverRunsBack)
{
    frames.advanceTo(3.0);
    frames.advanceTo(1.0);

    EXPECT_EQ(ktController::getSimulationTime(), 3.0);
}

TEST_F(FrameLoopTest, RunLandsExactlyOnItsEndWithAShorterLastStep)
{
    std::vector<double> times;

    frames.run(0.1, 25.0, [&] { times.push_back(ktController::getSimulationTime()); });

    EXPECT_EQ(times, (std::vector<double>{0.04, 0.08, 0.1}));
}

TEST_F(FrameLoopTest, StepsAreCountedFromTheBeginningSoThatNoErrorAddsUp)
{
    int steps = 0;

    frames.run(100.0, 30.0, [&] {
        ++steps;
        if (steps < 3000) {
            ASSERT_EQ(ktController::getSimulationTime(), steps / 30.0);
        }
    });

    EXPECT_EQ(steps, 3000);
    EXPECT_EQ(ktController::getSimulationTime(), 100.0);
}

TEST_F(FrameLoopTest, RunOfNoTimeTakesNoStep)
{
    frames.run(0.0, 25.0, [] { FAIL(); });
}

TEST_F(FrameLoopTest, EditsOfAFrameReachTheFollowerOnceAndInOrder)
{
    osg::TimeSensor& door = addRunningSensor("Door");
    std::vector<osg::FieldMask> masks;
    frames.setFollower([&](const osg::ChangeList& changes) {
        for (const auto& entry : changes.entries()) {
            EXPECT_EQ(entry.container.get(), &door);
            masks.push_back(entry.mask);
        }
    });

    osg::endEdit(osg::FieldContainerPtr(&door), osg::TimeSensorBase::CycleIntervalFieldMask);
    frames.advanceTo(0.5);
    door.setActive(false);
    frames.advanceTo(0.6);

    using osg::TimeSensorBase;
    EXPECT_EQ(masks, (std::vector<osg::FieldMask>{TimeSensorBase::CycleIntervalFieldMask,
                                                  TimeSensorBase::TimeFieldMask |
                                                      TimeSensorBase::FractionFieldMask}));
}

TEST_F(FrameLoopTest, WhatAFollowerEditsWaitsForTheNextFrame)
{
    osg::TimeSensor& door = addRunningSensor("Door");
    int frame = 0;
    int entries = 0;
    frames.setFollower([&](const osg::ChangeList& changes) {
        ++frame;
        entries = static_cast<int>(changes.entries().size());
        osg::endEdit(osg::FieldContainerPtr(&door), osg::TimeSensorBase::LoopFieldMask);
    });

    frames.advanceTo(0.1);
    EXPECT_EQ(entries, 1);
    frames.advanceTo(0.2);

    EXPECT_EQ(frame, 2);
    EXPECT_EQ(entries, 2);
}

TEST_F(FrameLoopTest, ManySceneEditsGiveOneMessageAtTheEndOfTheTurn)
{
    CountingModule module;
    addRunningSensor("A");
    addRunningSensor("B");
    ktScenegraph::setNodeName(true, root, "Root", true);

    frames.settle();
    frames.settle();

    EXPECT_EQ(module.calls, "cuu");
}

TEST_F(FrameLoopTest, ModulesLoopBeforeTheSensorsAndUpdateAfterThePicture)
{
    CountingModule module;
    addRunningSensor("A");
    ktScenegraph::takeSceneChanged();
    frames.setFollower([&](const osg::ChangeList&) { module.calls += 'p'; });

    frames.advanceTo(0.1);

    EXPECT_EQ(module.calls, "lpu");
}

TEST_F(FrameLoopTest, SensorsAreListedInDocumentOrderAndFollowTheScene)
{
    addRunningSensor("A");
    addRunningSensor("B");
    ASSERT_EQ(frames.sensors().size(), 2U);

    root->subChild(root->getChild(0));
    addRunningSensor("C");

    ASSERT_EQ(frames.sensors().size(), 2U);
    EXPECT_EQ(frames.sensors()[0].node, root->getChild(0));
    EXPECT_EQ(frames.sensors()[1].node, root->getChild(1));
}

TEST_F(FrameLoopTest, ASharedSensorIsEvaluatedOnceAFrame)
{
    osg::TimeSensor& door = addRunningSensor("Door");
    root->addChild(osg::Node::create(osg::NodeCorePtr(&door)));
    int entries = 0;
    frames.setFollower(
        [&](const osg::ChangeList& changes) { entries = static_cast<int>(changes.entries().size()); });

    frames.advanceTo(0.1);

    EXPECT_EQ(entries, 1);
}

TEST_F(FrameLoopTest, TheThreadHasAChangeListForAsLongAsTheLoopLives)
{
    EXPECT_NE(osg::PThreadBase::getCurrentChangeList(), nullptr);
    {
        FrameLoop another;
    }
    EXPECT_EQ(osg::PThreadBase::getCurrentChangeList(), nullptr);
}
