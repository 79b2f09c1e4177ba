#include "host/files/WholeFile.h"

#include "tests/support/ProcessLimit.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using kthost::WholeFile;

namespace
{

class WholeFileTest : public testing::Test
{
protected:
    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }

    static QByteArray bytes(const QString& name)
    {
        QFile file(name);
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(WholeFileTest, TakesThePlaceOfAnOlderOne)
{
    EXPECT_EQ(WholeFile::write(path("f"), "older and longer"), "");
    EXPECT_EQ(WholeFile::write(path("f"), "new"), "");

    EXPECT_EQ(bytes(path("f")), "new");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("f"));
}

TEST_F(WholeFileTest, ALinkStaysALink)
{
    ASSERT_EQ(WholeFile::write(path("f"), "older"), "");
    ASSERT_TRUE(QFile::link(path("f"), path("link")));

    EXPECT_EQ(WholeFile::write(path("link"), "new"), "");

    EXPECT_TRUE(QFileInfo(path("link")).isSymLink());
    EXPECT_EQ(bytes(path("f")), "new");
}

TEST_F(WholeFileTest, OnlyRegularFilesAreReplaced)
{
    EXPECT_EQ(WholeFile::write(folder.path(), "new"), "it is a folder");
    EXPECT_EQ(WholeFile::write("/dev/null", "new"), "it is not a regular file");
    EXPECT_EQ(WholeFile::write(path("none/f"), "new"), "No such file or directory");
}

TEST_F(WholeFileTest, WhatDoesNotFitLeavesTheOlderOneAndNothingElse)
{
    ASSERT_EQ(WholeFile::write(path("f"), "older"), "");
    for (const int size : {1001, 20000, 1000000}) {
        const kt::test::FileSizeLimit limit(1000, SIG_IGN);
        EXPECT_EQ(WholeFile::write(path("f"), QByteArray(size, 'x')), "File too large") << size;
    }

    EXPECT_EQ(bytes(path("f")), "older");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("f"));
}
