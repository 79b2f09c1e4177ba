#include "host/vrml/FileBytes.h"

#include "tests/vrml/SceneFiles.h"

#include <gtest/gtest.h>

#include <zlib.h>

#include <unistd.h>

namespace kthost
{
namespace
{

std::string gzip(const std::string& bytes)
{
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY);
    std::string packed(deflateBound(&stream, bytes.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(&packed[0]);
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.resize(packed.size() - stream.avail_out);
    deflateEnd(&stream);
    return packed;
}

class FileBytesTest : public testing::Test
{
protected:
    test::SceneFolder folder;
    std::string error;
};

TEST_F(FileBytesTest, ReadsEveryByte)
{
    const std::string bytes("a\0b\r\n\xFF", 6);
    EXPECT_EQ(FileBytes::readUnpacked(folder.write("file", bytes), error), bytes);
    EXPECT_EQ(FileBytes::readUnpacked(folder.write("empty", ""), error), "");
}

TEST_F(FileBytesTest, UnpacksAGzipStreamWhateverTheFileIsCalled)
{
    const std::string bytes(3'000'000, 'x');
    EXPECT_EQ(FileBytes::readUnpacked(folder.write("scene.wrl", gzip(bytes)), error), bytes);
    EXPECT_EQ(FileBytes::readUnpacked(folder.write("none.wrl.gz", ""), error), "");
    EXPECT_EQ(FileBytes::read(folder.path("scene.wrl"), error), gzip(bytes));
}

TEST_F(FileBytesTest, UnpacksSeveralMembersAndIgnoresWhatFollows)
{
    EXPECT_EQ(FileBytes::readUnpacked(folder.write("file", gzip("one ") + gzip("two") + "padding"), error),
              "one two");
}

TEST_F(FileBytesTest, RefusesWhatUnpacksToMoreThanTheLimitInOneMemberOrInMany)
{
    constexpr std::size_t megabyte = 1U << 20U;
    const std::string member = gzip(std::string(megabyte / 8, ' '));
    std::string many;
    for (int i = 0; i < 80; ++i)
        many += member;
    for (const std::string& bytes : {gzip(std::string(10 * megabyte, ' ')), many}) {
        EXPECT_FALSE(FileBytes::readUnpacked(folder.write("file", bytes), error, 9 * megabyte));
        EXPECT_EQ(error, "the gzip stream unpacks to more than 9 megabytes");
        EXPECT_TRUE(FileBytes::readUnpacked(folder.path("file"), error, 10 * megabyte));
    }
}

TEST_F(FileBytesTest, RefusesAStreamThatIsCutShort)
{
    const std::string packed = gzip("Transform { children [ Shape {} ] }");
    for (const std::size_t length : {std::size_t(2), std::size_t(12), packed.size() - 1}) {
        EXPECT_FALSE(FileBytes::readUnpacked(folder.write("file", packed.substr(0, length)), error))
            << length;
        EXPECT_EQ(error, "the gzip stream is cut short") << length;
    }
}

TEST_F(FileBytesTest, RefusesADamagedStream)
{
    std::string packed = gzip("Transform { children [ Shape {} ] }");
    packed[packed.size() - 6] = static_cast<char>(packed[packed.size() - 6] ^ 0x55); // in the check sum
    EXPECT_FALSE(FileBytes::readUnpacked(folder.write("file", packed), error));
    EXPECT_EQ(error.find("the gzip stream is damaged"), 0U) << error;
}

TEST_F(FileBytesTest, RefusesWhatIsNoFileThatCanBeRead)
{
    EXPECT_FALSE(FileBytes::readUnpacked(folder.path("none"), error));
    EXPECT_EQ(error, "No such file or directory");
    EXPECT_FALSE(FileBytes::readUnpacked(folder.makeFolder("sub"), error));
    EXPECT_EQ(error, "it is a folder");
    EXPECT_FALSE(FileBytes::readUnpacked("/dev/null", error));
    EXPECT_EQ(error, "it is not a regular file");
}

TEST_F(FileBytesTest, RefusesAPipeWithoutWaitingForIt)
{
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(FileBytes::readUnpacked(folder.path("pipe"), error));
    EXPECT_EQ(error, "it is not a regular file");
}

TEST_F(FileBytesTest, RefusesAFileThatMayNotBeRead)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root may read everything";
    chmod(folder.write("file", "x").c_str(), 0);
    EXPECT_FALSE(FileBytes::readUnpacked(folder.path("file"), error));
    EXPECT_EQ(error, "Permission denied");
}

} // namespace
} // namespace kthost
