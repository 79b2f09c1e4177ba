#include "host/vrml/LocalUrl.h"

#include "tests/vrml/SceneFiles.h"

#include <gtest/gtest.h>

namespace kthost
{
namespace
{

class LocalUrlTest : public testing::Test
{
protected:
    LocalUrl resolve(const std::string& url) const { return LocalUrl::resolve(url, folder.path("")); }

    test::SceneFolder folder;
};

TEST_F(LocalUrlTest, FindsAFileFromTheGivenFolder)
{
    folder.makeFolder("sub");
    folder.write("sub/a.wrl", "");
    EXPECT_EQ(resolve("sub/a.wrl").path, folder.path("sub/a.wrl"));
    EXPECT_EQ(resolve(folder.path("sub/a.wrl")).path, folder.path("sub/a.wrl"));
    EXPECT_EQ(resolve("file://" + folder.path("sub/a.wrl")).path, folder.path("sub/a.wrl"));
    EXPECT_EQ(resolve("file://host" + folder.path("sub/a.wrl")).path, folder.path("sub/a.wrl"));
    EXPECT_EQ(resolve("sub/a.wrl").problem, "");
}

TEST_F(LocalUrlTest, SplitsTheFragmentOff)
{
    folder.write("a.wrl", "");
    EXPECT_EQ(resolve("a.wrl#Door").path, folder.path("a.wrl"));
    EXPECT_EQ(resolve("a.wrl#Door").fragment, "Door");
    folder.write("b#1.wrl", "");
    EXPECT_EQ(resolve("b#1.wrl").path, folder.path("b#1.wrl"));
    EXPECT_EQ(resolve("b#1.wrl").fragment, "");
}

TEST_F(LocalUrlTest, ReadsPercentEscapes)
{
    folder.write("T\xC3\xBCr 1.wrl", "");
    EXPECT_EQ(resolve("T%C3%BCr%201.wrl").path, folder.path("T\xC3\xBCr 1.wrl"));
    EXPECT_EQ(resolve("T\xC3\xBCr 1.wrl").path, folder.path("T\xC3\xBCr 1.wrl"));
    folder.write("100%.wrl", "");
    EXPECT_EQ(resolve("100%.wrl").path, folder.path("100%.wrl"));
}

TEST_F(LocalUrlTest, RefusesEveryOtherScheme)
{
    for (const char* url : {"http://example.org/a.wrl", "https://example.org/a.wrl", "urn:web3d:vrml97",
                            "ftp:a", "x-y.z+1:a"}) {
        EXPECT_EQ(resolve(url).path, "") << url;
        EXPECT_NE(resolve(url).problem.find("nothing is fetched"), std::string::npos) << url;
    }
}

TEST_F(LocalUrlTest, SaysWhatIsMissing)
{
    folder.makeFolder("sub");
    EXPECT_EQ(resolve("none.wrl").problem, "there is no file 'none.wrl'");
    EXPECT_EQ(resolve("sub").problem, "there is no file 'sub'");
    EXPECT_EQ(resolve("").problem, "there is no file ''");
    EXPECT_EQ(resolve("#Door").path, "");
    EXPECT_EQ(resolve("C:\\scenes\\a.wrl").path, "");
}

} // namespace
} // namespace kthost
