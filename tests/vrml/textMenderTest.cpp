#include "host/vrml/TextMender.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kthost
{
namespace
{

class TextMenderTest : public testing::Test
{
protected:
    std::string mend(const std::string& text)
    {
        result = TextMender::mend(text, {[](const std::string& kind) {
                                             return kind == "Group" || kind == "Box" || kind == "Script";
                                         },
                                         [this](const std::vector<std::string>& urls) {
                                             asked = urls;
                                             return why;
                                         }});
        EXPECT_EQ(std::count(result.text.begin(), result.text.end(), '\n'),
                  std::count(text.begin(), text.end(), '\n'));
        return result.text;
    }

    std::string remarks() const
    {
        std::string all;
        for (const MendedText::Remark& remark : result.remarks)
            all += std::to_string(remark.line) + ": " + remark.words + "\n";
        return all;
    }

    MendedText result;
    std::vector<std::string> asked;
    std::string why;
};

TEST_F(TextMenderTest, LeavesAGoodTextAlone)
{
    for (const std::string text :
         {"Group { children [ Box {} USE A ] } ROUTE A.x TO B.y # Foo {",
          "PROTO P [ field SFNode n Box {} ] { P {} } P {}", "", "}}} ] [ {", "PROTO", "EXTERNPROTO",
          "EXTERNPROTO P [", "META \"a\"", "DEF", "USE", "Foo", "\"Foo {\""}) {
        EXPECT_EQ(mend(text), text);
        EXPECT_EQ(remarks(), "");
    }
}

TEST_F(TextMenderTest, PassesOverStatementsOfAYoungerStandard)
{
    EXPECT_EQ(mend("PROFILE Immersive\nCOMPONENT NURBS:2\nMETA \"a\"\n\"b\" Group {}"), "\n\n\n Group {}");
    EXPECT_EQ(remarks(), "1: PROFILE is no statement of VRML97 and is passed over\n"
                         "2: COMPONENT is no statement of VRML97 and is passed over\n"
                         "3: META is no statement of VRML97 and is passed over\n");
    EXPECT_EQ(mend("Group { META \"a\" \"b\" }"), "Group { META \"a\" \"b\" }");
}

TEST_F(TextMenderTest, AStatementIsNoKindOfTheBracesBehindIt)
{
    EXPECT_EQ(mend("PROFILE X { a\n } DEF A { b }"), " { a\n } DEF A { b }");
    EXPECT_EQ(mend("USE A { b } PROTO P { c }"), "USE A { b } PROTO P { c }");
}

TEST_F(TextMenderTest, PutsAnEmptyGroupInPlaceOfAnUnknownNode)
{
    EXPECT_EQ(mend("Group { a Foo { b [ 1\n2 ] c Bar { \"}\" } #}\n} } Foo {}"),
              "Group { a Group {\n\n} } Group {}");
    EXPECT_EQ(remarks(), "1: the node 'Foo' is unknown and passed over\n"
                         "3: the node 'Foo' is unknown and passed over\n");
}

TEST_F(TextMenderTest, LeavesAnUnknownNodeWhoseBracesDoNotMatch)
{
    for (const std::string text : {"Foo { Group {}", "Foo { ] }", "Foo { [ } ]"}) {
        EXPECT_EQ(mend(text), text);
        EXPECT_EQ(remarks(), "");
    }
}

TEST_F(TextMenderTest, LooksForAMatchOnceHoweverManyBracketsHaveNone)
{
    std::string text;
    for (int i = 0; i < 300000; ++i)
        text += "Unknown{";
    EXPECT_EQ(mend(text), text); // the square of it would take an hour
    EXPECT_EQ(mend("Unknown{ [ } Unknown{Unknown{}}"), "Unknown{ [ } Group {}");
}

TEST_F(TextMenderTest, ReferencesToWhatWasPassedOverAreNull)
{
    EXPECT_EQ(mend("DEF U Foo { DEF A Box {} DEF B Box {} } USE A USE U DEF B Box {} USE B USE C"),
              "DEF U Group {} NULL USE U DEF B Box {} USE B USE C");
}

TEST_F(TextMenderTest, KnowsThePrototypesOfTheText)
{
    EXPECT_EQ(mend("Foo {} PROTO Foo [] { Group {} } Foo {}"), "Group {} PROTO Foo [] { Group {} } Foo {}");
    EXPECT_EQ(mend("EXTERNPROTO Foo [] \"a\" Foo {}"), "EXTERNPROTO Foo [] \"a\" Foo {}");
}

TEST_F(TextMenderTest, PutsAPrototypeInPlaceOfOneThatIsMissing)
{
    why = "gone";
    EXPECT_EQ(
        mend("EXTERNPROTO Foo [ field SFFloat f eventIn SFTime t exposedField MFNode m\n"
             "field SFRotation r ] [ \"a b\", \"c\\\"d\" ]\nFoo {}"),
        "PROTO Foo [ field SFFloat f 0 eventIn SFTime t exposedField MFNode m [] field SFRotation r 0 0 1 0 "
        "]{Group{}}\n\nFoo {}");
    EXPECT_EQ(asked, (std::vector<std::string>{"a b", "c\"d"}));
    EXPECT_EQ(remarks(), "1: EXTERNPROTO 'Foo' is left out: gone\n");
}

} // namespace
} // namespace kthost
