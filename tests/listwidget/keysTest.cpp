#include "tests/listwidget/ListFixture.h"

namespace
{

using kt::test::Edits;

class KeysTest : public kt::test::ListFixture
{
protected:
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&list(), key, modifiers);
    }
};

TEST_F(KeysTest, SpaceTogglesEverySelectedRow)
{
    select({"Roof", "Door", "Fan"});
    sensors[1]->setActive(true);

    press(Qt::Key_Space);

    EXPECT_TRUE(sensors[0]->isActive());
    EXPECT_FALSE(sensors[1]->isActive());
    EXPECT_TRUE(sensors[2]->isActive());
    EXPECT_EQ(edits(), (Edits{1, 1, 1}));
}

TEST_F(KeysTest, ReturnStartsEverySelectedRow)
{
    select({"Roof", "Fan"});

    press(Qt::Key_Return);

    EXPECT_TRUE(sensors[0]->isActive());
    EXPECT_EQ(sensors[2]->getStartTime(), 50.0);
    EXPECT_EQ(edits(), (Edits{1, 0, 1}));
}

TEST_F(KeysTest, RResetsEverySelectedRow)
{
    select({"Roof", "Door", "Fan"});

    press(Qt::Key_R);

    for (const kt::test::RecordingSensor* sensor : sensors)
        EXPECT_TRUE(sensor->isStopped());
}

TEST_F(KeysTest, DeleteRemovesTheSelectedRecords)
{
    select({"Roof", "Fan"});

    press(Qt::Key_Delete);

    EXPECT_EQ(records(), QStringList{"Door"});
    EXPECT_EQ(rows(), QStringList{"Door"});
}

TEST_F(KeysTest, DeleteAsksForItEvenWithNothingSelected)
{
    const QSignalSpy deletions(&list(), SIGNAL(onDelete()));

    press(Qt::Key_Delete);

    EXPECT_EQ(deletions.count(), 1);
    EXPECT_EQ(records().size(), 3);
}

TEST_F(KeysTest, TheOthersDoNothingWithNothingSelected)
{
    select({});

    press(Qt::Key_Space);
    press(Qt::Key_R);
    press(Qt::Key_Return);

    EXPECT_EQ(edits(), (Edits{0, 0, 0}));
}

TEST_F(KeysTest, TheyActWhetherOrNotTheirEntriesAreEnabled)
{
    select({"Door"});
    for (int i = 0; i < 5; ++i)
        entry(i).setEnabled(false);

    press(Qt::Key_Space);

    EXPECT_EQ(edits(), (Edits{0, 1, 0}));
}

TEST_F(KeysTest, WithAModifierNoneActs)
{
    const QSignalSpy deletions(&list(), SIGNAL(onDelete()));
    for (const Qt::KeyboardModifier modifier :
         {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier, Qt::KeypadModifier}) {
        list().setCurrentRow(1);
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_R, Qt::Key_Return, Qt::Key_Delete})
            press(key, modifier);
    }

    EXPECT_EQ(edits(), (Edits{0, 0, 0}));
    EXPECT_EQ(deletions.count(), 0);
}

TEST_F(KeysTest, KeypadEnterReachesTheBaseClass)
{
    list().setCurrentRow(1);
    const QSignalSpy activations(&list(), SIGNAL(activated(QModelIndex)));

    press(Qt::Key_Enter);
    press(Qt::Key_Return, Qt::KeypadModifier);

    EXPECT_EQ(activations.count(), 2);
    EXPECT_EQ(edits(), (Edits{0, 0, 0}));
}

TEST_F(KeysTest, ReturnDoesNotReachTheBaseClass)
{
    list().setCurrentRow(1);
    const QSignalSpy activations(&list(), SIGNAL(activated(QModelIndex)));

    press(Qt::Key_Return);

    EXPECT_EQ(activations.count(), 0);
    EXPECT_EQ(edits(), (Edits{0, 1, 0}));
}

TEST_F(KeysTest, ControlSpaceReachesTheBaseClass)
{
    list().setCurrentRow(1);
    ASSERT_TRUE(list().item(1)->isSelected());

    press(Qt::Key_Space, Qt::ControlModifier);

    EXPECT_FALSE(list().item(1)->isSelected()) << "the base class takes the current row out of the selection";
    EXPECT_EQ(edits(), (Edits{0, 0, 0}));
}

TEST_F(KeysTest, ShiftRReachesTheBaseClassAsASearch)
{
    list().setCurrentRow(2);

    press(Qt::Key_R, Qt::ShiftModifier);

    EXPECT_EQ(list().currentItem()->text(), "Roof");
    EXPECT_EQ(edits(), (Edits{0, 0, 0}));
}

TEST_F(KeysTest, OtherKeysReachTheBaseClass)
{
    list().setCurrentRow(0);

    press(Qt::Key_Down);
    EXPECT_EQ(list().currentRow(), 1);
    press(Qt::Key_F);
    EXPECT_EQ(list().currentItem()->text(), "Fan");
}

} // namespace
