#include "host/files/WholeFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>

#include <sys/resource.h>

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
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit limit{1000, before.rlim_max};
    const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    for (const int size : {1001, 20000, 1000000}) {
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const QString why = WholeFile::write(path("f"), QByteArray(size, 'x'));
        ::setrlimit(RLIMIT_FSIZE, &before);
        EXPECT_EQ(why, "File too large") << size;
    }
    std::signal(SIGXFSZ, signalBefore);

    EXPECT_EQ(bytes(path("f")), "older");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("f"));
}
