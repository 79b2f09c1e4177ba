// Images that their decoder does not survive, and decoders that are none.
#include "host/vrml/ReadLimits.h"
#include "tests/support/ProcessLimit.h"
#include "tests/vrml/ImageGuardFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QByteArray>

#include <csignal>

#include <sys/wait.h>

namespace kthost
{
namespace
{

using test::Pixels;

class ImageGuardFault : public test::ImageGuardFixture
{
};

TEST_F(ImageGuardFault, AnImageThatTakesTooLongIsTriedOnceAScene)
{
    ReadLimits limits;
    limits.seconds = 1e-9;
    ImageGuard guard(KT_IMAGE_READER, limits);
    const std::string path = saveGrey("grey.png", {4000, 4000}); // many times as long as a clock's tick
    for (int scene = 0; scene < 2; ++scene) {
        EXPECT_EQ(read(guard, path), std::nullopt);
        EXPECT_EQ(read(guard, path), std::nullopt);
        guard.startOver();
    }
    const std::string start = "info: " + path + ": the image is left out: the reader ";
    const std::string late = start + "takes longer than 1e-09 s for it";
    const std::string again = start + "did not survive it before";
    EXPECT_THAT(log.lines(), testing::ElementsAre(late, again, late, again));
    EXPECT_TRUE(sizesOfMemory().empty());
}

TEST_F(ImageGuardFault, TellsOfAnImageThatTakesTooMuchMemory)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer's own memory cannot be limited";
#endif
    // The beginning of a PNG of 8000 by 8000 pixels with transparency: 256 megabytes, and nothing to fill
    // them.
    const QByteArray start =
        QByteArray::fromHex("89504e470d0a1a0a0000000d4948445200001f4000001f40080600000006f1adf4"
                            "000003e849444154789c6360a03d");
    const std::string path = folder.write("start.png", start.toStdString());
    ImageGuard unlimited(KT_IMAGE_READER, {});
    EXPECT_EQ(read(unlimited, path), std::nullopt);
    EXPECT_TRUE(log.lines().empty());

    ReadLimits limits;
    limits.megabytes = 200;
    ImageGuard guard(KT_IMAGE_READER, limits);
    EXPECT_EQ(read(guard, path), std::nullopt);
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_THAT(log.lines()[0],
                testing::AnyOf(testing::EndsWith("there is not enough memory for its pixels"),
                               testing::EndsWith("the reader needs more than 200 megabytes for it")));
}

TEST_F(ImageGuardFault, TheHostsLimitOnFilesIsNotOneOnPixels)
{
    const std::string path = saveGrey("grey.png");
    const kt::test::ProcessLimit files(RLIMIT_FSIZE, greyBytes / 2);
    ImageGuard guard(KT_IMAGE_READER, {});
    EXPECT_EQ(read(guard, path), Pixels(greyBytes, 77));
}

TEST_F(ImageGuardFault, GoesOnAfterAnImageThatEndsItsProgram)
{
    ImageGuard guard(KT_LYING_READER, {});
    EXPECT_EQ(read(guard, "/ends/with/3"), std::nullopt);
    EXPECT_EQ(read(guard, "grown+"), Pixels(40000, 0));
    EXPECT_THAT(
        log.lines(),
        testing::ElementsAre("info: /ends/with/3: the image is left out: the reader breaks down over it"));
}

TEST_F(ImageGuardFault, DoesNotGoOnForEverWithAScene)
{
    ImageGuard guard(KT_LYING_READER, {});
    for (const char* path : {"1", "2", "3", "4", "5", "6"})
        EXPECT_EQ(read(guard, path), std::nullopt);
    EXPECT_EQ(read(guard, "grown+"), std::nullopt);
    ASSERT_EQ(log.lines().size(), 7U);
    EXPECT_EQ(log.lines()[4], "info: 5: the image is left out: the reader breaks down over it");
    EXPECT_EQ(log.lines()[5],
              "info: 6: the image is left out: the reader did not survive 5 others of the scene");
    guard.startOver();
    EXPECT_EQ(read(guard, "grown+"), Pixels(40000, 0));
}

TEST_F(ImageGuardFault, StartsItsProgramAgain)
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

TEST_F(ImageGuardFault, SaysWhereItsProgramDoesNotRun)
{
    ImageGuard guard(folder.path("no-such-program"), {});
    const std::string path = saveRed("a.png");
    EXPECT_EQ(read(guard, path), std::nullopt);
    EXPECT_THAT(log.lines(),
                testing::ElementsAre("info: " + path +
                                     ": the image is left out: the program no-such-program does not run: "
                                     "No such file or directory"));
}

TEST_F(ImageGuardFault, BelievesOnlyWhatIsThereAndAllowed)
{
    ReadLimits limits;
    limits.imagePixels = 10000;
    ImageGuard guard(KT_LYING_READER, limits);
    EXPECT_EQ(read(guard, "image"), std::nullopt);
    EXPECT_EQ(read(guard, "grown+"), Pixels(40000, 0));
    limits.imagePixels = 9999;
    ImageGuard strict(KT_LYING_READER, limits);
    EXPECT_EQ(read(strict, "grown+"), std::nullopt);
}

} // namespace
} // namespace kthost
