// The process that decodes images, as built.
#include "host/vrml/ImageGuard.h"

#include "host/vrml/PixelMemory.h"
#include "host/vrml/ReadLimits.h"
#include "tests/support/LogRecorder.h"
#include "tests/vrml/SceneFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QString>

#include <csignal>
#include <filesystem>
#include <optional>
#include <vector>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kthost
{
namespace
{

using Pixels = std::vector<unsigned char>;

class ImageGuardTest : public testing::Test
{
protected:
    std::string save(const std::string& name, const QImage& picture) const
    {
        EXPECT_TRUE(picture.save(QString::fromStdString(folder.path(name))));
        return folder.path(name);
    }

    std::string saveRed(const std::string& name) const
    {
        QImage picture(2, 1, QImage::Format_RGB32);
        picture.fill(Qt::red);
        return save(name, picture);
    }

    /// One that takes its decoder more than a tenth of a second.
    std::string saveLarge(const std::string& name) const
    {
        QImage picture(8000, 8000, QImage::Format_Grayscale8);
        picture.fill(77);
        return save(name, picture);
    }

    /// Null where it is not read; then nobody must have asked for room.
    static std::optional<Pixels> read(ImageGuard& guard, const std::string& path)
    {
        std::optional<Pixels> pixels;
        const bool isRead = guard.read(path, [&](const ImageSize& size) {
            pixels = Pixels(size.bytes());
            return pixels->data();
        });
        EXPECT_EQ(isRead, pixels.has_value());
        return pixels;
    }

    /// The programs that read images for this process.
    static std::vector<pid_t> programs()
    {
        std::vector<pid_t> found;
        for (const QString& process : QDir("/proc").entryList({"[0-9]*"}, QDir::Dirs)) {
            QFile status("/proc/" + process + "/status");
            QFile words("/proc/" + process + "/cmdline");
            if (status.open(QIODevice::ReadOnly) && words.open(QIODevice::ReadOnly) &&
                status.readAll().contains("\nPPid:\t" + QByteArray::number(getpid()) + "\n") &&
                words.readAll().contains("image-reader"))
                found.push_back(process.toInt());
        }
        return found;
    }

    /// Of the memory that this process shares for images, in bytes.
    static std::vector<std::size_t> sizesOfMemory()
    {
        std::vector<std::size_t> sizes;
        for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
            std::error_code isGone;
            struct stat memory = {};
            if (std::filesystem::read_symlink(entry, isGone).string().rfind("/memfd:image", 0) == 0 &&
                stat(entry.path().c_str(), &memory) == 0)
                sizes.push_back(static_cast<std::size_t>(memory.st_size));
        }
        return sizes;
    }

    test::SceneFolder folder;
    kt::test::LogRecorder log;
    const Pixels red{255, 0, 0, 255, 0, 0};
};

TEST_F(ImageGuardTest, ReadsImageAfterImageInOneProgram)
{
    ImageGuard guard(KT_IMAGE_READER, {});
    EXPECT_EQ(read(guard, saveRed("a.png")), red);
    const std::vector<pid_t> first = programs();
    EXPECT_EQ(first.size(), 1U);

    QImage glass(1, 2, QImage::Format_ARGB32);
    glass.fill(QColor(1, 2, 3, 4));
    glass.setPixelColor(0, 0, QColor(5, 6, 7, 8));
    EXPECT_EQ(read(guard, save("glass.png", glass)), (Pixels{1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(read(guard, saveRed("b.bmp")), red);
    QImage grey(3000, 700, QImage::Format_Grayscale8);
    grey.fill(77);
    EXPECT_EQ(read(guard, save("grey.png", grey)), Pixels(2100000, 77));
    EXPECT_EQ(programs(), first);
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(ImageGuardTest, WhatIsNoImageIsLeftToTheReaderToTellOf)
{
    ImageGuard guard(KT_IMAGE_READER, {});
    EXPECT_EQ(read(guard, folder.path("none.png")), std::nullopt);
    EXPECT_EQ(read(guard, folder.write("text.png", "no image")), std::nullopt);
    EXPECT_EQ(read(guard, folder.write("empty.png", "")), std::nullopt);
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(ImageGuardTest, HasHalfOfTheStackForEachImage)
{
    const auto stackOf = [](pid_t process) {
        rlimit limit{};
        EXPECT_EQ(prlimit(process, RLIMIT_STACK, nullptr, &limit), 0);
        return limit.rlim_cur;
    };
    rlim_t ofHost = stackOf(getpid());
    if (ofHost == RLIM_INFINITY)
        ofHost = 8U << 20U;
    ImageGuard guard(KT_IMAGE_READER, {});
    const std::string path = saveRed("a.png");
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(read(guard, path), red);
        EXPECT_EQ(stackOf(programs().front()), ofHost / 2) << i;
    }
}

TEST_F(ImageGuardTest, KeepsToTheLimitsOfImages)
{
    ReadLimits limits;
    limits.imagePixels = 1;
    ImageGuard guard(KT_IMAGE_READER, limits);
    EXPECT_EQ(read(guard, saveRed("a.png")), std::nullopt);
}

TEST_F(ImageGuardTest, GoesOnAfterAnImageThatItsDecoderDoesNotSurvive)
{
    ReadLimits limits;
    limits.seconds = 0.1;
    ImageGuard guard(KT_IMAGE_READER, limits);
    const std::string large = saveLarge("large.png");
    EXPECT_EQ(read(guard, large), std::nullopt);
    EXPECT_THAT(log.lines(),
                testing::ElementsAre("info: " + large +
                                     ": the image is left out: the reader takes longer than 0.1 s for it"));
    EXPECT_EQ(read(guard, saveRed("a.png")), red);
}

TEST_F(ImageGuardTest, StartsItsProgramAgain)
{
    ImageGuard guard(KT_IMAGE_READER, {});
    const std::string path = saveRed("a.png");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(read(guard, path), red) << i;
        ASSERT_EQ(programs().size(), 1U);
        const auto program = static_cast<id_t>(programs().front());
        kill(static_cast<pid_t>(program), SIGKILL);
        siginfo_t end{};
        waitid(P_PID, program, &end, WEXITED | WNOWAIT);
    }
}

TEST_F(ImageGuardTest, EndsItsProgram)
{
    {
        ImageGuard guard(KT_IMAGE_READER, {});
        read(guard, saveRed("a.png"));
    }
    EXPECT_TRUE(programs().empty());
}

TEST_F(ImageGuardTest, SaysWhereItsProgramDoesNotRun)
{
    ImageGuard guard(folder.path("no-such-program"), {});
    const std::string path = saveRed("a.png");
    EXPECT_EQ(read(guard, path), std::nullopt);
    EXPECT_THAT(log.lines(),
                testing::ElementsAre("info: " + path +
                                     ": the image is left out: the program that checks scene files does not "
                                     "run: No such file or directory"));
}

TEST_F(ImageGuardTest, BelievesOnlyWhatIsThere)
{
    ImageGuard guard(KT_LYING_READER, {});
    EXPECT_EQ(read(guard, "image"), std::nullopt);
    EXPECT_EQ(read(guard, "/ends/with/3"), std::nullopt);
    EXPECT_THAT(log.lines(), testing::ElementsAre("info: /ends/with/3: the image is left out: the reader "
                                                  "breaks down over it"));
}

TEST_F(ImageGuardTest, GivesTheMemoryOfALargeImageBack)
{
    ImageGuard guard(KT_IMAGE_READER, {});
    const std::string large = saveLarge("large.png");
    for (int i = 0; i < 2; ++i) {
        const std::optional<Pixels> pixels = read(guard, large);
        ASSERT_TRUE(pixels);
        EXPECT_EQ(pixels->size(), 64000000U);
        EXPECT_EQ(pixels->back(), 77);
        EXPECT_EQ(sizesOfMemory(), std::vector<std::size_t>{PixelMemory::kept});
    }
    EXPECT_EQ(read(guard, saveRed("a.png")), red);
}

TEST_F(ImageGuardTest, LooksUpFilesFromTheFolderOfTheHost)
{
    ImageGuard guard(KT_IMAGE_READER, {});
    const std::string path = saveRed("a.png");
    ASSERT_EQ(read(guard, path), red);
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(std::filesystem::path(path).parent_path());
    EXPECT_EQ(read(guard, "a.png"), red);
    std::filesystem::current_path(before);
}

TEST(ImageSizeTest, GoesThroughWords)
{
    const ImageSize size = ImageSize::fromWords(ImageSize{16384, 2, 3}.words());
    EXPECT_EQ(size.width, 16384);
    EXPECT_EQ(size.height, 2);
    EXPECT_EQ(size.components, 3);
    EXPECT_EQ(size.bytes(), 98304U);
    for (const char* words :
         {"", "1 1", "x 1 1", "0 1 1", "1 -1 1", "16385 1 1", "1 16385 1", "1 1 2", "1 1 5"})
        EXPECT_EQ(ImageSize::fromWords(words).bytes(), 0U) << words;
}

} // namespace
} // namespace kthost
