#include "host/vrml/SceneSkeleton.h"

#include <gtest/gtest.h>

#include <string>

namespace kthost
{
namespace
{

const std::string many = " 1 2 3, 4 5 6, -7 .8 +9e3, 1 2 3, 4 5 6, 7 8 9 ";

TEST(SceneSkeletonTest, EmptiesLongListsOfNumbers)
{
    EXPECT_EQ(SceneSkeleton::of("point [" + many + "]"), "point []");
    EXPECT_EQ(SceneSkeleton::of("a [" + many + "] b [" + many + "#c ]\n 3] c"), "a [] b [] c");
}

TEST(SceneSkeletonTest, LeavesShortListsAndAllElse)
{
    for (const std::string& text :
         {std::string("key [ 0 1 ]"), "children [ Group {} " + many + "]", "url [ \"" + many + "\" ]",
          "# [" + many + "]", many, "[" + many, "}" + many + "]", std::string()})
        EXPECT_EQ(SceneSkeleton::of(text), text);
}

TEST(SceneSkeletonTest, LeavesListsWithNodesAmongTheNumbers)
{
    const std::string text = "[" + many + "Group {" + many + "}" + many + "]";
    EXPECT_EQ(SceneSkeleton::of(text), text);
}

TEST(SceneSkeletonTest, KnowsThePlacesOfTheWholeText)
{
    const std::string whole = "a [" + many + "] b [" + many + "#c ]\n 3] c";
    SceneSkeleton skeleton(whole);
    for (const char c : {'a', 'b', 'c', 'b', 'a'}) {
        const std::size_t place = skeleton.text().find(c);
        EXPECT_EQ(skeleton.inWhole(place + 1), whole.rfind(c) + 1) << c;
    }
    EXPECT_EQ(skeleton.inWhole(0), 0U);
    EXPECT_EQ(skeleton.inWhole(skeleton.text().size()), whole.size());
}

} // namespace
} // namespace kthost
