// What of a project is unsaved, and what of it survives a save that knows nothing of it.
#include "tests/app/SessionProjectFixture.h"

#include <QJsonArray>

#include <algorithm>

using namespace kthost;

namespace
{

using UnsavedChangesTest = kt::test::SessionProjectFixture;

TEST_F(UnsavedChangesTest, OnlyWhatASaveWouldChangeIsModified)
{
    EXPECT_FALSE(session.isModified());
    session.open(path("door.wrl"));
    EXPECT_FALSE(session.isModified());

    module.setting = "edited";
    EXPECT_TRUE(session.isModified());
    module.setting = "";
    EXPECT_FALSE(session.isModified()); // edited back

    module.setting = "edited";
    session.save(path("p.ktproj"));
    EXPECT_FALSE(session.isModified());
    ktFileIO::getProject().set("of nobody", 1, false);
    EXPECT_FALSE(session.isModified());
    ktFileIO::getProject().set("of somebody", 1);
    EXPECT_TRUE(session.isModified());
}

TEST_F(UnsavedChangesTest, AskingForChangesLeavesNoTrace)
{
    putProject("p.ktproj", "kept");
    session.open(path("p.ktproj"));
    module.setting = "edited";

    EXPECT_TRUE(session.isModified());

    std::string setting;
    EXPECT_TRUE(ktFileIO::getProject().get<std::string>("setting", setting));
    EXPECT_EQ(setting, "kept");
    EXPECT_TRUE(ktFileIO::getProject().get("_loading").empty());
}

TEST_F(UnsavedChangesTest, AFailedSaveStaysModified)
{
    session.open(path("door.wrl"));
    session.save(path("p.ktproj"));
    module.setting = "edited";

    EXPECT_THROW(session.save(path("none/q.ktproj")), HostError);

    EXPECT_EQ(session.projectFile(), path("p.ktproj"));
    EXPECT_TRUE(session.isModified());
}

TEST_F(UnsavedChangesTest, WhatAModuleFailsToSayIsNotCountedAsSaved)
{
    session.open(path("door.wrl"));
    module.setting = "first";
    session.save(path("p.ktproj"));
    module.setting = "edited";
    module.fails = true;
    EXPECT_TRUE(session.isModified()) << "it may be";

    try {
        session.save(path("p.ktproj"));
        ADD_FAILURE() << "it went well";
    } catch (const HostError& error) {
        EXPECT_EQ(error.status(), ExitStatus::BadFile);
        EXPECT_EQ(error.what(),
                  path("p.ktproj").toStdString() + ": saved, but a module failed to say what it keeps");
    }
    EXPECT_EQ(document("p.ktproj")["attributes"]["setting"]["value"], "first");
    EXPECT_TRUE(session.isModified());

    module.fails = false;
    EXPECT_TRUE(session.isModified());
    session.save(path("p.ktproj"));
    EXPECT_FALSE(session.isModified());
    EXPECT_EQ(document("p.ktproj")["attributes"]["setting"]["value"], "edited");
}

TEST_F(UnsavedChangesTest, AModuleThatFailsFromTheBeginningMakesNoChanges)
{
    module.fails = true;
    session.open(path("door.wrl"));

    EXPECT_FALSE(session.isModified());
    ASSERT_EQ(log.lines().size(), 1U) << "told once, however often it is asked";
    EXPECT_EQ(log.lines()[0], "error: Noting: message 8192 failed: no luck");
}

TEST_F(UnsavedChangesTest, WhatIsNotKnownIsKeptAndReported)
{
    put("p.ktproj", R"({"formatVersion": 1, "scene": "door.wrl", "theirs": [1],
        "attributes": {"m": {"type": "matrix", "value": [1, 2]}}})");
    session.open(path("p.ktproj"));
    EXPECT_EQ(std::count_if(log.lines().begin(), log.lines().end(),
                            [](const std::string& line) {
                                return line.find("the attribute m is of a type") != line.npos;
                            }),
              1);

    session.save(path("q.ktproj"));

    EXPECT_EQ(document("q.ktproj").value("theirs").toArray(), QJsonArray{1});
    EXPECT_EQ(document("q.ktproj")["attributes"]["m"]["value"], (QJsonArray{1, 2}));
}

TEST_F(UnsavedChangesTest, AValueThatNoFileCanHoldLeavesTheOldOne)
{
    putProject("p.ktproj", "kept");
    session.open(path("p.ktproj"));
    ktFileIO::getProject().set("camera", 1.5F);
    log.lines().clear();

    session.save(path("p.ktproj"));

    EXPECT_FALSE(document("p.ktproj")["attributes"].toObject().contains("camera"));
    ASSERT_EQ(log.lines().size(), 1u);
    EXPECT_EQ(log.lines()[0], "warning: the project's attribute camera is of a type that no project file can "
                              "hold; it is not saved");
}

} // namespace
