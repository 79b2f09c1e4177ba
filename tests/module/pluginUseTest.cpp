// The built plug-in, driven from outside only: messages, keys of the render view, the widgets of its panel.
#include "tests/support/PluginFixture.h"

#include <kt/ktOSGWidget.h>
#include <qkt/QKTCollapsibleFrame.h>
#include <qkt/QKTWheelPrec.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMetaMethod>
#include <QSplitter>
#include <QtTest>

namespace
{

using Strings = std::vector<std::string>;

class PluginUseTest : public kt::test::PluginFixture
{
protected:
    void SetUp() override
    {
        PluginFixture::SetUp();
        door = &scene.addTimeSensor("Door");
        fan = &scene.addTimeSensor("Fan");
        init();
        window.show();
        QApplication::processEvents();
        deliver(32768);
    }

    static void click(const char* row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, modifiers, centreOf(row));
    }

    static QPoint centreOf(const char* row)
    {
        return list().visualItemRect(list().findItems(row, Qt::MatchExactly).value(0)).center();
    }

    static Strings saved()
    {
        ktFileIO::getProject().set("_loading", false, false);
        deliver(8192);
        Strings strings;
        ktFileIO::getProject().get<Strings>("Animations", strings);
        return strings;
    }

    kt::test::RecordingSensor* door = nullptr;
    kt::test::RecordingSensor* fan = nullptr;
};

TEST_F(PluginUseTest, ASceneChangeFillsTheListAndAClearedSceneEmptiesIt)
{
    EXPECT_EQ(rows(), (QStringList{"Door", "Fan"}));
    deliver(16);
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(PluginUseTest, ANamedMessagePlays)
{
    ktMessage start;
    start.set("animation-name", std::string("Door"));
    ktController::setSimulationTime(3.0);

    EXPECT_EQ(ktController::sendMessage("animationStart", start), 1);

    EXPECT_TRUE(door->isActive());
    EXPECT_EQ(door->getStartTime(), 3.0);
    EXPECT_FALSE(fan->isActive());
}

TEST_F(PluginUseTest, AHotkeyChosenInThePanelPlaysInTheView)
{
    click("Door");
    QTest::keyClick(child<QComboBox>("_startModifier"), Qt::Key_Down);
    QTest::keyClick(child<QComboBox>("_startKey"), Qt::Key_Down);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::ShiftModifier);
    press.ignore();

    ktOSGWidget::pressKey(Qt::Key_A, 0, Qt::ShiftModifier, &press);

    EXPECT_TRUE(press.isAccepted());
    EXPECT_TRUE(door->isActive());
    EXPECT_FALSE(fan->isActive());
}

TEST_F(PluginUseTest, WhatThePanelEditsIsSavedAndLoaded)
{
    click("Fan");
    QTest::keyClicks(child<QLineEdit>("_comment"), "ceiling");
    QTest::keyClick(child<QComboBox>("_stopKey"), Qt::Key_Down);
    EXPECT_EQ(saved(), (Strings{"Door", "", "", "", "Fan", "ceiling", "", " A"}));

    deliver(16);
    ktFileIO::getProject().set("_loading", true, false);
    deliver(8192);

    EXPECT_EQ(rows(), (QStringList{"Door", "Fan"}));
    click("Fan");
    EXPECT_EQ(child<QLineEdit>("_comment")->text(), "ceiling");
    EXPECT_EQ(child<QComboBox>("_stopKey")->currentText(), "A");
}

TEST_F(PluginUseTest, TheWheelsEditTheSensor)
{
    door->setCycleInterval(4.0);
    click("Door");
    auto* interval = child<QKTWheelPrec>("_cycle_interval");
    EXPECT_EQ(interval->value(), 4.0);

    interval->setValue(6.0);
    child<QKTWheelPrec>("_fraction")->setValue(0.5);

    EXPECT_EQ(door->getCycleInterval(), 6.0);
    EXPECT_EQ(door->getFraction(), 0.5F);
}

TEST_F(PluginUseTest, KeysInTheListPlayTheSelection)
{
    click("Door");
    click("Fan", Qt::ControlModifier);

    QTest::keyClick(&list(), Qt::Key_Space);
    EXPECT_TRUE(door->isActive() && fan->isActive());
    QTest::keyClick(&list(), Qt::Key_R);
    EXPECT_TRUE(door->isStopped() && fan->isStopped());
    testing::internal::CaptureStdout();
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(testing::internal::GetCapturedStdout().find("Playing "), 0u);
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(PluginUseTest, TheMenuActsOnTheSelection)
{
    const QList<QAction*> entries =
        list().findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly)->actions();
    ASSERT_EQ(entries.size(), 7);
    EXPECT_FALSE(entries[2]->isEnabled());
    click("Door");
    EXPECT_TRUE(entries[2]->isEnabled());

    entries[2]->trigger();

    EXPECT_TRUE(door->isStopped());
    EXPECT_FALSE(fan->isStopped());
}

TEST_F(PluginUseTest, TheObjectsAreOfTheClassesTheyName)
{
    QWidget* panel = module().getWidget();
    EXPECT_STREQ(panel->metaObject()->className(), "ktAnimationGUIW");
    EXPECT_STREQ(list().metaObject()->className(), "ktAnimationListWidget");
    EXPECT_EQ(module().qt_metacast("ktAnimation"), &module());
    EXPECT_EQ(panel->qt_metacast("ktAnimationGUIW"), panel);
    EXPECT_NE(panel->qt_metacast("Ui::ktAnimationGUI"), nullptr);
    EXPECT_EQ(panel->qt_metacast("ktAnimation"), nullptr);
}

TEST_F(PluginUseTest, ItsSlotsCanBeCalledByTheirIndices)
{
    const QMetaObject* meta = module().metaObject();
    const int first = meta->methodOffset();
    EXPECT_EQ(meta->indexOfSlot("animationSelected()"), first);
    EXPECT_EQ(meta->indexOfSlot("animationRenamed(QListWidgetItem*,int,QString)"), first + 2);
    EXPECT_EQ(meta->indexOfSlot("changedFraction(double)"), first + 9);
    click("Door");

    EXPECT_TRUE(meta->method(first + 8).invoke(&module(), Q_ARG(double, 9.0)));

    EXPECT_EQ(door->getCycleInterval(), 9.0);
}

TEST_F(PluginUseTest, ARenameThroughTheMetaObjectReachesTheScene)
{
    click("Door");
    list().item(0)->setText("Gate");

    QMetaObject::invokeMethod(&module(), "animationRenamed", Q_ARG(QListWidgetItem*, list().item(0)),
                              Q_ARG(int, 0), Q_ARG(QString, "not read"));

    EXPECT_EQ(saved(), (Strings{"Gate", "", "", "", "Fan", "", "", ""}));
}

} // namespace
