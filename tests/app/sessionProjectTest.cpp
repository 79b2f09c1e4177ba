// Projects in a session: which messages modules get, and what is open afterwards.
#include "tests/app/SessionProjectFixture.h"

#include <QFileInfo>
#include <QSignalSpy>

using namespace kthost;

namespace
{

using SessionProjectTest = kt::test::SessionProjectFixture;

TEST_F(SessionProjectTest, OpeningTellsModulesInOrder)
{
    putProject("p.ktproj", "kept");

    session.open(path("p.ktproj"));

    // The last one is the question what a save would give.
    EXPECT_EQ(module.told, (QStringList{"16", "load", "32768 scene", "save"}));
    EXPECT_EQ(module.setting, "kept");
    EXPECT_EQ(session.file(), path("door.wrl"));
    EXPECT_EQ(session.projectFile(), path("p.ktproj"));
    EXPECT_TRUE(ktFileIO::getProject().get("_loading").empty());
}

TEST_F(SessionProjectTest, SavingTellsModulesAndWritesTheirAnswer)
{
    session.open(path("door.wrl"));
    module.setting = "mine";
    module.told.clear();
    const QSignalSpy saved(&session, &Session::projectSaved);

    session.save(path("p.ktproj"));

    EXPECT_EQ(module.told, QStringList{"save"});
    EXPECT_EQ(document("p.ktproj").value("scene"), "door.wrl");
    EXPECT_EQ(document("p.ktproj")["attributes"]["setting"]["value"], "mine");
    EXPECT_FALSE(document("p.ktproj")["attributes"].toObject().contains("_loading"));
    EXPECT_TRUE(ktFileIO::getProject().get("_loading").empty());
    EXPECT_EQ(session.projectFile(), path("p.ktproj"));
    EXPECT_EQ(saved.count(), 1);
}

TEST_F(SessionProjectTest, APlainSceneStartsWithAnEmptyProject)
{
    putProject("p.ktproj", "kept");
    session.open(path("p.ktproj"));
    ktFileIO::getProject().set("left over", 1, false);

    session.open(path("door.wrl"));

    EXPECT_TRUE(ktFileIO::getProject().attributes().empty());
    EXPECT_EQ(session.projectFile(), "");
}

TEST_F(SessionProjectTest, ClosingTellsModulesAndLeavesAnEmptyProject)
{
    putProject("p.ktproj", "kept");
    session.open(path("p.ktproj"));
    module.told.clear();

    session.close();

    EXPECT_EQ(module.told.first(), "16");
    EXPECT_FALSE(module.told.contains("load"));
    EXPECT_TRUE(ktFileIO::getProject().attributes().empty());
    EXPECT_EQ(session.projectFile(), "");
    EXPECT_FALSE(session.isModified());
}

TEST_F(SessionProjectTest, WhatDoesNotOpenLeavesWhatIsOpen)
{
    putProject("good.ktproj", "kept");
    session.open(path("good.ktproj"));
    module.told.clear();
    put("broken.ktproj", "{");
    put("newer.ktproj", R"({"formatVersion": 2})");
    putProject("noScene.ktproj", "x", "none.wrl");
    put("broken.wrl", "#VRML V2.0 utf8\nTransform {");
    putProject("brokenScene.ktproj", "x", "broken.wrl");
    putProject("folder.ktproj", "x", ".");

    for (const char* name : {"broken.ktproj", "newer.ktproj", "noScene.ktproj", "brokenScene.ktproj",
                             "folder.ktproj", "none.ktproj"}) {
        const std::string line = failureOfOpen(name);
        EXPECT_NE(line, "") << name;
        EXPECT_EQ(line.find('\n'), std::string::npos) << line;
    }

    EXPECT_TRUE(module.told.isEmpty()) << module.told.join(' ').toStdString();
    EXPECT_EQ(session.projectFile(), path("good.ktproj"));
    EXPECT_EQ(session.file(), path("door.wrl"));
    std::string setting;
    EXPECT_TRUE(ktFileIO::getProject().get<std::string>("setting", setting));
    EXPECT_EQ(setting, "kept");
}

TEST_F(SessionProjectTest, AMissingSceneIsNamedAndAnotherOneTakesItsPlace)
{
    putProject("p.ktproj", "kept", "gone/door.wrl");
    try {
        session.open(path("p.ktproj"));
        FAIL() << "it opened";
    } catch (const MissingSceneError& error) {
        EXPECT_EQ(error.scene(), path("gone/door.wrl"));
        EXPECT_NE(std::string(error.what()).find("gone/door.wrl is not there"), std::string::npos);
    }

    session.openWithScene(path("p.ktproj"), path("door.wrl"));

    EXPECT_EQ(module.setting, "kept");
    EXPECT_TRUE(session.isModified()); // the file still names the other one
    session.save(path("p.ktproj"));
    EXPECT_EQ(document("p.ktproj").value("scene"), "door.wrl");
    EXPECT_FALSE(session.isModified());
}

TEST_F(SessionProjectTest, AProjectWithoutASceneHasItsSettings)
{
    put("p.ktproj",
        R"({"formatVersion": 1, "attributes": {"setting": {"type": "string", "value": "kept"}}})");

    session.open(path("p.ktproj"));

    EXPECT_EQ(module.told, (QStringList{"16", "load", "save"}));
    EXPECT_EQ(module.setting, "kept");
    EXPECT_EQ(session.file(), "");
    session.save(path("q.ktproj"));
    EXPECT_FALSE(document("q.ktproj").contains("scene"));
    EXPECT_EQ(document("q.ktproj")["attributes"]["setting"]["value"], "kept");
}

TEST_F(SessionProjectTest, AProjectSavedElsewhereFindsItsScene)
{
    QDir(folder.path()).mkdir("projects");
    session.open(path("door.wrl"));
    session.save(path("projects/p.ktproj"));
    EXPECT_EQ(document("projects/p.ktproj").value("scene"), "../door.wrl");
    EXPECT_EQ(document("projects/p.ktproj").value("sceneIsOutside"), true);

    session.open(path("projects/p.ktproj"));
    EXPECT_EQ(QFileInfo(session.file()).canonicalFilePath(), QFileInfo(path("door.wrl")).canonicalFilePath());

    // Back beside the scene, the key goes.
    session.save(path("p.ktproj"));
    EXPECT_EQ(document("p.ktproj").value("scene"), "door.wrl");
    EXPECT_FALSE(document("p.ktproj").contains("sceneIsOutside"));
}

TEST_F(SessionProjectTest, AMovedProjectTakesItsSceneAlong)
{
    QDir(folder.path()).mkdir("here");
    QFile::copy(path("door.wrl"), path("here/door.wrl"));
    session.open(path("here/door.wrl"));
    session.save(path("here/p.ktproj"));
    session.close();
    ASSERT_TRUE(QDir(folder.path()).rename("here", "there"));

    session.open(path("there/p.ktproj"));

    EXPECT_EQ(session.file(), path("there/door.wrl"));
}

TEST_F(SessionProjectTest, WarningsOfASceneAreToldWithTheirLinesAndAHundredOfThemInWords)
{
    QByteArray text = "#VRML V2.0 utf8\n";
    for (int i = 0; i < 103; ++i)
        text += "Inline {\nurl \"none" + QByteArray::number(i) + ".wrl\" }\n";
    put("scene.wrl", text);

    session.open(path("scene.wrl"));

    const std::string scene = path("scene.wrl").toStdString();
    ASSERT_EQ(log.lines().size(), 102U);
    EXPECT_EQ(log.lines()[0], "info: " + scene + ", line 3: Inline left out: there is no file 'none0.wrl'");
    EXPECT_EQ(log.lines()[99],
              "info: " + scene + ", line 201: Inline left out: there is no file 'none99.wrl'");
    EXPECT_EQ(log.lines()[100], "info: " + scene + ": ... and 3 other warnings");
    EXPECT_EQ(log.lines()[101], "info: " + scene + ": opened with 103 warnings");
}

} // namespace
