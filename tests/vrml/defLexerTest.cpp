#include "host/vrml/DefLexer.h"
#include "host/vrml/NodeNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

namespace kthost
{
namespace
{

const std::string header = "#VRML V2.0 utf8\n";

class DefLexerTest : public testing::Test
{
protected:
    /// The text with its stand-ins numbered 1, 2, ... by first appearance, as <1>, <2>, ...
    std::string rewrite(const std::string& text)
    {
        const std::string result = DefLexer::rewrite(header + text, names);
        EXPECT_EQ(names.translate(result), header + text);
        EXPECT_EQ(std::count(result.begin(), result.end(), '\n'),
                  std::count(text.begin(), text.end(), '\n') + 1);
        return numbered(result.substr(header.size()));
    }

    static std::string numbered(std::string text)
    {
        static const std::regex standIn("ktDef[0-9]+");
        std::vector<std::string> seen;
        std::string result;
        for (std::smatch match; std::regex_search(text, match, standIn); text = match.suffix()) {
            auto place = std::find(seen.begin(), seen.end(), match.str());
            if (place == seen.end())
                place = seen.insert(place, match.str());
            result += match.prefix().str() + "<" + std::to_string(place - seen.begin() + 1) + ">";
        }
        return result + text;
    }

    NodeNames names;
};

TEST_F(DefLexerTest, GivesDefinedNamesStandInsThatUseAndRouteShare)
{
    EXPECT_EQ(rewrite("DEF A Group {} USE A ROUTE A.x TO B.y"),
              "DEF <1> Group {} USE <1> ROUTE <1>.x TO <2>.y");
}

TEST_F(DefLexerTest, GivesEachDefinitionOfANameItsOwnStandIn)
{
    EXPECT_EQ(rewrite("DEF A Group {} USE A DEF A Group {} USE A"),
              "DEF <1> Group {} USE <1> DEF <2> Group {} USE <2>");
}

TEST_F(DefLexerTest, LetsALaterDefinitionHaveTheStandInOfAnEarlierRoute)
{
    EXPECT_EQ(rewrite("ROUTE A.x TO B.y DEF A Group {} USE A"),
              "ROUTE <1>.x TO <2>.y DEF <1> Group {} USE <1>");
}

TEST_F(DefLexerTest, KeepsNamesByteForByte)
{
    const std::string bytes = "\xC3\x96l+1-\xE6\x89\x89'.\\\xFF\xFE";
    NodeNames table;
    const std::string result = DefLexer::rewrite(header + "DEF " + bytes + " Group {}", table);
    const std::string standIn = result.substr(header.size() + 4, result.rfind(" Group") - header.size() - 4);
    EXPECT_EQ(table.original(standIn), bytes);
    EXPECT_TRUE(std::all_of(standIn.begin(), standIn.end(),
                            [](unsigned char c) { return c < 0x80 && std::isalnum(c); }));
}

TEST_F(DefLexerTest, LeavesStringsAlone)
{
    EXPECT_EQ(rewrite(R"(info "DEF A { \" USE A" DEF B Group {})"),
              R"(info "DEF A { \" USE A" DEF <1> Group {})");
    EXPECT_EQ(rewrite("url \"javascript:\nDEF A\n\\\\\" DEF B Group {}"),
              "url \"javascript:\nDEF A\n\\\\\" DEF <1> Group {}");
    EXPECT_EQ(rewrite("info \"DEF A never ends"), "info \"DEF A never ends");
}

TEST_F(DefLexerTest, LeavesCommentsAlone)
{
    EXPECT_EQ(rewrite("# DEF A \"\nDEF B Group {} # {"), "# DEF A \"\nDEF <1> Group {} # {");
    EXPECT_EQ(rewrite("# old line end \rDEF B Group {}"), "# old line end \rDEF <1> Group {}");
}

TEST_F(DefLexerTest, FindsNamesBehindCommasCommentsAndLineEnds)
{
    EXPECT_EQ(rewrite("DEF,A,Group{}children[USE A,USE\r\n#no\n A]"),
              "DEF,<1>,Group{}children[USE <1>,USE\r\n#no\n <1>]");
}

TEST_F(DefLexerTest, LeavesLongerWordsAlone)
{
    EXPECT_EQ(rewrite("DEFx A USED A MYUSE A ROUTES A.x field IS name"),
              "DEFx A USED A MYUSE A ROUTES A.x field IS name");
}

TEST_F(DefLexerTest, SplitsARouteAtItsLastDot)
{
    EXPECT_EQ(rewrite("DEF A.B Group {} ROUTE A.B.x TO A.B.y"), "DEF <1> Group {} ROUTE <1>.x TO <1>.y");
}

TEST_F(DefLexerTest, LeavesBrokenStatementsToTheReader)
{
    EXPECT_EQ(rewrite("DEF { USE ] ROUTE A TO B ROUTE A.x DEF C Group {} DEF"),
              "DEF { USE ] ROUTE A TO B ROUTE <1>.x DEF <2> Group {} DEF");
}

TEST_F(DefLexerTest, GivesPrototypeBodiesNamesOfTheirOwn)
{
    EXPECT_EQ(
        rewrite("DEF A Group {} PROTO P [ field SFBool b TRUE ] { DEF A Group { USE A } USE B } USE A USE B"),
        "DEF <1> Group {} PROTO P [ field SFBool b TRUE ] { DEF <2> Group { USE <2> } USE <3> } USE <1> USE "
        "<4>");
}

TEST_F(DefLexerTest, KeepsNestedPrototypesApart)
{
    EXPECT_EQ(
        rewrite("PROTO P [] { DEF A Group {} PROTO Q [] { DEF A Group {} USE A } USE A } DEF A Group {}"),
        "PROTO P [] { DEF <1> Group {} PROTO Q [] { DEF <2> Group {} USE <2> } USE <1> } DEF <3> Group {}");
}

TEST_F(DefLexerTest, CountsDefaultValuesOfAPrototypeToTheScopeAroundIt)
{
    // The reader resolves them there.
    EXPECT_EQ(rewrite("PROTO P [ field SFNode n DEF A Box {} ] { DEF A Group {} } USE A"),
              "PROTO P [ field SFNode n DEF <1> Box {} ] { DEF <2> Group {} } USE <1>");
}

TEST_F(DefLexerTest, OpensNoScopeForAnExternalPrototype)
{
    EXPECT_EQ(
        rewrite("DEF A Group {} EXTERNPROTO P [ field SFBool b ] [ \"a.wrl\" ] Group { children USE A }"),
        "DEF <1> Group {} EXTERNPROTO P [ field SFBool b ] [ \"a.wrl\" ] Group { children USE <1> }");
}

TEST_F(DefLexerTest, SurvivesBracketsThatDoNotMatch)
{
    EXPECT_EQ(rewrite("} ] } PROTO P [ ] } { DEF A Group {} ] } } DEF A Group {}"),
              "} ] } PROTO P [ ] } { DEF <1> Group {} ] } } DEF <2> Group {}");
}

TEST_F(DefLexerTest, DropsAByteOrderMark)
{
    EXPECT_EQ(DefLexer::rewrite("\xEF\xBB\xBF" + header + "Group {}", names), header + "Group {}");
}

TEST_F(DefLexerTest, LeavesOtherFormatsAsTheyAre)
{
    const std::string text = "#Inventor V2.1 ascii\nDEF A Separator {}";
    EXPECT_EQ(DefLexer::rewrite(text, names), text);
    EXPECT_EQ(DefLexer::rewrite("", names), "");
    EXPECT_EQ(DefLexer::rewrite("DEF A", names), "DEF A");
}

TEST(NodeNamesTest, TranslatesStandInsInAText)
{
    NodeNames names;
    const std::string first = names.add("T\xC3\xBCr");
    const std::string second = names.add("plain");
    EXPECT_EQ(names.translate("no \"" + first + "\" beside " + second + "!"),
              "no \"T\xC3\xBCr\" beside plain!");
    EXPECT_EQ(names.translate(""), "");
}

TEST(NodeNamesTest, LeavesWhatIsNoStandInOfItsOwn)
{
    NodeNames other;
    const std::string foreign = other.add("foreign");
    NodeNames names;
    names.add("own");
    EXPECT_EQ(names.original(foreign), foreign);
    EXPECT_EQ(names.translate("ktDef, ktDef99999999 and " + foreign), "ktDef, ktDef99999999 and " + foreign);
}

} // namespace
} // namespace kthost
