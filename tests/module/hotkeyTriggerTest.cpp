#include "tests/support/ModuleFixture.h"

#include <kt/ktOSGWidget.h>

#include <QKeyEvent>

namespace
{

constexpr int shift = Qt::ShiftModifier;
constexpr int ctrl = Qt::ControlModifier;

class HotkeyTriggerTest : public kt::test::ModuleFixture
{
protected:
    /// A record and a sensor with these hotkeys.
    kt::test::RecordingSensor& add(const char* name, int startKey, int startModifier,
                                   int stopKey = ktAnimationInfo::NoKey, int stopModifier = 0)
    {
        ktAnimationInfo& record = addRecord(name);
        record.startKey = startKey;
        record.startModifier = startModifier;
        record.stopKey = stopKey;
        record.stopModifier = stopModifier;
        return addTimeSensor(name);
    }

    /// A press as the render view reports it; true where it was accepted.
    static bool press(int key, int modifiers, int repeat = 0)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers));
        event.ignore();
        ktOSGWidget::pressKey(key, repeat, modifiers, &event);
        return event.isAccepted();
    }
};

TEST_F(HotkeyTriggerTest, TheStartHotkeyStarts)
{
    const kt::test::RecordingSensor& door = add("Door", 'A', shift);
    setSimulationTime(7.0);

    EXPECT_TRUE(press('A', shift));

    EXPECT_TRUE(door.isActive());
    EXPECT_EQ(door.getStartTime(), 7.0);
}

TEST_F(HotkeyTriggerTest, TheStartHotkeyRestartsWhatRuns)
{
    kt::test::RecordingSensor& door = add("Door", 'A', 0);
    door.setActive(true);
    setSimulationTime(7.0);

    press('A', 0);

    EXPECT_TRUE(door.isActive());
    EXPECT_EQ(door.getStartTime(), 7.0);
}

TEST_F(HotkeyTriggerTest, TheStopHotkeyToggles)
{
    kt::test::RecordingSensor& door = add("Door", ktAnimationInfo::NoKey, 0, 'S', ctrl);
    door.setActive(true);

    EXPECT_TRUE(press('S', ctrl));
    EXPECT_FALSE(door.isActive());

    EXPECT_TRUE(press('S', ctrl));
    EXPECT_TRUE(door.isActive());
}

TEST_F(HotkeyTriggerTest, ModifiersHaveToBeExactlyTheSame)
{
    const kt::test::RecordingSensor& plain = add("Plain", 'A', 0, 'B', 0);
    const kt::test::RecordingSensor& shifted = add("Shifted", 'C', shift, 'D', shift);

    EXPECT_FALSE(press('A', shift));
    EXPECT_FALSE(press('B', Qt::KeypadModifier));
    EXPECT_FALSE(press('C', 0));
    EXPECT_FALSE(press('C', shift | ctrl));
    EXPECT_FALSE(press('D', 0));

    EXPECT_TRUE(plain.changes.empty());
    EXPECT_TRUE(shifted.changes.empty());
}

TEST_F(HotkeyTriggerTest, OfEqualHotkeysOnlyStartFires)
{
    const kt::test::RecordingSensor& door = add("Door", 'A', 0, 'A', 0);

    press('A', 0);
    press('A', 0);

    EXPECT_TRUE(door.isActive());
    EXPECT_EQ(door.changes.size(), 2u);
}

TEST_F(HotkeyTriggerTest, EveryRecordThatMatchesFiresOnce)
{
    const kt::test::RecordingSensor& first = add("First", 'A', 0);
    const kt::test::RecordingSensor& second = add("Second", 'A', 0);

    press('A', 0);

    EXPECT_EQ(first.changes.size(), 1u);
    EXPECT_EQ(second.changes.size(), 1u);
}

TEST_F(HotkeyTriggerTest, RecordsFireInRegistryOrder)
{
    kt::test::RecordingSensor& a = add("A", ktAnimationInfo::NoKey, 0, 'X', 0);
    const kt::test::RecordingSensor& b = add("B", 'X', 0);
    a.setActive(true);

    press('X', 0);

    EXPECT_FALSE(a.isActive());
    EXPECT_TRUE(b.isActive());
    ASSERT_EQ(scene.changes.entries().size(), 2u);
    EXPECT_EQ(scene.changes.entries()[0].container.get(), &a);
    EXPECT_EQ(scene.changes.entries()[1].container.get(), &b);
}

TEST_F(HotkeyTriggerTest, WithoutAnEventItFiresAllTheSame)
{
    const kt::test::RecordingSensor& door = add("Door", 'A', 0);

    ktOSGWidget::pressKey('A', 0, 0, nullptr);

    EXPECT_TRUE(door.isActive());
}

TEST_F(HotkeyTriggerTest, AnEmptyRegistryLeavesTheEventAlone)
{
    EXPECT_FALSE(press('A', 0));
}

TEST_F(HotkeyTriggerTest, WhereNothingMatchesTheEventIsLeftAlone)
{
    add("Door", 'A', 0, 'B', 0);
    QKeyEvent accepted(QEvent::KeyPress, 'C', Qt::NoModifier);
    accepted.accept();

    EXPECT_FALSE(press('C', 0));
    ktOSGWidget::pressKey('C', 0, 0, &accepted);
    EXPECT_TRUE(accepted.isAccepted());
}

TEST_F(HotkeyTriggerTest, TheSecondNumberIsNotRead)
{
    const kt::test::RecordingSensor& door = add("Door", 'A', 0);

    EXPECT_TRUE(press('A', 0, 3));
    EXPECT_TRUE(press('A', 0, -1));

    EXPECT_EQ(door.changes.size(), 2u);
}

TEST_F(HotkeyTriggerTest, KeyCodeZeroFiresAnUnrecognisedHotkeyOnly)
{
    const kt::test::RecordingSensor& unrecognised = add("Unrecognised", 0, 0);
    addTimeSensor("Fresh");
    addRecord("Fresh");

    EXPECT_TRUE(press(0, 0));

    EXPECT_EQ(unrecognised.changes.size(), 1u);
    EXPECT_EQ(scene.changes.entries().size(), 1u);
}

TEST_F(HotkeyTriggerTest, ANameThatLeftTheSceneIsIgnoredButAccepted)
{
    add("Door", 'A', 0);
    scene.removeNode("Door");

    EXPECT_TRUE(press('A', 0));
    EXPECT_TRUE(scene.changes.isEmpty());
}

TEST_F(HotkeyTriggerTest, NamesArePassedAsLatin1)
{
    const kt::test::RecordingSensor& utf8 = add("T\xC3\xBCr", 'A', 0, 'B', 0);
    const kt::test::RecordingSensor& latin1 = addTimeSensor("T\xFCr");

    press('A', 0);
    press('B', 0);

    EXPECT_TRUE(utf8.changes.empty());
    EXPECT_EQ(latin1.changes.size(), 2u);
}

TEST_F(HotkeyTriggerTest, AfterDestructionNothingFires)
{
    const kt::test::RecordingSensor& door = add("Door", 'A', 0);
    destroyModule();

    EXPECT_FALSE(press('A', 0));
    EXPECT_TRUE(door.changes.empty());
}

} // namespace
