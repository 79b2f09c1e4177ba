#include "tests/app/window/WindowFixture.h"

#include <kt/ktSelectionManager.h>

#include <QTreeView>

namespace
{

class SelectionTest : public kt::test::WindowFixture
{
protected:
    void SetUp() override
    {
        WindowFixture::SetUp();
        window->open(example("door.wrl"));
    }

    int marks() const { return window->marker().count(); }

    QImage picture()
    {
        const kthost::Picture seen = window->view().picture(QSize(320, 240));
        EXPECT_EQ(seen.error, "");
        return seen.image;
    }
};

} // namespace

TEST_F(SelectionTest, WhatIsSelectedIsMarkedInTheView)
{
    const QImage before = picture();

    ktSelectionManager::selectNodes({node("Blades")});

    EXPECT_EQ(marks(), 1);
    EXPECT_NE(picture(), before);

    ktSelectionManager::selectNodes({});
    EXPECT_EQ(marks(), 0);
    EXPECT_EQ(picture(), before);
}

TEST_F(SelectionTest, ANodeThatIsUsedSeveralTimesIsMarkedAtEachPlace)
{
    ktSelectionManager::selectNodes({node("Blade")});

    EXPECT_EQ(marks(), 3);
}

TEST_F(SelectionTest, ASelectedAnimationMarksWhatItMoves)
{
    ktSelectionManager::selectNodes({node("Fan")});

    EXPECT_EQ(marks(), 1);
}

TEST_F(SelectionTest, WhatHasNoExtentIsNotMarked)
{
    ktSelectionManager::selectNodes({node("FanTurn")});

    EXPECT_EQ(marks(), 0);
}

TEST_F(SelectionTest, TheMarksGoWithTheAnimation)
{
    ktSelectionManager::selectNodes({node("Blades")});
    session.frames().advanceTo(0.05);
    window->showTime(0.05);
    const QImage marked = picture();
    ktSelectionManager::selectNodes({});
    const QImage plain = picture();

    session.frames().advanceTo(1.05); // a whole turn on
    ktSelectionManager::selectNodes({node("Blades")});
    window->showTime(1.05);
    EXPECT_NE(marked, plain);
    EXPECT_EQ(picture(), marked);

    session.frames().advanceTo(1.15);
    const QImage stale = picture();
    window->showTime(1.15);
    EXPECT_NE(picture(), stale);
}

TEST_F(SelectionTest, ARowOfTheTreeMarksItsNode)
{
    QAbstractItemModel& rows = *window->sceneTree().view().model();
    const QModelIndexList found =
        rows.match(rows.index(0, 0), Qt::DisplayRole, "Blades", 1, Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_FALSE(found.isEmpty());

    window->sceneTree().view().selectionModel()->select(found.first(), QItemSelectionModel::ClearAndSelect);

    EXPECT_EQ(marks(), 1);
}

TEST_F(SelectionTest, AnotherSceneHasNoMarksOfTheOld)
{
    const ktNodePtr old = node("Blades");
    ktSelectionManager::selectNodes({old});

    window->open(example("courtyard.wrl"));
    EXPECT_EQ(marks(), 0);

    ktSelectionManager::selectNodes({old});
    EXPECT_EQ(marks(), 0);
    ktSelectionManager::selectNodes({});
}
