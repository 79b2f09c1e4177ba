// The process that decodes images, as built.
#include "host/vrml/PixelMemory.h"
#include "host/vrml/ReadLimits.h"
#include "tests/vrml/ImageGuardFixture.h"

#include <gtest/gtest.h>

#include <QImageReader>

#include <sys/resource.h>

namespace kthost
{
namespace
{

using test::Pixels;

class ImageGuardTest : public test::ImageGuardFixture
{
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
    EXPECT_EQ(read(guard, saveGrey("grey.png")), Pixels(greyBytes, 77));
    EXPECT_EQ(read(guard, saveRed("c.jpg")).value_or(Pixels()).size(), red.size());
    EXPECT_EQ(programs(), first);
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(ImageGuardTest, ReadsPicturesWithTexts)
{
    if (!QImageReader::supportedImageFormats().contains("svg"))
        GTEST_SKIP() << "nothing decodes SVG here";
    ImageGuard guard(KT_IMAGE_READER, {});
    const std::optional<Pixels> pixels = read(
        guard, folder.write("text.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"8\" height=\"4\">"
                                        "<text y=\"4\" font-size=\"4\">ab</text></svg>"));
    ASSERT_TRUE(pixels);
    EXPECT_EQ(pixels->size(), 8U * 4U * 4U);
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

TEST_F(ImageGuardTest, EndsItsProgram)
{
    {
        ImageGuard guard(KT_IMAGE_READER, {});
        read(guard, saveRed("a.png"));
    }
    EXPECT_TRUE(programs().empty());
}

TEST_F(ImageGuardTest, NoPathIsNoImage)
{
    ImageGuard guard(KT_IMAGE_READER, {});
    EXPECT_EQ(read(guard, saveRed("a.png")), red);
    EXPECT_EQ(read(guard, ""), std::nullopt);
    EXPECT_EQ(programs().size(), 1U);
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(ImageGuardTest, GivesTheMemoryOfALargeImageBack)
{
    ImageGuard guard(KT_IMAGE_READER, {});
    const std::string large = saveGrey("large.png", {5000, 5000});
    for (int i = 0; i < 2; ++i) {
        const std::optional<Pixels> pixels = read(guard, large);
        ASSERT_TRUE(pixels);
        EXPECT_EQ(pixels->size(), 25000000U);
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
