#include "tests/support/ModuleFixture.h"

#include <kt/ktMessage.h>

namespace
{

using Strings = std::vector<std::string>;

class SaveTest : public kt::test::ModuleFixture
{
protected:
    Strings saved()
    {
        module().animationSave(project);
        Strings strings{"nothing was saved"};
        project.get<Strings>("Animations", strings);
        return strings;
    }

    ktMessage project;
};

TEST_F(SaveTest, FourStringsAnAnimationInRegistryOrder)
{
    ktAnimationInfo& door = addRecord("DoorOpen");
    door.comment = "front door";
    door.startHotkey = "Shift D";
    ktAnimationInfo& fan = addRecord("Fan");
    fan.startHotkey = " 1";
    fan.stopHotkey = "Ctrl 1";

    EXPECT_EQ(saved(), (Strings{"DoorOpen", "front door", "Shift D", "", "Fan", "", " 1", "Ctrl 1"}));
}

TEST_F(SaveTest, AnEmptyRegistryWritesAnEmptyVector)
{
    EXPECT_EQ(saved(), Strings());
}

TEST_F(SaveTest, OneAttributeIsWrittenToTravelWithTheProject)
{
    addRecord("Door");

    saved();

    EXPECT_EQ(project.attributes().size(), 1u);
    EXPECT_TRUE(project.isPersistent("Animations"));
}

TEST_F(SaveTest, ReplacesWhatWasSavedBefore)
{
    project.set("Animations", 17);
    addRecord("Door");

    EXPECT_EQ(saved(), (Strings{"Door", "", "", ""}));
}

TEST_F(SaveTest, ARecordThatNeverGotANameIsLeftOut)
{
    module()._animations.emplace_back();
    module()._animations.back().comment = "of nobody";
    addRecord("Door");

    EXPECT_EQ(saved(), (Strings{"Door", "", "", ""}));
}

TEST_F(SaveTest, AnEmptyNameIsAName)
{
    addRecord("");

    EXPECT_EQ(saved(), (Strings{"", "", "", ""}));
}

TEST_F(SaveTest, TextsAreUtf8)
{
    ktAnimationInfo& door = addRecord("T\xC3\xBCr");
    door.comment = QString(QChar(0x03A9));

    EXPECT_EQ(saved(), (Strings{"T\xC3\xBCr", "\xCE\xA9", "", ""}));
}

TEST_F(SaveTest, TextsEndAtTheirFirstZero)
{
    ktAnimationInfo& door = addRecord("Door");
    door.comment = QString("seen") + QChar(0) + "unseen";

    EXPECT_EQ(saved(), (Strings{"Door", "seen", "", ""}));
}

TEST_F(SaveTest, DecodedKeysAndRunStateAreNotSaved)
{
    ktAnimationInfo& door = addRecord("Door");
    addTimeSensor("Door").setActive(true);
    door.startKey = 'D';
    door.startModifier = Qt::ShiftModifier;

    EXPECT_EQ(saved(), (Strings{"Door", "", "", ""}));
}

} // namespace
