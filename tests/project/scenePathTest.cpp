#include "host/project/ScenePath.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using kthost::ScenePath;

namespace
{

class ScenePathTest : public testing::Test
{
protected:
    ScenePathTest()
    {
        QDir().mkpath(path("projects/scenes"));
        QDir().mkpath(path("shared/models"));
    }

    QString path(const char* relative) const { return QDir(folder.path()).canonicalPath() + '/' + relative; }

    void expectThereAndBack(const QString& project, const QString& scene, const QString& relative)
    {
        EXPECT_EQ(ScenePath::relative(project, scene), relative);
        EXPECT_EQ(ScenePath::absolute(project, relative), scene);
        EXPECT_EQ(ScenePath::refusal(relative, ScenePath::isOutside(relative)), "");
    }

    QTemporaryDir folder;
};

TEST_F(ScenePathTest, WithinTheFolderItIsThePathBelow)
{
    expectThereAndBack(path("projects/p.ktproj"), path("projects/a.wrl"), "a.wrl");
    expectThereAndBack(path("projects/p.ktproj"), path("projects/scenes/a b.wrl"), "scenes/a b.wrl");
    EXPECT_FALSE(ScenePath::isOutside("scenes/a.wrl"));
    EXPECT_FALSE(ScenePath::isOutside("..a.wrl"));
}

TEST_F(ScenePathTest, OutsideOfTheFolderItGoesUp)
{
    expectThereAndBack(path("projects/p.ktproj"), path("shared/models/a.wrl"), "../shared/models/a.wrl");
    EXPECT_TRUE(ScenePath::isOutside("../a.wrl"));
    EXPECT_TRUE(ScenePath::isOutside("scenes/../../a.wrl"));
    EXPECT_TRUE(ScenePath::isOutside(".."));
}

TEST_F(ScenePathTest, ANameThatLooksLikeAnAddressIsAPath)
{
    expectThereAndBack(path("projects/p.ktproj"), path("projects/door:1.wrl"), "./door:1.wrl");
}

TEST_F(ScenePathTest, AFolderBehindALinkIsLeftWhereItReallyIs)
{
    ASSERT_TRUE(QFile::link(path("shared/models"), path("projects/link")));
    // Within: as it is called, wherever the link leads.
    EXPECT_EQ(ScenePath::relative(path("projects/p.ktproj"), path("projects/link/a.wrl")), "link/a.wrl");
    // Out of it: from where the system would go up.
    EXPECT_EQ(ScenePath::relative(path("projects/link/p.ktproj"), path("projects/a.wrl")),
              "../../projects/a.wrl");
    EXPECT_EQ(ScenePath::absolute(path("projects/link/p.ktproj"), "../../projects/a.wrl"),
              path("projects/a.wrl"));
}

TEST_F(ScenePathTest, WhatIsNoRelativePathIsRefused)
{
    EXPECT_EQ(ScenePath::refusal("", true), "is empty");
    EXPECT_EQ(ScenePath::refusal("/scenes/a.wrl", true), "is an absolute path");
    EXPECT_EQ(ScenePath::refusal("file:a.wrl", true), "is an address, not a path");
    EXPECT_EQ(ScenePath::refusal("http://host/a.wrl", true), "is an address, not a path");
    EXPECT_EQ(ScenePath::refusal("C:/a.wrl", true), "is an address, not a path");
    EXPECT_EQ(ScenePath::refusal(QString("a") + QChar(0) + ".wrl", true), "is no path");
    EXPECT_EQ(ScenePath::refusal(QString(QChar(0xdc00)), true), "is no path");
}

TEST_F(ScenePathTest, APathThatLeadsOutIsRefusedUnlessTheProjectSaysSo)
{
    EXPECT_TRUE(ScenePath::refusal("../a.wrl", false).startsWith("leads out of the project's folder"));
    EXPECT_FALSE(ScenePath::refusal("a/../../b.wrl", false).isEmpty());
    EXPECT_EQ(ScenePath::refusal("../a.wrl", true), "");
    EXPECT_EQ(ScenePath::refusal("a/../b.wrl", false), "");
}

} // namespace
