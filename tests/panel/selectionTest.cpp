#include "listwidget/ktAnimationListWidget.h"
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

namespace
{

class SelectionTest : public kt::test::ModuleFixture
{
protected:
    void expectFramesEmptyAndDisabled() const
    {
        EXPECT_TRUE(panel()._comment->text().isEmpty());
        EXPECT_FALSE(panel()._comment->isEnabled());
        for (const QComboBox* box :
             {panel()._startModifier, panel()._startKey, panel()._stopModifier, panel()._stopKey})
            EXPECT_FALSE(box->isEnabled());
    }
};

TEST_F(SelectionTest, OneRowMakesItsRecordTheCurrentOne)
{
    addRecord("Door");
    ktAnimationInfo& fan = addRecord("Fan");
    fan.comment = "ceiling";

    select({"Fan"});

    EXPECT_EQ(module()._current, &fan);
    EXPECT_EQ(panel()._comment->text(), "ceiling");
}

TEST_F(SelectionTest, OneRowEnablesCommentAndHotkeys)
{
    addRecord("Door");

    select({"Door"});

    EXPECT_TRUE(panel()._comment->isEnabled());
    for (const QComboBox* box :
         {panel()._startModifier, panel()._startKey, panel()._stopModifier, panel()._stopKey})
        EXPECT_TRUE(box->isEnabled());
}

TEST_F(SelectionTest, TwoRowsEmptyAndDisableTheFramesButNotTheWheels)
{
    addRecord("Door").comment = "front";
    addRecord("Fan");
    select({"Door"});

    select({"Door", "Fan"});

    EXPECT_EQ(module()._current, nullptr);
    expectFramesEmptyAndDisabled();
    EXPECT_TRUE(panel()._cycle_interval->isEnabled());
    EXPECT_TRUE(panel()._fraction->isEnabled());
}

TEST_F(SelectionTest, NoRowEmptiesAndDisablesTheFrames)
{
    addRecord("Door").comment = "front";
    select({"Door"});

    select({});

    EXPECT_EQ(module()._current, nullptr);
    expectFramesEmptyAndDisabled();
}

TEST_F(SelectionTest, DeselectingKeepsTheCommentOfTheRecord)
{
    ktAnimationInfo& door = addRecord("Door");
    door.comment = "front";
    select({"Door"});

    select({});

    EXPECT_EQ(door.comment, "front");
}

TEST_F(SelectionTest, DeselectingLeavesTheShownHotkeysAndWheelValues)
{
    addTimeSensor("Door").setCycleInterval(4.0);
    ktAnimationInfo& door = addRecord("Door");
    door.startHotkey = "Alt B";
    select({"Door"});
    panel()._fraction->setValue(0.5);

    select({});

    EXPECT_EQ(panel()._startModifier->currentText(), "Alt");
    EXPECT_EQ(panel()._startKey->currentText(), "B");
    EXPECT_EQ(panel()._cycle_interval->value(), 4.0);
    EXPECT_EQ(panel()._fraction->value(), 0.5);
}

TEST_F(SelectionTest, ARowThatMatchesNoRecordSelectsNone)
{
    addRecord("Door");
    module().removeAnimation("Door", false);

    select({"Door"});

    EXPECT_EQ(module()._current, nullptr);
    expectFramesEmptyAndDisabled();
}

TEST_F(SelectionTest, RowsAreComparedCaseSensitively)
{
    addRecord("door");
    addRecord("Door");

    select({"Door"});

    EXPECT_EQ(module()._current, module().findAnimation("Door"));
}

TEST_F(SelectionTest, OfTwoRecordsOfOneNameTheFirstIsTaken)
{
    addRecord("Door");
    module()._animations.push_back(module()._animations.front());
    module().animationDisplayList();

    list().item(1)->setSelected(true);

    EXPECT_EQ(module()._current, &module()._animations.front());
}

TEST_F(SelectionTest, ARowOutsideAsciiSelectsNoRecordOfItsName)
{
    addRecord("T\xC3\xBCr");

    list().item(0)->setSelected(true);

    EXPECT_EQ(module()._current, nullptr) << "its Latin-1 bytes are no UTF-8";
}

TEST_F(SelectionTest, ARowWhoseLatin1BytesAreUtf8SelectsTheRecordTheySpell)
{
    addRecord("\xC3\x83\xC2\xA9");
    addRecord("\xC3\xA9");

    list().item(0)->setSelected(true);

    EXPECT_EQ(module()._current, &module()._animations.back());
}

TEST_F(SelectionTest, RebuildingTheListForgetsTheSelectionButNotTheFrames)
{
    addRecord("Door").comment = "front";
    select({"Door"});

    module().animationDisplayList();

    EXPECT_EQ(module()._current, nullptr);
    EXPECT_EQ(rows(), QStringList{"Door"});
    EXPECT_TRUE(list().selectedItems().isEmpty());
    EXPECT_TRUE(list().viewport()->updatesEnabled());
}

TEST_F(SelectionTest, RebuildingTheListShowsTheRegistryInItsOrder)
{
    addRecord("Fan");
    addRecord("Door");
    module()._animations.emplace_back();
    module()._animations.back().name = "Bell";

    module().animationDisplayList();

    EXPECT_EQ(rows(), (QStringList{"Fan", "Door", "Bell"}));
}

} // namespace
