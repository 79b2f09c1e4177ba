// The fields of the built plug-in's panel and what becomes of them, with the mouse and the keyboard.
#include "tests/module/PanelHands.h"

#include <qkt/QKTWheelPrec.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

namespace
{

using kt::test::Strings;

constexpr Qt::KeyboardModifiers none = Qt::NoModifier;

class PanelFieldsUseTest : public kt::test::PanelHands
{
protected:
    void SetUp() override
    {
        PanelHands::SetUp();
        door = &addAnimation("Door");
        fan = &addAnimation("Fan");
    }

    static QComboBox& box(const char* name) { return *child<QComboBox>(name); }
    static QLineEdit& comment() { return *child<QLineEdit>("_comment"); }
    static QKTWheelPrec& wheel(const char* name) { return *child<QKTWheelPrec>(name); }
    static QLineEdit& field(const char* wheelName) { return *wheel(wheelName).findChild<QLineEdit*>(); }

    /// Opens a box and clicks on an item.
    static void choose(const char* name, int item)
    {
        click(&box(name));
        QAbstractItemView& items = *box(name).view();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(items.window()));
        const QModelIndex index = items.model()->index(item, 0);
        // The first clicks of a popup may still count as the one that opened it.
        EXPECT_TRUE(QTest::qWaitFor([&] {
            if (!items.isVisible())
                return true;
            items.scrollTo(index, QAbstractItemView::PositionAtCenter); // at its ends it scrolls by itself
            QCoreApplication::processEvents();
            click(items.viewport(), QPoint(5, items.visualRect(index).center().y()));
            return !items.isVisible();
        }));
        EXPECT_EQ(box(name).currentIndex(), item);
    }

    /// The text of a wheel, typed in place of the present one.
    void fill(const char* name, const QString& text)
    {
        click(&field(name));
        press(Qt::Key_A, Qt::ControlModifier);
        type(text);
        press(Qt::Key_Return);
    }

    kt::test::RecordingSensor* door = nullptr;
    kt::test::RecordingSensor* fan = nullptr;
};

TEST_F(PanelFieldsUseTest, AFreshPanelHasEmptyBoxesThatTakeNoClick)
{
    for (const char* name : {"_startModifier", "_startKey", "_stopModifier", "_stopKey"}) {
        EXPECT_EQ(box(name).currentIndex(), 0);
        click(&box(name));
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << name;
    }
    click(&comment());
    EXPECT_FALSE(comment().hasFocus());
}

TEST_F(PanelFieldsUseTest, HotkeysAreChosenWithTheMouse)
{
    clickRow(0);
    choose("_startModifier", 4);
    choose("_startKey", 1);
    choose("_stopKey", 36);
    EXPECT_EQ(saved()[3], " 0");
    choose("_stopModifier", 1); // the second of a pair counts, too

    EXPECT_EQ(saved(), (Strings{"Door", "", "Shift-Ctrl A", "Shift 0", "Fan", "", "", ""}));
    EXPECT_TRUE(pressInView(Qt::Key_A, Qt::ShiftModifier | Qt::ControlModifier));
    EXPECT_TRUE(door->isActive());
    EXPECT_TRUE(pressInView(Qt::Key_0, Qt::ShiftModifier));
    EXPECT_FALSE(door->isActive());
    EXPECT_TRUE(fan->changes.empty());
}

TEST_F(PanelFieldsUseTest, AModifierWithoutAKeyIsKeptAndReadAsItsFirstLetter)
{
    clickRow(0);
    choose("_startModifier", 3);

    EXPECT_EQ(saved()[2], "Alt ");
    EXPECT_FALSE(pressInView(Qt::Key_A, Qt::AltModifier));
    EXPECT_TRUE(pressInView(Qt::Key_A));
}

TEST_F(PanelFieldsUseTest, EveryModifierOfTheBoxIsTheOneOfTheKeyboard)
{
    const Qt::KeyboardModifiers expected[] = {none,
                                              Qt::ShiftModifier,
                                              Qt::ControlModifier,
                                              Qt::AltModifier,
                                              Qt::ShiftModifier | Qt::ControlModifier,
                                              Qt::ShiftModifier | Qt::AltModifier,
                                              Qt::AltModifier | Qt::ControlModifier};
    clickRow(0);
    choose("_startKey", 27);
    box("_startModifier").setFocus();
    for (int item = 0; item < 7; ++item) {
        ASSERT_EQ(box("_startModifier").currentIndex(), item);
        if (item == 0) {
            press(Qt::Key_Down); // a box that is shown as it was has stored nothing
            press(Qt::Key_Up);
        }
        for (const Qt::KeyboardModifiers held : expected)
            EXPECT_EQ(pressInView(Qt::Key_1, held), held == expected[item]) << item << ' ' << held;
        press(Qt::Key_Down);
    }
}

TEST_F(PanelFieldsUseTest, WhatIsNoHotkeyIsKeptAndReadAsFarAsItGoes)
{
    const struct
    {
        const char* text;
        int key;
        Qt::KeyboardModifiers modifiers;
    } cases[] = {
        {"Shift A", 'A', Qt::ShiftModifier},
        {"alt-ctrl 7", '7', Qt::AltModifier | Qt::ControlModifier},
        {" A", 'A', none},
        {"", 0, none},
        {" ", 0, none},
        {"SHIFT", 'S', none},
        {"Ctrl F1", 'F', Qt::ControlModifier},
        {"Shift  A", 'S', none},
        {"Ctrl-Alt A", 'A', none},
        {"Shift A B", 'A', Qt::ShiftModifier},
        {"Hyper A", 'A', none},
        {"Shift \xC3\xA4", 0, Qt::ShiftModifier},
        {"\xE6\x97\xA5", 0, none},
        {"Ctrl +", 0, Qt::ControlModifier},
    };
    for (const auto& hotkey : cases) {
        SCOPED_TRACE(hotkey.text);
        load({"Door", "", hotkey.text, ""});
        door->changes.clear();

        EXPECT_TRUE(pressInView(hotkey.key, hotkey.modifiers));
        EXPECT_EQ(door->changes.size(), 1U);
        EXPECT_FALSE(pressInView(hotkey.key, hotkey.modifiers ^ Qt::MetaModifier));
        EXPECT_EQ(saved()[2], hotkey.text);
    }
}

TEST_F(PanelFieldsUseTest, AHotkeyOfNoAnimationIsLeftAlone)
{
    load({"Gone", "", " A", " B"});
    EXPECT_TRUE(pressInView(Qt::Key_A)) << "the record takes it, though the scene has no such node";
    EXPECT_TRUE(scene.changes.isEmpty());
    deliver(16);

    EXPECT_FALSE(pressInView(Qt::Key_A));
    EXPECT_FALSE(pressInView(0));
    EXPECT_TRUE(scene.changes.isEmpty());
}

TEST_F(PanelFieldsUseTest, OneKeyOfTwoAnimationsGoesToBothInTheirOrder)
{
    load({"Door", "", "", " A", "Fan", "", " A", " A"});
    door->setActive(true);

    EXPECT_TRUE(pressInView(Qt::Key_A));

    EXPECT_FALSE(door->isActive());
    EXPECT_TRUE(fan->isActive());
    ASSERT_EQ(scene.changes.entries().size(), 2U);
    EXPECT_EQ(scene.changes.entries()[0].container.get(), door);
    EXPECT_EQ(scene.changes.entries()[1].container.get(), fan);
}

TEST_F(PanelFieldsUseTest, ATypedCommentIsSavedInItsBytes)
{
    clickRow(1);
    click(&comment());
    type("on top");
    EXPECT_EQ(saved()[5], "on top");

    press(Qt::Key_A, Qt::ControlModifier);
    type(QChar(0xE9));
    EXPECT_EQ(saved()[5], "\xEF\xBF\xBD");
    press(Qt::Key_Backspace);
    type(QString(QChar(0x03A9)));
    EXPECT_EQ(saved()[5], "?");
    press(Qt::Key_Backspace);
    EXPECT_EQ(saved(), (Strings{"Door", "", "", "", "Fan", "", "", ""}));
}

TEST_F(PanelFieldsUseTest, ASecondSelectedRowDisablesWhatIsOfOneAnimation)
{
    load({"Door", "front", "Alt B", " C", "Fan", "", "", ""});
    clickRow(0);
    EXPECT_EQ(comment().text(), "front");
    EXPECT_EQ(box("_startModifier").currentText(), "Alt");
    EXPECT_EQ(box("_stopKey").currentText(), "C");

    clickRow(1, Qt::ControlModifier);

    EXPECT_EQ(comment().text(), "");
    EXPECT_FALSE(comment().isEnabled());
    for (const char* name : {"_startModifier", "_startKey", "_stopModifier", "_stopKey"})
        EXPECT_FALSE(box(name).isEnabled()) << name;
    for (const char* name : {"_cycle_interval", "_fraction"})
        EXPECT_TRUE(wheel(name).isEnabled()) << name;
    EXPECT_EQ(saved(), (Strings{"Door", "front", "Alt B", " C", "Fan", "", "", ""}));
}

TEST_F(PanelFieldsUseTest, ARowThatIsShownChangesNothingInTheScene)
{
    door->setCycleInterval(4.0);
    fan->setCycleInterval(6.0);

    clickRow(0);
    EXPECT_EQ(wheel("_cycle_interval").value(), 4.0);
    clickRow(1);
    EXPECT_EQ(wheel("_cycle_interval").value(), 6.0);

    EXPECT_TRUE(door->changes.empty());
    EXPECT_TRUE(fan->changes.empty());
}

TEST_F(PanelFieldsUseTest, TheWheelsStepAndStayWithinTheirRanges)
{
    door->setCycleInterval(0.1);
    clickRow(0);
    click(&field("_cycle_interval"));
    turnMouseWheel(&field("_cycle_interval"), 1);
    EXPECT_DOUBLE_EQ(door->getCycleInterval(), 0.2);
    for (int i = 0; i < 5; ++i)
        turnMouseWheel(&field("_cycle_interval"), -1);
    EXPECT_EQ(door->getCycleInterval(), 0.0);

    click(&field("_fraction"));
    turnMouseWheel(&field("_fraction"), 1);
    EXPECT_FLOAT_EQ(door->getFraction(), 0.01F);
    fill("_fraction", "7");
    EXPECT_EQ(door->getFraction(), 1.0F);
    fill("_cycle_interval", "12.5");
    EXPECT_EQ(door->getCycleInterval(), 12.5);
    EXPECT_TRUE(fan->changes.empty());
}

TEST_F(PanelFieldsUseTest, SeveralSensorsOfTheNameGetTheValue)
{
    kt::test::RecordingSensor& second = scene.addTimeSensor("Door");
    second.setCycleInterval(3.0);
    clickRow(0);
    EXPECT_EQ(wheel("_cycle_interval").value(), 3.0) << "the last one's";

    fill("_cycle_interval", "8");

    EXPECT_EQ(door->getCycleInterval(), 8.0);
    EXPECT_EQ(second.getCycleInterval(), 8.0);
}

TEST_F(PanelFieldsUseTest, ARowOfAnotherScriptReadsAndEditsNothing)
{
    addAnimation("\xCE\xA9");
    clickRow(0);
    const double shown = wheel("_cycle_interval").value();

    clickRow(2);
    EXPECT_FALSE(comment().isEnabled());
    fill("_cycle_interval", "8");

    EXPECT_NE(shown, 8.0);
    EXPECT_TRUE(scene.changes.isEmpty());
}

TEST_F(PanelFieldsUseTest, ADeletedRowEmptiesTheFrames)
{
    clickRow(0);
    click(&comment());
    type("front");
    clickRow(0);

    press(Qt::Key_Delete);

    EXPECT_EQ(rows(), QStringList{"Fan"});
    EXPECT_EQ(comment().text(), "");
    EXPECT_FALSE(comment().isEnabled());
    EXPECT_EQ(saved(), (Strings{"Fan", "", "", ""}));
}

} // namespace
