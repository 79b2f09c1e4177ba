#include "host/app/window/RecentFiles.h"
#include "tests/app/window/Settings.h"

#include <gtest/gtest.h>

#include <QFile>

using kthost::RecentFiles;

namespace
{

class RecentFilesTest : public testing::Test
{
protected:
    QString file(const QString& name)
    {
        const QString path = files.filePath(name);
        EXPECT_TRUE(QFile(path).open(QIODevice::WriteOnly));
        return path;
    }

    kt::test::Settings settings;
    QTemporaryDir files;
};

} // namespace

TEST_F(RecentFilesTest, TheNewestComesFirst)
{
    RecentFiles::add(file("a.wrl"));
    RecentFiles::add(file("b.wrl"));

    EXPECT_EQ(RecentFiles::list(), QStringList({file("b.wrl"), file("a.wrl")}));
}

TEST_F(RecentFilesTest, AFileIsListedOnce)
{
    RecentFiles::add(file("a.wrl"));
    RecentFiles::add(file("b.wrl"));
    RecentFiles::add(file("a.wrl"));

    EXPECT_EQ(RecentFiles::list(), QStringList({file("a.wrl"), file("b.wrl")}));
}

TEST_F(RecentFilesTest, LeavesOutWhatIsNoLongerThere)
{
    RecentFiles::add(file("a.wrl"));
    RecentFiles::add(file("b.wrl"));
    QFile::remove(file("b.wrl"));

    EXPECT_EQ(RecentFiles::list(), QStringList(file("a.wrl")));
}

TEST_F(RecentFilesTest, KeepsNoMoreThanItsMost)
{
    for (int i = 0; i < RecentFiles::most + 3; ++i)
        RecentFiles::add(file(QString::number(i)));

    EXPECT_EQ(RecentFiles::list().size(), RecentFiles::most);
    EXPECT_EQ(RecentFiles::list().first(), file(QString::number(RecentFiles::most + 2)));
}

TEST_F(RecentFilesTest, IsEmptyOnceCleared)
{
    RecentFiles::add(file("a.wrl"));

    RecentFiles::clear();

    EXPECT_TRUE(RecentFiles::list().isEmpty());
}
