#include "listwidget/ktAnimationListWidget.h"
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

#include <QSignalSpy>

namespace
{

class DeleteTest : public kt::test::ModuleFixture
{
protected:
    DeleteTest()
    {
        for (const char* name : {"Door", "Fan", "Bell", "Arm"})
            addRecord(name);
    }

    void remove() { emit list().onDelete(); }
};

TEST_F(DeleteTest, EverySelectedRecordGoes)
{
    select({"Door", "Bell"});

    remove();

    EXPECT_EQ(records(), (QStringList{"Fan", "Arm"}));
    EXPECT_EQ(rows(), (QStringList{"Fan", "Arm"}));
}

TEST_F(DeleteTest, TheCurrentRecordIsForgottenAndTheFramesCleared)
{
    module().findAnimation("Fan")->comment = "ceiling";
    select({"Fan"});

    remove();

    EXPECT_EQ(module()._current, nullptr);
    EXPECT_TRUE(panel()._comment->text().isEmpty());
    EXPECT_FALSE(panel()._comment->isEnabled());
}

TEST_F(DeleteTest, WithNothingSelectedNothingGoesButTheListIsRebuilt)
{
    const QSignalSpy rebuilds(list().model(), SIGNAL(modelReset()));

    remove();

    EXPECT_EQ(records().size(), 4);
    EXPECT_EQ(rebuilds.count(), 1);
}

TEST_F(DeleteTest, AnEmptyListIsRebuiltToo)
{
    module()._animations.clear();
    list().clear();
    module()._animations.emplace_back();
    module()._animations.back().name = "Unlisted";

    remove();

    EXPECT_EQ(rows(), QStringList{"Unlisted"});
    EXPECT_EQ(records(), QStringList{"Unlisted"});
}

TEST_F(DeleteTest, ARowThatMatchesNoRecordRebuildsTheListAndClearsTheFrames)
{
    module().removeAnimation("Fan", false);
    select({"Fan"});
    panel()._comment->setText("left over");

    remove();

    EXPECT_EQ(records(), (QStringList{"Door", "Bell", "Arm"}));
    EXPECT_EQ(rows(), records());
    EXPECT_TRUE(panel()._comment->text().isEmpty());
}

TEST_F(DeleteTest, OnlyTheFirstRecordOfTheNameGoes)
{
    module()._animations.push_back(*module().findAnimation("Door"));
    module()._animations.back().comment = "second";
    select({"Door"});

    remove();

    EXPECT_EQ(records(), (QStringList{"Fan", "Bell", "Arm", "Door"}));
    EXPECT_EQ(module().findAnimation("Door")->comment, "second");
}

TEST_F(DeleteTest, RowsAreLookedUpAsLatin1)
{
    addRecord("T\xC3\xBCr");
    select({QString::fromUtf8("T\xC3\xBCr")});

    remove();

    EXPECT_EQ(records().size(), 5) << "its Latin-1 bytes are no UTF-8";
}

TEST_F(DeleteTest, TheSceneStaysSoThatAScanBringsTheAnimationBack)
{
    const kt::test::RecordingSensor& door = addTimeSensor("Door");
    select({"Door"});

    remove();
    EXPECT_FALSE(records().contains("Door"));
    EXPECT_TRUE(door.changes.empty());

    module().refreshAnimations();
    EXPECT_EQ(records(), QStringList{"Door"});
}

} // namespace
