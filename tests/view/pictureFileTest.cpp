#include "host/view/PictureFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

using kthost::writePicture;

namespace
{

QImage somePicture()
{
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

} // namespace

TEST(PictureFile, IsReadBackAsItWasWritten)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("picture.png");

    EXPECT_EQ(writePicture(somePicture(), file), "");

    EXPECT_EQ(QImage(file).convertToFormat(QImage::Format_RGB32), somePicture());
}

TEST(PictureFile, ReplacesAnOlderOneAndLeavesNothingElse)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("picture.png");
    QImage older(1, 1, QImage::Format_RGB32);
    older.fill(Qt::blue);
    ASSERT_EQ(writePicture(older, file), "");

    EXPECT_EQ(writePicture(somePicture(), file), "");

    EXPECT_EQ(QImage(file).size(), somePicture().size());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("picture.png"));
}

TEST(PictureFile, AMissingFolderIsAnError)
{
    const QTemporaryDir folder;

    EXPECT_NE(writePicture(somePicture(), folder.filePath("missing/picture.png")), "");
}

TEST(PictureFile, AFolderInItsPlaceIsAnErrorAndStays)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir("picture.png"));

    EXPECT_NE(writePicture(somePicture(), folder.filePath("picture.png")), "");

    EXPECT_TRUE(QDir(folder.filePath("picture.png")).exists());
}

TEST(PictureFile, NoPictureIsAnErrorAndKeepsTheOlderFile)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("picture.png");
    ASSERT_EQ(writePicture(somePicture(), file), "");

    EXPECT_NE(writePicture(QImage(), file), "");

    EXPECT_EQ(QImage(file).size(), somePicture().size());
}
