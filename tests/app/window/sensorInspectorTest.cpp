#include "host/app/window/SensorInspector.h"
#include "host/app/FrameLoop.h"

#include <kt/ktController.h>
#include <kt/ktScenegraph.h>
#include <osg/Name.h>
#include <osg/TimeSensor.h>

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

using Table = kthost::SensorTableModel;

namespace
{

class SensorInspectorTest : public testing::Test
{
protected:
    SensorInspectorTest()
    {
        ktController::setSimulationTime(0.0);
        addSensor("Door");
        sensor->setCycleInterval(4.0);
        sensor->setLoop(true);
        ktScenegraph::setRootNode(root);
    }

    ~SensorInspectorTest() override { ktScenegraph::setRootNode({}); }

    void addSensor(const char* name)
    {
        sensor = osg::TimeSensor::create();
        const osg::NodePtr node = osg::Node::create(sensor);
        node->addAttachment(osg::Name::create(name));
        root->addChild(node);
    }

    static QString field(const QAbstractItemModel& table, int column)
    {
        return table.index(0, column).data().toString();
    }

    osg::NodePtr root = osg::Node::create();
    osg::TimeSensorPtr sensor;
    kthost::FrameLoop frames;
};

} // namespace

TEST_F(SensorInspectorTest, ShowsTheFieldsOfASensor)
{
    sensor->setActive(true);
    frames.advanceTo(1.0);
    Table table(frames);
    table.refresh();

    ASSERT_EQ(table.rowCount({}), 1);
    EXPECT_EQ(field(table, Table::NameColumn), "Door");
    EXPECT_EQ(field(table, Table::StateColumn), "running");
    EXPECT_EQ(field(table, Table::FractionColumn), "0.250");
    EXPECT_EQ(field(table, Table::TimeColumn), "1.00");
    EXPECT_EQ(field(table, Table::StartColumn), "0.00");
    EXPECT_EQ(field(table, Table::CycleColumn), "4");
    EXPECT_EQ(field(table, Table::LoopColumn), "yes");
}

TEST_F(SensorInspectorTest, SaysInWhatStateASensorIs)
{
    Table table(frames);
    table.refresh();
    EXPECT_EQ(field(table, Table::StateColumn), "halted");
    sensor->setStop(true);
    EXPECT_EQ(field(table, Table::StateColumn), "reset");
    sensor->setEnabled(false);
    EXPECT_EQ(field(table, Table::StateColumn), "disabled");
}

TEST_F(SensorInspectorTest, FollowsTheSensorsWhileItIsShown)
{
    kthost::SensorInspector inspector(frames);
    inspector.show();
    QSignalSpy changes(inspector.model(), &QAbstractItemModel::dataChanged);
    sensor->setActive(true);
    frames.advanceTo(2.0);

    ASSERT_TRUE(!changes.isEmpty() || changes.wait());
    EXPECT_EQ(field(*inspector.model(), Table::FractionColumn), "0.500");
}

TEST_F(SensorInspectorTest, FollowsTheSceneWhenSensorsAreAdded)
{
    kthost::SensorInspector inspector(frames);
    inspector.show();
    EXPECT_EQ(inspector.model()->rowCount(), 1);

    addSensor("Gate");

    EXPECT_TRUE(QTest::qWaitFor([&] { return inspector.model()->rowCount() == 2; }));
}
