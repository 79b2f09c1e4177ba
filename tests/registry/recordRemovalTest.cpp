#include "listwidget/ktAnimationListWidget.h"
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

#include <QSignalSpy>

namespace
{

class RecordRemovalTest : public kt::test::ModuleFixture
{
protected:
    RecordRemovalTest()
    {
        addRecord("Door");
        addRecord("Window");
    }

    QSignalSpy rebuilds{list().model(), SIGNAL(modelReset())};
};

TEST_F(RecordRemovalTest, RemovesTheRecordAndRebuildsTheList)
{
    module().removeAnimation("Door", true);

    EXPECT_EQ(records(), QStringList{"Window"});
    EXPECT_EQ(rows(), QStringList{"Window"});
}

TEST_F(RecordRemovalTest, WithoutRefreshThePanelIsLeftAsItIs)
{
    select({"Window"});

    module().removeAnimation("Door", false);

    EXPECT_EQ(records(), QStringList{"Window"});
    EXPECT_EQ(rows(), (QStringList{"Door", "Window"}));
    EXPECT_EQ(module()._current, module().findAnimation("Window"));
    EXPECT_TRUE(panel()._comment->isEnabled());
}

TEST_F(RecordRemovalTest, AnUnknownNameWithRefreshStillRebuildsAndDeselects)
{
    select({"Door"});

    module().removeAnimation("Roof", true);

    EXPECT_EQ(records(), (QStringList{"Door", "Window"}));
    EXPECT_EQ(rebuilds.count(), 1);
    EXPECT_EQ(module()._current, nullptr);
    EXPECT_FALSE(panel()._comment->isEnabled());
}

TEST_F(RecordRemovalTest, AnUnknownNameWithoutRefreshDoesNothing)
{
    select({"Door"});

    module().removeAnimation("Roof", false);

    EXPECT_EQ(rebuilds.count(), 0);
    EXPECT_NE(module()._current, nullptr);
}

TEST_F(RecordRemovalTest, TheSelectedRecordIsForgotten)
{
    select({"Door"});
    ASSERT_NE(module()._current, nullptr);

    module().removeAnimation("Door", false);

    EXPECT_EQ(module()._current, nullptr);
}

TEST_F(RecordRemovalTest, OnlyTheFirstOfTheNameGoes)
{
    module()._animations.push_back(*module().findAnimation("Door"));
    module()._animations.back().comment = "second";

    module().removeAnimation("Door", true);

    EXPECT_EQ(records(), (QStringList{"Window", "Door"}));
    EXPECT_EQ(module().findAnimation("Door")->comment, "second");
}

TEST_F(RecordRemovalTest, ByNodeGoesByTheNameWhateverTheCore)
{
    module().removeAnimation(ktNodePtr(scene.addNode("Door")), true);
    EXPECT_EQ(records(), QStringList{"Window"});

    module().removeAnimation(ktNodePtr(scene.addNode("Window", kt::test::OtherCore::create())), false);
    EXPECT_TRUE(records().isEmpty());
    EXPECT_EQ(rows(), QStringList{"Window"});
}

TEST_F(RecordRemovalTest, ByANodeWithoutANameGoesByTheEmptyName)
{
    addRecord("");

    module().removeAnimation(ktNodePtr(), true);

    EXPECT_EQ(records(), (QStringList{"Door", "Window"}));
}

TEST_F(RecordRemovalTest, ClearEmptiesRegistryListAndFrames)
{
    module().findAnimation("Door")->comment = "front";
    select({"Door"});
    ASSERT_EQ(panel()._comment->text(), "front");

    module().clearAnimations();

    EXPECT_TRUE(records().isEmpty());
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_EQ(module()._current, nullptr);
    EXPECT_TRUE(panel()._comment->text().isEmpty());
    EXPECT_FALSE(panel()._comment->isEnabled());
    EXPECT_FALSE(panel()._startKey->isEnabled());
}

TEST_F(RecordRemovalTest, ClearOfAnEmptyRegistryStillClearsListAndFrames)
{
    module()._animations.clear();
    panel()._comment->setText("left over");
    panel()._comment->setEnabled(true);

    module().clearAnimations();

    EXPECT_TRUE(rows().isEmpty());
    EXPECT_TRUE(panel()._comment->text().isEmpty());
    EXPECT_FALSE(panel()._comment->isEnabled());
}

} // namespace
