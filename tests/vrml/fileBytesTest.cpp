#include "host/vrml/FileBytes.h"

#include "tests/vrml/Gzip.h"
#include "tests/vrml/SceneFiles.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace kthost
{
namespace
{

class FileBytesTest : public testing::Test
{
protected:
    std::optional<std::string> readUnpacked(const std::string& path, std::size_t megabytes = 1024)
    {
        std::optional<std::string> bytes = FileBytes::read(path, error, {megabytes, {}});
        return bytes ? FileBytes::unpack(*bytes, error, {megabytes, {}}) : std::nullopt;
    }

    test::SceneFolder folder;
    std::string error;
};

TEST_F(FileBytesTest, ReadsEveryByte)
{
    const std::string bytes("a\0b\r\n\xFF", 6);
    EXPECT_EQ(readUnpacked(folder.write("file", bytes)), bytes);
    EXPECT_EQ(readUnpacked(folder.write("empty", "")), "");
}

TEST_F(FileBytesTest, UnpacksAGzipStreamWhateverTheFileIsCalled)
{
    const std::string bytes(3'000'000, 'x');
    EXPECT_EQ(readUnpacked(folder.write("scene.wrl", test::gzip(bytes))), bytes);
    EXPECT_EQ(readUnpacked(folder.write("none.wrl.gz", "")), "");
    EXPECT_EQ(FileBytes::read(folder.path("scene.wrl"), error), test::gzip(bytes));
}

TEST_F(FileBytesTest, UnpacksSeveralMembersAndIgnoresWhatFollows)
{
    EXPECT_EQ(readUnpacked(folder.write("file", test::gzip("one ") + test::gzip("two") + "padding")),
              "one two");
}

TEST_F(FileBytesTest, RefusesWhatUnpacksToMoreThanTheLimitInOneMemberOrInMany)
{
    constexpr std::size_t megabyte = 1U << 20U;
    const std::string member = test::gzip(std::string(megabyte / 8, ' '));
    std::string many;
    for (int i = 0; i < 80; ++i)
        many += member;
    for (const std::string& bytes : {test::gzip(std::string(10 * megabyte, ' ')), many}) {
        EXPECT_FALSE(readUnpacked(folder.write("file", bytes), 9));
        EXPECT_EQ(error, "the gzip stream unpacks to more than 9 megabytes");
        EXPECT_TRUE(readUnpacked(folder.path("file"), 10));
    }
}

TEST_F(FileBytesTest, RefusesAFileThatIsLargerThanTheLimit)
{
    constexpr std::size_t megabyte = 1U << 20U;
    const std::string path = folder.write("file", std::string(2 * megabyte + 1, ' '));
    EXPECT_FALSE(readUnpacked(path, 2));
    EXPECT_EQ(error, "it is larger than 2 megabytes");
    EXPECT_TRUE(readUnpacked(path, 3));
}

TEST_F(FileBytesTest, AsksBeforeItHoldsManyBytes)
{
    std::size_t asked = 0;
    const auto mayHold = [&](std::size_t bytes) {
        asked = bytes;
        return bytes <= 1000000;
    };
    const std::string many(3000000, ' ');
    EXPECT_FALSE(FileBytes::read(folder.write("file", many), error, {1024, mayHold}));
    EXPECT_EQ(error, "it is too large to be read now");
    EXPECT_EQ(asked, 3000000U);
    EXPECT_FALSE(FileBytes::unpack(test::gzip(many), error, {1024, mayHold}));
    EXPECT_EQ(error, "it is too large to be read now");
    EXPECT_LT(asked, 1500000U);
    EXPECT_TRUE(FileBytes::unpack(test::gzip(many.substr(0, 900000)), error, {1024, mayHold}));
}

TEST_F(FileBytesTest, RefusesAStreamThatIsCutShort)
{
    const std::string packed = test::gzip("Transform { children [ Shape {} ] }");
    for (const std::size_t length : {std::size_t(2), std::size_t(12), packed.size() - 1}) {
        EXPECT_FALSE(readUnpacked(folder.write("file", packed.substr(0, length)))) << length;
        EXPECT_EQ(error, "the gzip stream is cut short") << length;
    }
}

TEST_F(FileBytesTest, RefusesADamagedStream)
{
    std::string packed = test::gzip("Transform { children [ Shape {} ] }");
    packed[packed.size() - 6] = static_cast<char>(packed[packed.size() - 6] ^ 0x55); // in the check sum
    EXPECT_FALSE(readUnpacked(folder.write("file", packed)));
    EXPECT_EQ(error.find("the gzip stream is damaged"), 0U) << error;
}

TEST_F(FileBytesTest, RefusesWhatIsNoFileThatCanBeRead)
{
    EXPECT_FALSE(readUnpacked(folder.path("none")));
    EXPECT_EQ(error, "No such file or directory");
    EXPECT_FALSE(readUnpacked(folder.makeFolder("sub")));
    EXPECT_EQ(error, "it is a folder");
    EXPECT_FALSE(readUnpacked("/dev/null"));
    EXPECT_EQ(error, "it is not a regular file");
}

TEST_F(FileBytesTest, RefusesAPipeWithoutWaitingForIt)
{
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(readUnpacked(folder.path("pipe")));
    EXPECT_EQ(error, "it is not a regular file");
}

TEST_F(FileBytesTest, RefusesAFileThatMayNotBeRead)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root may read everything";
    chmod(folder.write("file", "x").c_str(), 0);
    EXPECT_FALSE(readUnpacked(folder.path("file")));
    EXPECT_EQ(error, "Permission denied");
}

} // namespace
} // namespace kthost
