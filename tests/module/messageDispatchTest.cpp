#include "listwidget/ktAnimationListWidget.h"
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

#include <kt/ktController.h>
#include <kt/ktFileIO.h>
#include <kt/ktMessage.h>

#include <QSignalSpy>

namespace
{

using Strings = std::vector<std::string>;

class MessageDispatchTest : public kt::test::ModuleFixture
{
protected:
    /// Straight to the module, whether it asked for the id or not.
    void receive(std::uint32_t id)
    {
        ktMessage message(id);
        module().receivedMessage(message);
    }

    static ktMessage& project() { return ktFileIO::getProject(); }
};

TEST_F(MessageDispatchTest, ItAsksForThreeIds)
{
    EXPECT_TRUE(module().wantsMessage(16));
    EXPECT_TRUE(module().wantsMessage(8192));
    EXPECT_TRUE(module().wantsMessage(32768));
    for (unsigned int bit = 1; bit != 0; bit <<= 1)
        EXPECT_EQ(module().wantsMessage(bit), bit == 16 || bit == 8192 || bit == 32768) << bit;
}

TEST_F(MessageDispatchTest, TheHostReachesItThroughTheController)
{
    addRecord("Door");
    ktMessage cleared(16);

    ktController::deliver(cleared);

    EXPECT_TRUE(records().isEmpty());
}

TEST_F(MessageDispatchTest, AClearedSceneEmptiesRegistryListAndFrames)
{
    addRecord("Door").comment = "front";
    select({"Door"});

    receive(16);

    EXPECT_TRUE(records().isEmpty());
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_EQ(module()._current, nullptr);
    EXPECT_TRUE(panel()._comment->text().isEmpty());
    EXPECT_FALSE(panel()._comment->isEnabled());
}

TEST_F(MessageDispatchTest, AClearedSceneWithoutRecordsStillClearsListAndFrames)
{
    new QListWidgetItem("left over", &list());
    panel()._comment->setText("left over");
    panel()._comment->setEnabled(true);

    receive(16);

    EXPECT_TRUE(rows().isEmpty());
    EXPECT_TRUE(panel()._comment->text().isEmpty());
    EXPECT_FALSE(panel()._comment->isEnabled());
}

TEST_F(MessageDispatchTest, AProjectThatIsBeingLoadedIsLoaded)
{
    project().set("_loading", true, false);
    project().set("Animations", Strings{"Door", "front", "", ""});

    receive(8192);

    EXPECT_EQ(records(), QStringList{"Door"});
    EXPECT_EQ(rows(), QStringList{"Door"});
}

TEST_F(MessageDispatchTest, AProjectThatIsNotBeingLoadedIsSaved)
{
    addRecord("Door");
    project().set("_loading", false, false);

    receive(8192);

    Strings saved;
    EXPECT_TRUE(project().get<Strings>("Animations", saved));
    EXPECT_EQ(saved, (Strings{"Door", "", "", ""}));
    EXPECT_EQ(records(), QStringList{"Door"});
}

TEST_F(MessageDispatchTest, AProjectThatDoesNotSayIsNeitherLoadedNorSaved)
{
    addRecord("Door");
    const Strings stored{"Fan", "", "", ""};
    project().set("Animations", stored);

    receive(8192);

    Strings kept;
    project().get<Strings>("Animations", kept);
    EXPECT_EQ(kept, stored);
    EXPECT_EQ(records(), QStringList{"Door"});
}

TEST_F(MessageDispatchTest, TheDeliveredMessageDoesNotSayWhetherToLoad)
{
    addRecord("Door");
    ktMessage message(8192);
    message.set("_loading", true);
    message.set("Animations", Strings{"Fan", "", "", ""});

    module().receivedMessage(message);

    EXPECT_EQ(records(), QStringList{"Door"});
}

TEST_F(MessageDispatchTest, ALoadingFlagThatIsNoBoolIsReportedAndNothingDone)
{
    addRecord("Door");
    project().set("_loading", 1);

    testing::internal::CaptureStderr();
    receive(8192);

    EXPECT_EQ(
        testing::internal::GetCapturedStderr().find("getFromMessage : Attribute '_loading' has wrong type"),
        0u);
    EXPECT_TRUE(project().get("Animations").empty());
    EXPECT_EQ(records(), QStringList{"Door"});
}

TEST_F(MessageDispatchTest, AChangedSceneIsScannedAndShown)
{
    addTimeSensor("Door");
    addTimeSensor("Fan");

    receive(32768);

    EXPECT_EQ(records(), (QStringList{"Door", "Fan"}));
    EXPECT_EQ(rows(), (QStringList{"Door", "Fan"}));
    EXPECT_EQ(module()._current, nullptr);
    EXPECT_FALSE(panel()._comment->isEnabled());
}

TEST_F(MessageDispatchTest, AChangedSceneRebuildsTheListTwice)
{
    const QSignalSpy rebuilds(list().model(), SIGNAL(modelReset()));

    receive(32768);

    EXPECT_EQ(rebuilds.count(), 2);
}

TEST_F(MessageDispatchTest, IdsAreComparedForEqualityNotAsMasks)
{
    addRecord("Door");
    addTimeSensor("Fan");
    project().set("_loading", false, false);

    for (std::uint32_t id :
         {0u, 1u, 15u, 17u, 8193u, 8192u + 16u, 32769u, 32768u + 16u, 0xa010u, 0xffffffffu})
        receive(id);

    EXPECT_EQ(records(), QStringList{"Door"});
    EXPECT_TRUE(project().get("Animations").empty());
    EXPECT_TRUE(log.lines().empty());
}

} // namespace
