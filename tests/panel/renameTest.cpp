#include "listwidget/ktAnimationListWidget.h"
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

#include <kt/NodeUtils.h>
#include <kt/ktScenegraph.h>

#include <QSignalSpy>

namespace
{

class RenameTest : public kt::test::ModuleFixture
{
protected:
    /// Selects the row and lets its text be the new name, through the meta-object as nothing calls it
    /// directly.
    void rename(const QString& from, const QString& to)
    {
        select({from});
        QListWidgetItem* item = list().selectedItems().value(0);
        item->setText(to);
        call(item);
    }

    void call(QListWidgetItem* item)
    {
        ASSERT_TRUE(QMetaObject::invokeMethod(&module(), "animationRenamed", Q_ARG(QListWidgetItem*, item),
                                              Q_ARG(int, 3), Q_ARG(QString, "not read")));
    }

    static std::string nameOf(const osg::NodePtr& node) { return NodeUtils::getName(node); }
};

TEST_F(RenameTest, RecordAndSensorNodesGetTheNewName)
{
    const osg::NodePtr first = scene.addNode("Door", osg::TimeSensor::create());
    const osg::NodePtr second = scene.addNode("Door", osg::TimeSensor::create());
    ktAnimationInfo& door = addRecord("Door");

    rename("Door", "Gate");

    EXPECT_EQ(door.name, "Gate");
    EXPECT_EQ(nameOf(first), "Gate");
    EXPECT_EQ(nameOf(second), "Gate");
}

TEST_F(RenameTest, NodesOfAnotherKindKeepTheName)
{
    const osg::NodePtr group = scene.addNode("Door");
    const osg::NodePtr shape = scene.addNode("Door", kt::test::OtherCore::create());
    addRecord("Door");

    rename("Door", "Gate");

    EXPECT_EQ(nameOf(group), "Door");
    EXPECT_EQ(nameOf(shape), "Door");
}

TEST_F(RenameTest, TheRenameIsAnnouncedAndRecorded)
{
    const osg::NodePtr node = scene.addNode("Door", osg::TimeSensor::create());
    addRecord("Door");
    ktScenegraph::takeSceneChanged();

    rename("Door", "Gate");

    EXPECT_TRUE(ktScenegraph::takeSceneChanged());
    ASSERT_EQ(scene.changes.entries().size(), 1u);
    EXPECT_EQ(scene.changes.entries()[0].container, node);
}

TEST_F(RenameTest, WithoutANodeTheRecordIsRenamedAllTheSame)
{
    ktAnimationInfo& door = addRecord("Door");

    rename("Door", "Gate");

    EXPECT_EQ(door.name, "Gate");
}

TEST_F(RenameTest, WithoutACurrentRecordNothingIsRenamed)
{
    const osg::NodePtr node = scene.addNode("Door", osg::TimeSensor::create());
    addRecord("Door");
    list().item(0)->setText("Gate");

    call(list().item(0));

    EXPECT_EQ(records(), QStringList{"Door"});
    EXPECT_EQ(nameOf(node), "Door");
}

TEST_F(RenameTest, TheCurrentRecordIsRenamedWhicheverItemIsPassed)
{
    addRecord("Door");
    addRecord("Fan");
    select({"Door"});
    list().item(1)->setText("Gate");

    call(list().item(1));

    EXPECT_EQ(records(), (QStringList{"Gate", "Fan"}));
}

TEST_F(RenameTest, ANameCanBecomeThatOfAnotherRecord)
{
    addRecord("Door");
    addRecord("Fan");

    rename("Fan", "Door");

    EXPECT_EQ(records(), (QStringList{"Door", "Door"}));
    select({});
    list().item(1)->setSelected(true);
    EXPECT_EQ(module()._current, &module()._animations.front());
}

TEST_F(RenameTest, ANameCanBecomeEmpty)
{
    const osg::NodePtr node = scene.addNode("Door", osg::TimeSensor::create());
    addRecord("Door");

    rename("Door", "");

    EXPECT_EQ(records(), QStringList{""});
    EXPECT_EQ(nameOf(node), "");
}

TEST_F(RenameTest, TheListIsNotRebuilt)
{
    addRecord("Door");
    const QSignalSpy rebuilds(list().model(), SIGNAL(modelReset()));

    rename("Door", "Gate");

    EXPECT_EQ(rebuilds.count(), 0);
    EXPECT_NE(module()._current, nullptr);
}

TEST_F(RenameTest, NodesAreLookedUpAsLatin1AndNamedAsUtf8)
{
    const osg::NodePtr utf8 = scene.addNode("T\xC3\xBCr", osg::TimeSensor::create());
    const osg::NodePtr latin1 = scene.addNode("T\xFCr", osg::TimeSensor::create());
    module()._current = &addRecord("T\xC3\xBCr");
    list().item(0)->setText(QString::fromUtf8("G\xC3\xA4nge"));

    call(list().item(0));

    EXPECT_EQ(nameOf(utf8), "T\xC3\xBCr");
    EXPECT_EQ(nameOf(latin1), "G\xC3\xA4nge");
    EXPECT_EQ(records(), QStringList{QString::fromUtf8("G\xC3\xA4nge")});
}

TEST_F(RenameTest, EditingARowsTextDoesNotCallIt)
{
    addRecord("Door");
    select({"Door"});

    list().item(0)->setText("Gate");

    EXPECT_EQ(records(), QStringList{"Door"});
}

} // namespace
