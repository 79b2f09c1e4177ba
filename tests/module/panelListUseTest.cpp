// The list of the built plug-in and its menu, with the mouse and the keyboard.
#include "tests/module/PanelHands.h"

#include <kt/ktScenegraph.h>
#include <kt/ktSelectionManager.h>
#include <osg/FieldContainerType.h>

#include <memory>

namespace
{

std::vector<ktNodePtr> scrolledTo;

class PanelListUseTest : public kt::test::PanelHands
{
protected:
    void SetUp() override
    {
        PanelHands::SetUp();
        for (const char* name : {"Roof", "Door", "Fan"})
            sensors.push_back(&addAnimation(name));
        ktController::setSimulationTime(50.0);
        scrolledTo.clear();
        ktScenegraph::setScrollHandler([](const ktNodePtr& node) { scrolledTo.push_back(node); });
        ktSelectionManager::selectNodes({});
    }

    void TearDown() override
    {
        ktScenegraph::setScrollHandler(nullptr);
        ktSelectionManager::selectNodes({});
        scrolledTo.clear();
    }

    /// What the plug-in says on the standard output stream during `action`.
    template <class Action>
    static std::string said(Action&& action)
    {
        testing::internal::CaptureStdout();
        action();
        return testing::internal::GetCapturedStdout();
    }

    /// How many edits each sensor was told of: Roof, Door, Fan.
    std::vector<std::size_t> edits() const
    {
        std::vector<std::size_t> counts;
        for (const kt::test::RecordingSensor* sensor : sensors)
            counts.push_back(sensor->changes.size());
        return counts;
    }

    std::vector<kt::test::RecordingSensor*> sensors;
};

using Edits = std::vector<std::size_t>;

TEST_F(PanelListUseTest, WithNothingSelectedOnlyTheLastTwoEntriesCanBeChosen)
{
    openMenu();

    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(menu().actions().at(i)->isEnabled(), i >= 5) << i;
    clickEntry(0);
    EXPECT_TRUE(menu().isVisible()) << "a click on what cannot be chosen leaves the menu open";
    EXPECT_EQ(edits(), (Edits{0, 0, 0}));
    menu().close();
}

TEST_F(PanelListUseTest, TheMenuOpensAtTheListsPlaceForThePointOfTheViewport)
{
    const QPoint point = centreOf(1);
    ASSERT_NE(list().mapToGlobal(point), list().viewport()->mapToGlobal(point));

    openMenu(1);

    EXPECT_EQ(menu().pos(), list().mapToGlobal(point));
    for (const QAction* action : menu().actions())
        EXPECT_TRUE(action->isEnabled()) << "the right button selects the row, too";
    menu().close();
}

TEST_F(PanelListUseTest, StartIsChosenForTheSelectedRows)
{
    clickRow(0);
    clickRow(2, Qt::ControlModifier);

    const std::string output = said([] {
        openMenu(2);
        clickEntry(0);
    });

    EXPECT_FALSE(menu().isVisible());
    EXPECT_EQ(edits(), (Edits{1, 0, 1}));
    EXPECT_EQ(sensors[2]->getStartTime(), 50.0);
    EXPECT_TRUE(output == "Playing Roof\nPlaying Fan\n" || output == "Playing Fan\nPlaying Roof\n") << output;
}

TEST_F(PanelListUseTest, PauseAndContinueAreOneEntry)
{
    sensors[1]->setActive(true);

    openMenu(1);
    clickEntry(1);
    EXPECT_FALSE(sensors[1]->isActive());
    openMenu(1);
    clickEntry(1);
    EXPECT_TRUE(sensors[1]->isActive());
    EXPECT_EQ(edits(), (Edits{0, 2, 0}));
}

TEST_F(PanelListUseTest, ResetIsChosen)
{
    openMenu(1);
    clickEntry(2);

    EXPECT_TRUE(sensors[1]->isStopped());
    EXPECT_EQ(edits(), (Edits{0, 1, 0}));
}

TEST_F(PanelListUseTest, SelectNodesSelectsAndScrolls)
{
    clickRow(1);
    clickRow(0, Qt::ControlModifier);

    openMenu(0);
    clickEntry(3);

    const std::vector<ktNodePtr> expected = ktScenegraph::findNodes(std::vector<std::string>{"Roof", "Door"});
    ASSERT_EQ(expected.size(), 2U);
    EXPECT_EQ(ktSelectionManager::selectedNodes(), expected);
    EXPECT_EQ(scrolledTo, std::vector<ktNodePtr>{expected.front()});
}

TEST_F(PanelListUseTest, SelectNodesLeavesTheSelectionWhereTheSceneHasNoSuchNode)
{
    const std::vector<ktNodePtr> before{scene.root()};
    ktSelectionManager::selectNodes(before);
    scene.removeNode("Door");

    openMenu(1);
    clickEntry(3);

    EXPECT_EQ(ktSelectionManager::selectedNodes(), before);
    EXPECT_TRUE(scrolledTo.empty());
}

TEST_F(PanelListUseTest, DeleteTakesTheRowAndRefreshBringsItBack)
{
    openMenu(1);
    clickEntry(4);
    EXPECT_EQ(rows(), (QStringList{"Roof", "Fan"}));
    EXPECT_EQ(saved().size(), 8U);

    openMenu();
    clickEntry(5);
    EXPECT_EQ(rows(), (QStringList{"Roof", "Fan", "Door"}));
    EXPECT_EQ(edits(), (Edits{0, 0, 0}));
}

TEST_F(PanelListUseTest, ClearEmptiesTheListAndTheRegistry)
{
    openMenu();
    clickEntry(6);

    EXPECT_TRUE(rows().isEmpty());
    EXPECT_TRUE(saved().empty());
}

TEST_F(PanelListUseTest, ADoubleClickStartsEverySelectedRow)
{
    const std::string output = said([] {
        clickRow(0);
        const QPoint point = list().viewport()->mapTo(list().window(), centreOf(2));
        QTest::mouseDClick(list().window()->windowHandle(), Qt::LeftButton, Qt::ShiftModifier, point);
    });

    EXPECT_EQ(edits(), (Edits{1, 1, 1}));
    EXPECT_EQ(std::count(output.begin(), output.end(), '\n'), 3);
}

TEST_F(PanelListUseTest, TheFourKeysActOnEverySelectedRow)
{
    clickRow(0);
    clickRow(2, Qt::ShiftModifier);

    press(Qt::Key_Space);
    EXPECT_EQ(edits(), (Edits{1, 1, 1}));
    press(Qt::Key_R);
    EXPECT_EQ(edits(), (Edits{2, 2, 2}));
    EXPECT_TRUE(sensors[1]->isStopped());
    const std::string output = said([this] { press(Qt::Key_Return); });
    for (const char* line : {"Playing Roof\n", "Playing Door\n", "Playing Fan\n"})
        EXPECT_NE(output.find(line), std::string::npos) << output;
    EXPECT_EQ(edits(), (Edits{3, 3, 3}));
    press(Qt::Key_Delete);
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(PanelListUseTest, AKeyWithAModifierIsNotForTheAnimations)
{
    QSignalSpy deletions(&list(), SIGNAL(onDelete()));
    for (const Qt::KeyboardModifier modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::KeypadModifier}) {
        clickRow(1);
        for (const int key : {Qt::Key_Space, Qt::Key_R, Qt::Key_Return, Qt::Key_Delete})
            press(key, modifier);
    }
    clickRow(1);
    press(Qt::Key_Enter, Qt::KeypadModifier);
    press(Qt::Key_Enter);

    EXPECT_EQ(edits(), (Edits{0, 0, 0}));
    EXPECT_EQ(deletions.count(), 0);
}

TEST_F(PanelListUseTest, TheDeleteKeyIsPassedOnEvenWithNothingSelected)
{
    QSignalSpy deletions(&list(), SIGNAL(onDelete()));
    list().setFocus();
    list().clearSelection();

    press(Qt::Key_Delete);

    EXPECT_EQ(deletions.count(), 1);
    EXPECT_EQ(rows().size(), 3);
}

TEST_F(PanelListUseTest, NothingCanBeDroppedOnTheList)
{
    const std::unique_ptr<QMimeData> row(list().model()->mimeData({list().model()->index(1, 0)}));
    const QPoint point = list().viewport()->mapTo(&window, centreOf(1));
    QDragEnterEvent enter(point, Qt::CopyAction | Qt::MoveAction, row.get(), Qt::LeftButton, Qt::NoModifier);
    enter.ignore();

    QCoreApplication::sendEvent(window.windowHandle(), &enter);

    EXPECT_FALSE(enter.isAccepted());
    EXPECT_FALSE(list().acceptDrops());
}

TEST_F(PanelListUseTest, RowsWithNamesOfAnyScriptAreDrivenByTheirLatin1Form)
{
    for (const char* name : {"T\xC3\xBCr", "\xCE\xA9", "\xF0\x9F\x9A\xAA", "two words", "a&b\"<c>"})
        addAnimation(name);
    const kt::test::RecordingSensor& latin1 = scene.addTimeSensor("T\xFCr");
    const kt::test::RecordingSensor& questionMark = scene.addTimeSensor("?");
    ASSERT_EQ(rows().mid(3), (QStringList{QString::fromUtf8("T\xC3\xBCr"), QString::fromUtf8("\xCE\xA9"),
                                          QString::fromUtf8("\xF0\x9F\x9A\xAA"), "two words", "a&b\"<c>"}));
    const auto startRow = [this](int row) {
        clickRow(row);
        return said([this] { press(Qt::Key_Return); });
    };

    EXPECT_EQ(startRow(3), "Playing T\xFCr\n");
    EXPECT_TRUE(latin1.isActive());
    EXPECT_EQ(startRow(4), "Playing ?\n");
    EXPECT_TRUE(questionMark.isActive());
    EXPECT_EQ(startRow(5), "Playing ??\n") << "two halves of one character";
    EXPECT_EQ(startRow(6), "Playing two words\n");
    EXPECT_EQ(startRow(7), "Playing a&b\"<c>\n");
}

TEST_F(PanelListUseTest, NodesWithoutANameOrWithAnEmptyOneDoNoHarm)
{
    const kt::test::RecordingSensor& unnamed = addAnimation(nullptr);
    addAnimation("");
    const int count = rows().size();
    ASSERT_GE(count, 4);

    for (int row = 3; row < count; ++row) {
        clickRow(row);
        said([this] { press(Qt::Key_Return); });
        press(Qt::Key_Space);
        openMenu(row);
        clickEntry(3);
    }

    EXPECT_EQ(rows().size(), count);
    EXPECT_EQ(edits(), (Edits{0, 0, 0}));
    EXPECT_EQ(rows().at(3), QString::fromLatin1(unnamed.getType().getName()));
}

} // namespace
