#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

namespace
{

/// What the user does: chooses an item of the box.
void choose(QComboBox* box, const QString& text)
{
    box->setCurrentIndex(box->findText(text));
    ASSERT_TRUE(QMetaObject::invokeMethod(box, "activated", Q_ARG(QString, box->currentText())));
}

class HotkeyPropertiesTest : public kt::test::ModuleFixture
{
protected:
    HotkeyPropertiesTest() : door(addRecord("Door")) {}

    void show() { select({"Door"}); }

    ktAnimationInfo& door;
};

TEST_F(HotkeyPropertiesTest, BothHotkeysAreShown)
{
    door.startHotkey = "Shift-Ctrl A";
    door.stopHotkey = "Alt 0";

    show();

    EXPECT_EQ(panel()._startModifier->currentText(), "Shift-Ctrl");
    EXPECT_EQ(panel()._startKey->currentText(), "A");
    EXPECT_EQ(panel()._stopModifier->currentText(), "Alt");
    EXPECT_EQ(panel()._stopKey->currentIndex(), 36);
}

TEST_F(HotkeyPropertiesTest, AnEmptyTextAndASpaceShowTheEmptyItems)
{
    for (const char* text : {"", " "}) {
        choose(panel()._startModifier, "Alt");
        choose(panel()._startKey, "B");
        door.startHotkey = text;

        show();

        EXPECT_EQ(panel()._startModifier->currentIndex(), 0);
        EXPECT_EQ(panel()._startKey->currentIndex(), 0);
        select({});
    }
}

TEST_F(HotkeyPropertiesTest, OnlyTheSecondOfMoreWordsIsTheKey)
{
    door.startHotkey = "Alt B C";
    door.stopHotkey = "Ctrl  D";

    show();

    EXPECT_EQ(panel()._startKey->currentText(), "B");
    EXPECT_EQ(panel()._stopModifier->currentText(), "Ctrl");
    EXPECT_EQ(panel()._stopKey->currentIndex(), 0);
}

TEST_F(HotkeyPropertiesTest, ATextThatIsNoItemLeavesTheBoxAsItIs)
{
    door.startHotkey = "Ctrl-Alt F1";
    choose(panel()._startModifier, "Shift");
    choose(panel()._startKey, "Z");

    show();

    EXPECT_EQ(panel()._startModifier->currentText(), "Shift");
    EXPECT_EQ(panel()._startKey->currentText(), "Z");
    EXPECT_TRUE(panel()._startModifier->isEnabled());
    EXPECT_TRUE(panel()._startKey->isEnabled());
}

TEST_F(HotkeyPropertiesTest, ShowingARecordDoesNotChangeIt)
{
    door.startHotkey = "Ctrl-Alt F1";
    door.stopHotkey = "x";

    show();

    EXPECT_EQ(door.startHotkey, "Ctrl-Alt F1");
    EXPECT_EQ(door.startKey, ktAnimationInfo::NoKey);
    EXPECT_EQ(door.stopHotkey, "x");
}

TEST_F(HotkeyPropertiesTest, AChosenStartHotkeyIsStoredAndDecoded)
{
    show();

    choose(panel()._startModifier, "Shift-Ctrl");
    choose(panel()._startKey, "A");

    EXPECT_EQ(door.startHotkey, "Shift-Ctrl A");
    EXPECT_EQ(door.startKey, 'A');
    EXPECT_EQ(door.startModifier, 0x06000000);
    EXPECT_EQ(door.stopHotkey, "");
    EXPECT_EQ(door.stopKey, ktAnimationInfo::NoKey);
}

TEST_F(HotkeyPropertiesTest, AChosenStopHotkeyIsStoredAndDecoded)
{
    show();

    choose(panel()._stopKey, "7");
    choose(panel()._stopModifier, "Alt");

    EXPECT_EQ(door.stopHotkey, "Alt 7");
    EXPECT_EQ(door.stopKey, '7');
    EXPECT_EQ(door.stopModifier, 0x08000000);
    EXPECT_EQ(door.startHotkey, "");
}

TEST_F(HotkeyPropertiesTest, AModifierWithoutAKeyEndsInASpace)
{
    show();

    choose(panel()._startModifier, "Alt");

    EXPECT_EQ(door.startHotkey, "Alt ");
    EXPECT_EQ(door.startKey, 'A') << "the word alone is read as a key";
    EXPECT_EQ(door.startModifier, 0);
}

TEST_F(HotkeyPropertiesTest, AKeyWithoutAModifierBeginsWithASpace)
{
    show();

    choose(panel()._stopKey, "B");

    EXPECT_EQ(door.stopHotkey, " B");
    EXPECT_EQ(door.stopKey, 'B');
    EXPECT_EQ(door.stopModifier, 0);
}

TEST_F(HotkeyPropertiesTest, NeitherIsASingleSpace)
{
    door.startHotkey = "Alt B";
    show();

    choose(panel()._startModifier, "");
    choose(panel()._startKey, "");

    EXPECT_EQ(door.startHotkey, " ");
    EXPECT_EQ(door.startKey, 0);
    EXPECT_EQ(door.startModifier, 0);
}

TEST_F(HotkeyPropertiesTest, EveryItemAgreesWithTheDecoding)
{
    show();

    for (int i = 1; i < panel()._startKey->count(); ++i) {
        choose(panel()._startKey, panel()._startKey->itemText(i));
        EXPECT_EQ(door.startKey, panel()._startKey->itemText(i).at(0).toLatin1());
    }
    for (int i = 1; i < panel()._startModifier->count(); ++i) {
        choose(panel()._startModifier, panel()._startModifier->itemText(i));
        EXPECT_NE(door.startModifier, 0) << i;
        EXPECT_EQ(door.startKey, '0');
    }
}

TEST_F(HotkeyPropertiesTest, TheArgumentIsNotRead)
{
    show();

    module().startKeyChange("Shift Z");
    module().stopKeyChange("Shift Z");

    EXPECT_EQ(door.startHotkey, " ");
    EXPECT_EQ(door.stopHotkey, " ");
}

TEST_F(HotkeyPropertiesTest, WithoutACurrentRecordNothingIsStored)
{
    choose(panel()._startKey, "A");
    choose(panel()._stopKey, "A");
    module().startKeyChange({});
    module().stopKeyChange({});

    EXPECT_EQ(door.startHotkey, "");
    EXPECT_EQ(door.stopHotkey, "");
}

} // namespace
