#include "host/vrml/DefLexer.h"
#include "host/vrml/NodeNames.h"

#include <gtest/gtest.h>

#include <string>

namespace kthost
{
namespace
{

SceneHeight::Height heightOf(const std::string& text)
{
    NodeNames names;
    return DefLexer::rewrite("#VRML V2.0 utf8\n" + text, names).height;
}

TEST(SceneHeightTest, CountsNodesInsideEachOther)
{
    EXPECT_EQ(heightOf("").nodes, 0U);
    EXPECT_EQ(heightOf("Group {}").nodes, 1U);
    EXPECT_EQ(heightOf("Group { children [ Group {} Group { children Shape {} } Group {} ] } Group {}").nodes,
              3U);
    EXPECT_EQ(heightOf("Group { children [ Group {").nodes, 2U);
}

TEST(SceneHeightTest, CountsWhatIsUsed)
{
    EXPECT_EQ(heightOf("DEF A Group { children Group {} } Group { children USE A }").nodes, 3U);
    EXPECT_EQ(heightOf("DEF A Group {} DEF B Group { children USE A } DEF C Group { children USE B }").nodes,
              3U);
    EXPECT_EQ(heightOf("DEF A Group { children Group {} } DEF A Group {} Group { children USE A }").nodes,
              2U);
}

TEST(SceneHeightTest, HasNoEndWhereANodeIsUsedInItselfOrBeforeItIsThere)
{
    EXPECT_GE(heightOf("DEF A Group { children USE A }").nodes, SceneHeight::endless);
    EXPECT_GE(heightOf("Group { children USE A } DEF A Group {}").nodes, SceneHeight::endless);
}

TEST(SceneHeightTest, CountsBodiesOfPrototypes)
{
    const std::string two = "PROTO P [ field MFNode c [ Group {} ] ] { Group { children Group {} } } ";
    const std::size_t declared = heightOf(two).nodes;
    EXPECT_GE(declared, 2U);
    EXPECT_GE(heightOf(two + "P { c P { c P {} } }").nodes, 6U);
    EXPECT_GE(heightOf(two + "PROTO Q [] { Group { children P {} } } Group { children Q {} }").nodes, 4U);
    EXPECT_GE(heightOf(two + "PROTO P [] { Group { children Group { children Group {} } } } P {}").nodes, 3U);
}

TEST(SceneHeightTest, HasNoEndWhereAPrototypeIsInItself)
{
    EXPECT_GE(heightOf("PROTO P [] { Group { children P {} } }").nodes, SceneHeight::endless);
}

TEST(SceneHeightTest, CountsInstancesOfPrototypesOfOtherFiles)
{
    const std::string external = "EXTERNPROTO E [ exposedField MFNode c ] \"e.wrl\" ";
    EXPECT_EQ(heightOf(external + "Group {}").externals, 0U);
    EXPECT_EQ(heightOf(external + "E {}").externals, 1U);
    EXPECT_EQ(heightOf(external + "E { c [ E {} Group { children E {} } ] }").externals, 2U);
}

TEST(SceneHeightTest, StaysInBoundsWhereHeightsMultiply)
{
    std::string text = "PROTO P0 [] { Group {} }\n";
    for (int i = 1; i <= 80; ++i) {
        const std::string below = "P" + std::to_string(i - 1);
        text += "PROTO P" + std::to_string(i) + " [ field SFNode n NULL ] { " + below + " { n " + below +
                " {} } }\n";
    }
    EXPECT_EQ(heightOf(text).nodes, SceneHeight::endless);
}

} // namespace
} // namespace kthost
