#include "tests/app/window/WindowFixture.h"

#include <kt/ktModuleBase.h>

#include <QComboBox>
#include <QListWidget>

namespace
{

/// The plug-in in the window: what the user sets in its panel and then does in the view.
class HotkeyTest : public kt::test::WindowFixture
{
protected:
    void SetUp() override
    {
        WindowFixture::SetUp();
        close();
        open(true);
        window->open(example("door.wrl"));
    }

    template <class Widget>
    static Widget& inPanel(const char* name)
    {
        return *ktModuleBase::modules().at(0)->getWidget()->findChild<Widget*>(name);
    }

    static void selectInList(const QString& animation)
    {
        auto& list = inPanel<QListWidget>("_animationList");
        const QList<QListWidgetItem*> found = list.findItems(animation, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1);
        list.setCurrentItem(found.first());
    }

    /// Chooses an item as the user does, by typing its text.
    static void choose(const char* box, const QString& text)
    {
        auto& combo = inPanel<QComboBox>(box);
        combo.setFocus();
        QTest::keyClicks(&combo, text);
        EXPECT_EQ(combo.currentText(), text);
    }

    void pressInView(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        window->view().setFocus();
        QWidget* target = QApplication::focusWidget();
        ASSERT_TRUE(window->view().isAncestorOf(target));
        QTest::keyClick(target, key, modifiers);
    }

    kthost::SceneSensor sensor(const char* name)
    {
        for (const kthost::SceneSensor& found : session.frames().sensors()) {
            if (std::string(NodeUtils::getName(found.node)) == name)
                return found;
        }
        throw std::logic_error(name);
    }

    QImage picture()
    {
        const kthost::Picture seen = window->view().picture(QSize(200, 150));
        EXPECT_EQ(seen.error, "");
        return seen.image;
    }
};

} // namespace

TEST_F(HotkeyTest, AHotkeySetInThePanelStartsTheAnimationFromTheView)
{
    selectInList("Door");
    choose("_startKey", "B");
    ASSERT_FALSE(sensor("Door").sensor->isActive());

    pressInView(Qt::Key_B);
    EXPECT_TRUE(sensor("Door").sensor->isActive());

    session.frames().advanceTo(0.25);
    EXPECT_NEAR(sensor("Door").sensor->getFraction(), 0.25, 1e-6);
}

TEST_F(HotkeyTest, TheStartedAnimationMovesThePicture)
{
    selectInList("Door");
    choose("_startKey", "B");
    sensor("Fan").sensor->setEnabled(false); // only the door may move
    session.frames().advanceTo(0.1);
    const QImage before = picture();
    session.frames().advanceTo(0.2);
    ASSERT_EQ(picture(), before);

    pressInView(Qt::Key_B);
    session.frames().advanceTo(0.7);

    EXPECT_NE(picture(), before);
}

TEST_F(HotkeyTest, TheSecondHotkeyPausesAndContinues)
{
    selectInList("Door");
    choose("_startKey", "B");
    choose("_stopKey", "C");
    pressInView(Qt::Key_B);

    pressInView(Qt::Key_C);
    EXPECT_FALSE(sensor("Door").sensor->isActive());

    pressInView(Qt::Key_C);
    EXPECT_TRUE(sensor("Door").sensor->isActive());
}

TEST_F(HotkeyTest, AHotkeyWithAModifierNeedsIt)
{
    selectInList("Door");
    choose("_startModifier", "Shift");
    choose("_startKey", "B");

    pressInView(Qt::Key_B);
    EXPECT_FALSE(sensor("Door").sensor->isActive());

    pressInView(Qt::Key_B, Qt::ShiftModifier);
    EXPECT_TRUE(sensor("Door").sensor->isActive());
}
