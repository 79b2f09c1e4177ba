#include "listwidget/ktAnimationListWidget.h"
#include "listwidget/ktListViewItem.h"
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

namespace
{

class RecordsTest : public kt::test::ModuleFixture
{
};

TEST_F(RecordsTest, AFreshRecordHasItsNameAndNothingElse)
{
    const ktAnimationInfo& door = addRecord("Door");

    EXPECT_EQ(door.name, "Door");
    EXPECT_TRUE(door.comment.isEmpty());
    EXPECT_TRUE(door.startHotkey.isEmpty());
    EXPECT_EQ(door.startModifier, 0);
    EXPECT_TRUE(door.stopHotkey.isEmpty());
    EXPECT_EQ(door.stopModifier, 0);
}

TEST_F(RecordsTest, AFreshRecordIsTriggeredByNoKeyCode)
{
    kt::test::RecordingSensor& door = addTimeSensor("Door");
    addRecord("Door");

    for (int key : {0, 0x20, 0x41, 0x01000004, int(Qt::Key_unknown)})
        ktAnimation::pressedKey(key, 0, 0, nullptr);

    EXPECT_TRUE(door.changes.empty());
}

TEST_F(RecordsTest, InsertAppendsARecordAndARow)
{
    addRecord("Window");
    addRecord("Door");

    EXPECT_EQ(records(), (QStringList{"Window", "Door"}));
    EXPECT_EQ(rows(), (QStringList{"Window", "Door"}));
    EXPECT_NE(dynamic_cast<ktListViewItem*>(list().item(1)), nullptr);
}

TEST_F(RecordsTest, InsertDecodesTheNameAsUtf8)
{
    addRecord("T\xC3\xBCr");

    EXPECT_EQ(records(), QStringList{QString::fromUtf8("T\xC3\xBCr")});
    EXPECT_EQ(rows(), records());
}

TEST_F(RecordsTest, InsertKeepsTheRowsAndTheSelection)
{
    addRecord("Door");
    QListWidgetItem* row = list().item(0);
    select({"Door"});
    const ktAnimationInfo* current = module()._current;

    addRecord("Window");

    EXPECT_EQ(list().item(0), row);
    EXPECT_TRUE(row->isSelected());
    EXPECT_NE(current, nullptr);
    EXPECT_EQ(module()._current, current);
}

TEST_F(RecordsTest, InsertShowsThePropertiesAgain)
{
    ktAnimationInfo& door = addRecord("Door");
    select({"Door"});
    door.comment = "changed behind the panel";

    addRecord("Window");

    EXPECT_EQ(panel()._comment->text(), "changed behind the panel");
}

TEST_F(RecordsTest, InsertOfAPresentNameChangesNothing)
{
    ktAnimationInfo& door = addRecord("Door");
    select({"Door"});
    door.comment = "front";

    module().insertAnimation("Door");

    EXPECT_EQ(records(), QStringList{"Door"});
    EXPECT_EQ(rows(), QStringList{"Door"});
    EXPECT_TRUE(panel()._comment->text().isEmpty()) << "nor is the panel brought up to date";
}

TEST_F(RecordsTest, NamesThatDifferInLetterCaseAreDifferentRecords)
{
    addRecord("Door");
    addRecord("door");

    EXPECT_EQ(records(), (QStringList{"Door", "door"}));
    EXPECT_NE(module().findAnimation("Door"), module().findAnimation("door"));
}

TEST_F(RecordsTest, FindGivesTheFirstRecordOfTheNameOrNull)
{
    addRecord("Door");
    module()._animations.push_back(module()._animations.front());

    EXPECT_EQ(module().findAnimation("Door"), &module()._animations.front());
    EXPECT_EQ(module().findAnimation("Window"), nullptr);
}

TEST_F(RecordsTest, ANullNameIsTheEmptyName)
{
    module().insertAnimation(static_cast<const char*>(nullptr));

    ASSERT_EQ(module()._animations.size(), 1u);
    EXPECT_TRUE(records()[0].isEmpty());
    EXPECT_EQ(module().findAnimation(""), module().findAnimation(static_cast<const char*>(nullptr)));
    EXPECT_EQ(module().findAnimation(""), &module()._animations.front());
    EXPECT_FALSE(records()[0].isNull()) << "a null name would not be saved";
    module().removeAnimation(static_cast<const char*>(nullptr), false);
    EXPECT_TRUE(records().isEmpty());
}

TEST_F(RecordsTest, RecordsNeverMove)
{
    const ktAnimationInfo* first = &addRecord("First");
    for (int i = 0; i < 100; ++i)
        addRecord(qPrintable(QString::number(i)));
    module().removeAnimation("7", false);

    EXPECT_EQ(module().findAnimation("First"), first);
}

TEST_F(RecordsTest, InsertByNodeTakesTimeSensorsOnly)
{
    module().insertAnimation(ktNodePtr(scene.addNode("Group")));
    module().insertAnimation(ktNodePtr(scene.addNode("Shape", kt::test::OtherCore::create())));
    module().insertAnimation(ktNodePtr());
    EXPECT_TRUE(records().isEmpty());
    EXPECT_TRUE(rows().isEmpty());

    module().insertAnimation(ktNodePtr(scene.addNode("Door", osg::TimeSensor::create())));
    EXPECT_EQ(records(), QStringList{"Door"});
}

TEST_F(RecordsTest, FindByNodeTakesTimeSensorsOnly)
{
    addRecord("Door");

    EXPECT_EQ(module().findAnimation(ktNodePtr(scene.addNode("Door"))), nullptr);
    EXPECT_EQ(module().findAnimation(ktNodePtr(scene.addNode("Door", kt::test::OtherCore::create()))),
              nullptr);
    EXPECT_EQ(module().findAnimation(ktNodePtr()), nullptr);
    EXPECT_EQ(module().findAnimation(ktNodePtr(scene.addNode("Door", osg::TimeSensor::create()))),
              module().findAnimation("Door"));
}

TEST_F(RecordsTest, AnUnnamedSensorNodeGoesByItsCoresType)
{
    module().insertAnimation(ktNodePtr(scene.addNode(nullptr, osg::TimeSensor::create())));

    EXPECT_EQ(records(), QStringList{"TimeSensor"});
}

} // namespace
