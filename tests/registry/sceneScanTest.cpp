#include "listwidget/ktAnimationListWidget.h"
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

#include <kt/ktScenegraph.h>
#include <osg/Name.h>

#include <QSignalSpy>

namespace
{

class SceneScanTest : public kt::test::ModuleFixture
{
protected:
    void scan() { module().refreshAnimations(); }
};

TEST_F(SceneScanTest, EveryTimeSensorGetsARecordInDocumentOrder)
{
    const osg::NodePtr group = scene.addNode("Group");
    scene.addTimeSensor("Door", group);
    scene.addTimeSensor("Bell", group);
    addTimeSensor("Arm");

    scan();

    EXPECT_EQ(records(), (QStringList{"Door", "Bell", "Arm"}));
    EXPECT_EQ(rows(), records());
}

TEST_F(SceneScanTest, TheRootItselfCounts)
{
    scene.root()->setCore(osg::TimeSensor::create());
    scene.root()->addAttachment(osg::Name::create("Root"));

    scan();

    EXPECT_EQ(records(), QStringList{"Root"});
}

TEST_F(SceneScanTest, NodesWithoutATimeSensorGetNone)
{
    scene.addNode("Group");
    scene.addNode("Shape", kt::test::OtherCore::create());

    scan();

    EXPECT_TRUE(records().isEmpty());
}

TEST_F(SceneScanTest, AFreshRecordIsEmptyButForItsName)
{
    addTimeSensor("Door");

    scan();

    const ktAnimationInfo& door = module()._animations.front();
    EXPECT_TRUE(door.comment.isEmpty() && door.startHotkey.isEmpty() && door.stopHotkey.isEmpty());
    EXPECT_EQ(door.startModifier, 0);
    EXPECT_EQ(door.stopModifier, 0);
}

TEST_F(SceneScanTest, ASceneWithoutTimeSensorsEmptiesTheRegistry)
{
    addRecord("Door");

    scan();

    EXPECT_TRUE(records().isEmpty());
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(SceneScanTest, NoSceneEmptiesTheRegistry)
{
    addRecord("Door");
    ktScenegraph::setRootNode({});

    scan();

    EXPECT_TRUE(records().isEmpty());
}

TEST_F(SceneScanTest, MatchingRecordsKeepTheirDataAndPlace)
{
    ktAnimationInfo& pane = addRecord("Window");
    pane.comment = "left";
    pane.startHotkey = "Shift W";
    pane.startKey = 'W';
    addRecord("Door");
    addTimeSensor("Bell");
    addTimeSensor("Door");
    addTimeSensor("Window");

    scan();

    EXPECT_EQ(records(), (QStringList{"Window", "Door", "Bell"}));
    EXPECT_EQ(module().findAnimation("Window"), &pane);
    EXPECT_EQ(pane.comment, "left");
    EXPECT_EQ(pane.startHotkey, "Shift W");
    EXPECT_EQ(pane.startKey, 'W');
}

TEST_F(SceneScanTest, SensorsOfOneNameShareARecord)
{
    addTimeSensor("Door");
    addTimeSensor("Door");

    scan();

    EXPECT_EQ(records(), QStringList{"Door"});
    EXPECT_EQ(rows(), QStringList{"Door"});
}

TEST_F(SceneScanTest, UnnamedSensorsShareARecordUnderTheirTypesName)
{
    for (int i = 0; i < 3; ++i)
        scene.addNode(nullptr, osg::TimeSensor::create());

    scan();

    EXPECT_EQ(records(), QStringList{"TimeSensor"});
}

TEST_F(SceneScanTest, ASensorsCoreCanCarryTheName)
{
    const osg::TimeSensorPtr sensor = osg::TimeSensor::create();
    sensor->addAttachment(osg::Name::create("OfTheCore"));
    scene.addNode(nullptr, sensor);

    scan();

    EXPECT_EQ(records(), QStringList{"OfTheCore"});
}

TEST_F(SceneScanTest, ARenamedSensorGetsAFreshRecordAtTheEnd)
{
    const osg::NodePtr door = scene.addNode("Door", osg::TimeSensor::create());
    addTimeSensor("Bell");
    scan();
    module().findAnimation("Door")->comment = "front";

    ktScenegraph::setNodeName(true, door, "Gate", true);
    scan();

    EXPECT_EQ(records(), (QStringList{"Bell", "Gate"}));
    EXPECT_TRUE(module().findAnimation("Gate")->comment.isEmpty());
}

TEST_F(SceneScanTest, NamesAreMatchedCaseSensitively)
{
    addRecord("door").comment = "lower case";
    addTimeSensor("Door");

    scan();

    EXPECT_EQ(records(), QStringList{"Door"});
    EXPECT_TRUE(module()._animations.front().comment.isEmpty());
}

TEST_F(SceneScanTest, NothingIsSelectedAfterwards)
{
    addTimeSensor("Door");
    addRecord("Door").comment = "front";
    select({"Door"});

    scan();

    EXPECT_EQ(module()._current, nullptr);
    EXPECT_TRUE(list().selectedItems().isEmpty());
    EXPECT_TRUE(panel()._comment->text().isEmpty());
    EXPECT_FALSE(panel()._comment->isEnabled());
}

TEST_F(SceneScanTest, TheListIsRebuiltOnce)
{
    addTimeSensor("Door");
    addTimeSensor("Bell");
    const QSignalSpy rebuilds(list().model(), SIGNAL(modelReset()));

    scan();

    EXPECT_EQ(rebuilds.count(), 1);
}

} // namespace
