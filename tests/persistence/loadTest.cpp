#include "listwidget/ktAnimationListWidget.h"
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

#include <kt/ktMessage.h>

#include <QSignalSpy>

namespace
{

using Strings = std::vector<std::string>;

class LoadTest : public kt::test::ModuleFixture
{
protected:
    void load(const Strings& strings)
    {
        project.set("Animations", strings);
        module().animationLoad(project);
    }

    const ktAnimationInfo& loaded(const char* name) { return *module().findAnimation(name); }

    ktMessage project;
};

TEST_F(LoadTest, MakesARecordOfEachFourStrings)
{
    load({"DoorOpen", "front door", "Shift D", "", "Fan", "", " 1", "Ctrl 1"});

    EXPECT_EQ(records(), (QStringList{"DoorOpen", "Fan"}));
    EXPECT_EQ(loaded("DoorOpen").comment, "front door");
    EXPECT_EQ(loaded("DoorOpen").startHotkey, "Shift D");
    EXPECT_EQ(loaded("DoorOpen").stopHotkey, "");
    EXPECT_EQ(loaded("Fan").comment, "");
    EXPECT_EQ(loaded("Fan").startHotkey, " 1");
    EXPECT_EQ(loaded("Fan").stopHotkey, "Ctrl 1");
}

TEST_F(LoadTest, DecodesBothHotkeys)
{
    load({"Door", "", "Shift D", "alt-ctrl 7", "Fan", "", "", "Ctrl "});

    EXPECT_EQ(loaded("Door").startKey, 'D');
    EXPECT_EQ(loaded("Door").startModifier, 0x02000000);
    EXPECT_EQ(loaded("Door").stopKey, '7');
    EXPECT_EQ(loaded("Door").stopModifier, 0x0C000000);
    EXPECT_EQ(loaded("Fan").startKey, 0);
    EXPECT_EQ(loaded("Fan").stopKey, 'C');
    EXPECT_EQ(loaded("Fan").stopModifier, 0);
}

TEST_F(LoadTest, ReplacesTheRegistryAndDeselects)
{
    addRecord("Old").comment = "old";
    select({"Old"});
    ASSERT_NE(module()._current, nullptr);

    load({"New", "", "", ""});

    EXPECT_EQ(records(), QStringList{"New"});
    EXPECT_EQ(rows(), QStringList{"New"});
    EXPECT_EQ(module()._current, nullptr);
    EXPECT_TRUE(panel()._comment->text().isEmpty());
    EXPECT_FALSE(panel()._comment->isEnabled());
}

TEST_F(LoadTest, NeverMergesWithARecordOfTheSameName)
{
    addRecord("Door").comment = "before";

    load({"Door", "", "", ""});

    EXPECT_TRUE(loaded("Door").comment.isEmpty());
}

TEST_F(LoadTest, AnEmptyVectorEmptiesRegistryAndPanel)
{
    addRecord("Door").comment = "front";
    select({"Door"});

    load({});

    EXPECT_TRUE(records().isEmpty());
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_FALSE(panel()._comment->isEnabled());
}

TEST_F(LoadTest, TrailingStringsAreIgnored)
{
    load({"Door", "a", "b", "c", "Fan", "d"});
    EXPECT_EQ(records(), QStringList{"Door"});

    load({"Door", "a", "b"});
    EXPECT_TRUE(records().isEmpty());
}

TEST_F(LoadTest, TheFirstOfANameWins)
{
    load({"Door", "first", "", "", "Fan", "", "", "", "Door", "second", "Shift D", "", "door", "third", "",
          ""});

    EXPECT_EQ(records(), (QStringList{"Door", "Fan", "door"}));
    EXPECT_EQ(loaded("Door").comment, "first");
    EXPECT_TRUE(loaded("Door").startHotkey.isEmpty());
}

TEST_F(LoadTest, TextsAreUtf8)
{
    load({"T\xC3\xBCr", "\xCE\xA9", "", ""});

    EXPECT_EQ(records(), QStringList{QString::fromUtf8("T\xC3\xBCr")});
    EXPECT_EQ(loaded("T\xC3\xBCr").comment, QString(QChar(0x03A9)));
}

TEST_F(LoadTest, AMissingAttributeChangesNothingQuietly)
{
    ktAnimationInfo& door = addRecord("Door");
    select({"Door"});
    const QSignalSpy rebuilds(list().model(), SIGNAL(modelReset()));

    testing::internal::CaptureStderr();
    module().animationLoad(project);

    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(records(), QStringList{"Door"});
    EXPECT_EQ(module()._current, &door);
    EXPECT_EQ(rebuilds.count(), 0);
}

TEST_F(LoadTest, AnAttributeOfAnotherTypeChangesNothingAndIsReported)
{
    ktAnimationInfo& door = addRecord("Door");
    select({"Door"});
    project.set("Animations", std::string("Door"));

    testing::internal::CaptureStderr();
    module().animationLoad(project);

    EXPECT_EQ(testing::internal::GetCapturedStderr().find(
                  "getFromMessage : Attribute 'Animations' has wrong type (is:'"),
              0u);
    EXPECT_EQ(records(), QStringList{"Door"});
    EXPECT_EQ(module()._current, &door);
}

TEST_F(LoadTest, TheSceneIsNotConsulted)
{
    addTimeSensor("InTheScene");

    load({"NotInTheScene", "", "", ""});

    EXPECT_EQ(records(), QStringList{"NotInTheScene"});
}

TEST_F(LoadTest, WhatWasSavedComesBack)
{
    load({"T\xC3\xBCr", "\xCE\xA9 \xC3\xA9", "Shift-Ctrl T", "Alt 0", "Fan", "", " 1", "", "", "unnamed", "",
          ""});
    const auto before = module()._animations;
    module().animationSave(project);
    module().clearAnimations();

    module().animationLoad(project);

    const auto isSame = [](const ktAnimationInfo& a, const ktAnimationInfo& b) {
        return a.name == b.name && a.comment == b.comment && a.startHotkey == b.startHotkey &&
               a.startKey == b.startKey && a.startModifier == b.startModifier &&
               a.stopHotkey == b.stopHotkey && a.stopKey == b.stopKey && a.stopModifier == b.stopModifier;
    };
    EXPECT_EQ(before.size(), 3u);
    EXPECT_TRUE(std::equal(before.begin(), before.end(), module()._animations.begin(),
                           module()._animations.end(), isSame));
}

} // namespace
