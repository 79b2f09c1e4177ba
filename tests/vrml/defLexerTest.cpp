#include "host/vrml/DefLexer.h"
#include "host/vrml/NodeNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>

namespace kthost
{
namespace
{

const std::string header = "#VRML V2.0 utf8\n";

class DefLexerTest : public testing::Test
{
protected:
    std::string textOf(const std::string& text)
    {
        const ReaderText result = DefLexer::rewrite(text, names);
        EXPECT_EQ(result.problem, "");
        return result.text;
    }

    /// The text with its stand-ins numbered 1, 2, ... by first appearance, as <1>, <2>, ...
    std::string rewrite(const std::string& text)
    {
        const std::string result = textOf(header + text);
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

TEST_F(DefLexerTest, GivesStandInsOfOneLength)
{
    const std::string standIn = names.add("A");
    for (int i = 0; i < 2000; ++i)
        ASSERT_EQ(names.add("A").size(), standIn.size());
}

TEST_F(DefLexerTest, KeepsNamesByteForByte)
{
    const std::string bytes = "\xC3\x96l+1-\xE6\x89\x89'.\\\xFF\xFE";
    NodeNames table;
    const std::string result = DefLexer::rewrite(header + "DEF " + bytes + " Group {}", table).text;
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
    EXPECT_EQ(textOf("\xEF\xBB\xBF" + header + "Group {}"), header + "Group {}");
}

TEST_F(DefLexerTest, LeavesOtherFormatsAsTheyAre)
{
    const std::string text = "#Inventor V2.1 ascii\nDEF A Separator {}";
    EXPECT_EQ(textOf(text), text);
    EXPECT_EQ(textOf(""), "");
    EXPECT_EQ(textOf("DEF A"), "DEF A");
}

TEST_F(DefLexerTest, TakesFromAScriptWhatItIsPartOf)
{
    EXPECT_EQ(
        numbered(textOf(header + "DEF A Script { field SFNode me USE A field SFNode b DEF B Group {} }")),
        header + "DEF <1> Script { field SFNode me NULL field SFNode b DEF <2> Group {} }");
    EXPECT_EQ(numbered(textOf(header + "DEF A Group { children Script { field MFNode f [USE\n#x\nA] } }")),
              header + "DEF <1> Group { children Script { field MFNode f [NULL\n\n] } }");
}

TEST_F(DefLexerTest, LeavesAScriptWhatItIsNoPartOf)
{
    EXPECT_EQ(rewrite("DEF A Group {} Script { field SFNode a USE A }"),
              "DEF <1> Group {} Script { field SFNode a USE <1> }");
    EXPECT_EQ(rewrite("DEF A Script {} DEF B Group { children USE B }"),
              "DEF <1> Script {} DEF <2> Group { children USE <2> }");
}

TEST_F(DefLexerTest, RefusesMoreBracketsInsideEachOtherThanTheLimit)
{
    ReadLimits limits;
    limits.brackets = 3;
    EXPECT_TRUE(DefLexer::rewrite(header + "Group { children [ Group {} ] } Group {}", names, limits));
    const ReaderText deep =
        DefLexer::rewrite(header + "Group { children [\nGroup {\n[ ] } ] }", names, limits);
    EXPECT_EQ(deep.problem, "more than 3 brackets are open inside each other");
    EXPECT_EQ(deep.line, 4U);
}

TEST_F(DefLexerTest, RefusesLongerWordsThanTheLimitButNotNamesAndStrings)
{
    ReadLimits limits;
    limits.wordBytes = 10;
    const std::string word(11, 'x');
    EXPECT_TRUE(DefLexer::rewrite(
        header + "DEF " + word + " Group {} USE " + word + " \"" + word + "\" #" + word, names, limits));
    const ReaderText refused = DefLexer::rewrite(header + "Group {\n" + word + " 3 }", names, limits);
    EXPECT_EQ(refused.problem, "a word of 11 bytes");
    EXPECT_TRUE(DefLexer::rewrite(header + "ROUTE " + word + ".a TO " + word + ".b", names, limits));
    for (const std::string& ends : {"A." + word + " TO A.b", "A.b TO A." + word, word + " TO A.b"})
        EXPECT_EQ(DefLexer::rewrite(header + "ROUTE " + ends, names, limits).problem, "a word of 11 bytes");
    EXPECT_EQ(refused.line, 3U);
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

TEST(NodeNamesTest, TheWordsOfATableThatIsGoneAreUsedAgain)
{
    std::string word;
    {
        NodeNames gone;
        word = gone.add("Door");
    }
    NodeNames names;
    EXPECT_EQ(names.add("Window"), word);
    EXPECT_EQ(names.original(word), "Window");
}

TEST(NodeNamesTest, TablesThatGrowByTurnsKeepApart)
{
    NodeNames first;
    NodeNames second;
    std::set<std::string> words;
    for (int i = 0; i < 600; ++i) {
        const std::string mine = first.add("first" + std::to_string(i));
        const std::string other = second.add("second" + std::to_string(i));
        words.insert({mine, other});
        EXPECT_EQ(first.original(mine), "first" + std::to_string(i));
        EXPECT_EQ(second.original(mine), mine);
    }
    EXPECT_EQ(words.size(), 1200U);

    const NodeNames moved = std::move(first);
    for (const std::string& word : words)
        EXPECT_NE(moved.original(word), second.original(word));
}

} // namespace
} // namespace kthost
