// The scan looks a vanished animation up by its name as Latin-1 bytes, which are read back as UTF-8.
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

#include <kt/ktMessage.h>

namespace
{

class StaleRecordsTest : public kt::test::ModuleFixture
{
protected:
    void scan() { module().refreshAnimations(); }
};

TEST_F(StaleRecordsTest, AVanishedAnimationLosesItsRecord)
{
    addTimeSensor("Door");
    addTimeSensor("Bell");
    scan();

    scene.removeNode("Door");
    scan();

    EXPECT_EQ(records(), QStringList{"Bell"});
    EXPECT_EQ(rows(), QStringList{"Bell"});
}

TEST_F(StaleRecordsTest, AnInsertedNameThatNoNodeCarriesGoes)
{
    addRecord("Nowhere");
    addTimeSensor("Door");

    scan();

    EXPECT_EQ(records(), QStringList{"Door"});
}

TEST_F(StaleRecordsTest, ALoadedNameThatNoNodeCarriesGoes)
{
    ktMessage project;
    project.set("Animations",
                std::vector<std::string>{"Nowhere", "gone", "", "", "Door", "kept", "Shift D", ""});
    module().animationLoad(project);
    addTimeSensor("Door");
    ASSERT_EQ(records(), (QStringList{"Nowhere", "Door"}));

    scan();

    EXPECT_EQ(records(), QStringList{"Door"});
    EXPECT_EQ(module()._animations.front().comment, "kept");
}

TEST_F(StaleRecordsTest, AVanishedNameOutsideAsciiStays)
{
    addTimeSensor("T\xC3\xBCr");
    scan();
    module()._animations.front().comment = "kept";

    scene.removeNode("T\xC3\xBCr");
    scan();

    ASSERT_EQ(records(), QStringList{QString::fromUtf8("T\xC3\xBCr")});
    EXPECT_EQ(rows(), records());
    EXPECT_EQ(module()._animations.front().comment, "kept");
}

TEST_F(StaleRecordsTest, AVanishedNameOutsideLatin1Stays)
{
    addRecord("\xCE\xA9");

    scan();

    EXPECT_EQ(records(), QStringList{QString::fromUtf8("\xCE\xA9")});
}

TEST_F(StaleRecordsTest, TheLatin1BytesOfAVanishedNameCanHitAnotherRecord)
{
    // As Latin-1 the first name is the two bytes that are the second one in UTF-8.
    addRecord("\xC3\x83\xC2\xA9");
    addTimeSensor("\xC3\xA9");

    scan();

    EXPECT_EQ(records(), QStringList{QString::fromUtf8("\xC3\x83\xC2\xA9")});
}

TEST_F(StaleRecordsTest, TwoVanishedNamesCanHitTheSameRecord)
{
    addRecord("\xC3\x83\xC2\xA9"); // hits the next one
    addRecord("\xC3\xA9");         // hits none
    addRecord("Door");

    scan();

    EXPECT_EQ(records(), QStringList{QString::fromUtf8("\xC3\x83\xC2\xA9")});
}

TEST_F(StaleRecordsTest, OfTwoRecordsOfOneNameTheFirstAnswersForTheNode)
{
    addTimeSensor("Door");
    addRecord("Door").comment = "first";
    module()._animations.push_back(module()._animations.front());
    module()._animations.back().comment = "second";

    scan();

    ASSERT_EQ(records(), QStringList{"Door"});
    EXPECT_EQ(module()._animations.front().comment, "second") << "the unmatched one's name hits the first";
}

} // namespace
