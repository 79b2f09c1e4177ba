#include "host/project/JsonPlace.h"

#include <gtest/gtest.h>

namespace
{

using kthost::JsonPlace;

std::pair<int, int> place(const JsonPlace& place)
{
    return {place.line, place.column};
}

std::pair<int, int> placeOf(const char* document, const QStringList& path)
{
    return place(JsonPlace::ofPath(document, path));
}

using Place = std::pair<int, int>;

} // namespace

TEST(JsonPlace, OffsetsAreLinesAndColumns)
{
    const QByteArray text = "one\ntwo\n\nfour";
    EXPECT_EQ(place(JsonPlace::ofOffset(text, 0)), Place(1, 1));
    EXPECT_EQ(place(JsonPlace::ofOffset(text, 3)), Place(1, 4));
    EXPECT_EQ(place(JsonPlace::ofOffset(text, 4)), Place(2, 1));
    EXPECT_EQ(place(JsonPlace::ofOffset(text, 8)), Place(3, 1));
    EXPECT_EQ(place(JsonPlace::ofOffset(text, 10)), Place(4, 2));
    EXPECT_EQ(place(JsonPlace::ofOffset(text, 1000)), Place(4, 5));
    EXPECT_EQ(place(JsonPlace::ofOffset(text, -1)), Place(1, 1));
    EXPECT_EQ(place(JsonPlace::ofOffset("", 0)), Place(1, 1));
}

TEST(JsonPlace, PathsLeadThroughObjectsAndArrays)
{
    const char* document = "{\n"
                           "  \"a\": {\"[1]\": \"}\\\"{\", \"b\": 1},\n"
                           "  \"c\" : [ 1,\n"
                           "    [true, null],\n"
                           "    {\"d\": -1.5e3} ]\n"
                           "}\n";
    EXPECT_EQ(placeOf(document, {}), Place(1, 1));
    EXPECT_EQ(placeOf(document, {"a"}), Place(2, 8));
    EXPECT_EQ(placeOf(document, {"a", "[1]"}), Place(2, 16));
    EXPECT_EQ(placeOf(document, {"a", "b"}), Place(2, 29));
    EXPECT_EQ(placeOf(document, {"c", "[0]"}), Place(3, 11));
    EXPECT_EQ(placeOf(document, {"c", "[1]", "[1]"}), Place(4, 12));
    EXPECT_EQ(placeOf(document, {"c", "[2]", "d"}), Place(5, 11));
}

TEST(JsonPlace, WhatIsMissingIsWhereItIsLookedFor)
{
    const char* document = "{\n\"a\": {\n\"b\": 1}}";
    EXPECT_EQ(placeOf(document, {"c"}), Place(1, 1));
    EXPECT_EQ(placeOf(document, {"a", "c"}), Place(2, 6));
    EXPECT_EQ(placeOf(document, {"a", "b", "c"}), Place(3, 6));
}

TEST(JsonPlace, KeysAreComparedAsTheyAreMeant)
{
    EXPECT_EQ(placeOf("{\"x\": 0,\n\"\\u0041\\n\": 1}", {"A\n"}), Place(2, 13));
}

TEST(JsonPlace, OfAKeyThatIsThereTwiceTheLastOneCounts)
{
    EXPECT_EQ(placeOf("{\"a\": 1,\n\"a\": 2}", {"a"}), Place(2, 6));
}
