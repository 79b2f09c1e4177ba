#include "tests/support/ModuleFixture.h"

namespace
{

using Operation = void (ktAnimation::*)(const char*);

/// Which sensors an operation drives; the same for all six.
class PlaybackTargetsTest : public kt::test::ModuleFixture, public testing::WithParamInterface<Operation>
{
protected:
    PlaybackTargetsTest() { setSimulationTime(5.0); }

    void drive(const char* name) { (module().*GetParam())(name); }
};

INSTANTIATE_TEST_SUITE_P(AllSix, PlaybackTargetsTest,
                         testing::Values(&ktAnimation::startAnimation, &ktAnimation::stopAnimation,
                                         &ktAnimation::toggleAnimation, &ktAnimation::pauseAnimation,
                                         &ktAnimation::continueAnimation, &ktAnimation::resetAnimation));

TEST_P(PlaybackTargetsTest, ANameThatNoNodeHasDoesNothing)
{
    const kt::test::RecordingSensor& door = addTimeSensor("Door");

    drive("Window");
    drive("door");
    drive("Doo");
    drive("");

    EXPECT_TRUE(door.changes.empty());
    EXPECT_TRUE(scene.changes.isEmpty());
}

TEST_P(PlaybackTargetsTest, ANullNameDoesNothing)
{
    const kt::test::RecordingSensor& door = addTimeSensor("Door");

    drive(nullptr);

    EXPECT_TRUE(door.changes.empty());
}

TEST_P(PlaybackTargetsTest, AllSensorsOfTheNameAreDrivenInDocumentOrder)
{
    const osg::NodePtr group = scene.addNode("Group");
    const kt::test::RecordingSensor& first = scene.addTimeSensor("Door", group);
    const kt::test::RecordingSensor& second = addTimeSensor("Door");

    drive("Door");

    EXPECT_EQ(first.changes.size(), 1u);
    EXPECT_EQ(second.changes.size(), 1u);
    ASSERT_EQ(scene.changes.entries().size(), 2u);
    EXPECT_EQ(scene.changes.entries()[0].container.get(), &first);
    EXPECT_EQ(scene.changes.entries()[1].container.get(), &second);
}

TEST_P(PlaybackTargetsTest, NodesOfTheNameWithAnotherCoreOrNoneArePassedOver)
{
    scene.addNode("Door");
    scene.addNode("Door", kt::test::OtherCore::create());
    const kt::test::RecordingSensor& door = addTimeSensor("Door");

    drive("Door");

    EXPECT_EQ(door.changes.size(), 1u);
    EXPECT_EQ(scene.changes.entries().size(), 1u);
}

TEST_P(PlaybackTargetsTest, APlainTimeSensorIsDrivenToo)
{
    const osg::TimeSensorPtr sensor = osg::TimeSensor::create();
    scene.addNode("Door", sensor);

    drive("Door");

    ASSERT_EQ(scene.changes.entries().size(), 1u);
    EXPECT_EQ(scene.changes.entries()[0].container, sensor);
}

TEST_P(PlaybackTargetsTest, NoRecordIsNeededAndNoneIsMade)
{
    const kt::test::RecordingSensor& door = addTimeSensor("Door");

    drive("Door");

    EXPECT_EQ(door.changes.size(), 1u);
    EXPECT_TRUE(records().isEmpty());
    EXPECT_TRUE(rows().isEmpty());
}

TEST_P(PlaybackTargetsTest, TheNameIsMatchedByteForByte)
{
    const kt::test::RecordingSensor& utf8 = addTimeSensor("T\xC3\xBCr");
    const kt::test::RecordingSensor& latin1 = addTimeSensor("T\xFCr");

    drive("T\xFCr");

    EXPECT_TRUE(utf8.changes.empty());
    EXPECT_EQ(latin1.changes.size(), 1u);
}

} // namespace
