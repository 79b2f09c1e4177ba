// The panel's fields, used as a user does.
#include "tests/listwidget/ListFixture.h"

namespace
{

class EventsTest : public kt::test::ListFixture
{
protected:
    EventsTest()
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, centreOf("Door"));
        door = module().findAnimation("Door");
    }

    ktAnimationInfo* door = nullptr;
};

TEST_F(EventsTest, AClickOnARowSelectsItsRecord)
{
    ASSERT_NE(door, nullptr);
    EXPECT_EQ(module()._current, door);
    EXPECT_TRUE(panel()._comment->isEnabled());
}

TEST_F(EventsTest, TypingStoresTheComment)
{
    QTest::keyClicks(panel()._comment, "front door");

    EXPECT_EQ(door->comment, "front door");
}

TEST_F(EventsTest, AKeyPressInABoxStoresTheHotkey)
{
    QTest::keyClick(panel()._startKey, Qt::Key_Down);
    QTest::keyClick(panel()._startModifier, Qt::Key_Down);
    EXPECT_EQ(door->startHotkey, "Shift A");
    EXPECT_EQ(door->startKey, 'A');

    QTest::keyClick(panel()._stopKey, Qt::Key_End);
    EXPECT_EQ(door->stopHotkey, " 0");
}

TEST_F(EventsTest, AProgrammaticChoiceStoresNothing)
{
    panel()._startKey->setCurrentIndex(5);
    panel()._stopModifier->setCurrentText("Alt");

    EXPECT_EQ(door->startHotkey, "");
    EXPECT_EQ(door->stopHotkey, "");
}

TEST_F(EventsTest, ADisabledFieldTakesNoKeys)
{
    select({});

    QTest::keyClicks(panel()._comment, "of nobody");

    EXPECT_TRUE(panel()._comment->text().isEmpty());
    EXPECT_TRUE(door->comment.isEmpty());
}

TEST_F(EventsTest, TheTabKeyGoesThroughTheFieldsInOrder)
{
    QApplication::setActiveWindow(&window);
    panel()._comment->setFocus();
    const QWidget* const fields[] = {panel()._startModifier, panel()._startKey, panel()._stopModifier,
                                     panel()._stopKey};

    for (const QWidget* field : fields) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), field);
    }
}

} // namespace
