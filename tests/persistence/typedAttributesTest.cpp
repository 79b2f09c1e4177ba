#include "persistence/getFromMessage.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

using Strings = std::vector<std::string>;

/// Reads an attribute and keeps what was said on the standard error stream.
class TypedAttributesTest : public testing::Test
{
protected:
    template <class T>
    bool getFrom(const char* key, T& out)
    {
        testing::internal::CaptureStderr();
        const bool answer = getFromMessage<T>(message, key, out);
        said = testing::internal::GetCapturedStderr();
        return answer;
    }

    template <class T>
    bool get(const char* key, T& out)
    {
        testing::internal::CaptureStderr();
        const bool answer = message.get<T>(key, out);
        said = testing::internal::GetCapturedStderr();
        return answer;
    }

    /// The first line of what was said is this one, and a call stack follows.
    void expectComplaint(const std::string& line)
    {
        ASSERT_EQ(said.compare(0, line.size() + 1, line + "\n"), 0) << said;
        EXPECT_NE(said.find("0x", line.size()), std::string::npos) << "no call stack: " << said;
    }

    ktMessage message;
    std::string said;
};

TEST_F(TypedAttributesTest, ABoolIsRead)
{
    message.set("_loading", true);
    bool loading = false;

    EXPECT_TRUE(getFrom("_loading", loading));
    EXPECT_TRUE(loading);
    EXPECT_TRUE(said.empty());
}

TEST_F(TypedAttributesTest, AVectorOfStringsReplacesTheOldContents)
{
    message.set("Animations", Strings{"a", "", "c"});
    Strings strings{"old", "contents", "of", "it"};

    EXPECT_TRUE(getFrom("Animations", strings));
    EXPECT_EQ(strings, (Strings{"a", "", "c"}));
}

TEST_F(TypedAttributesTest, AStringIsReadWithItsZeroBytes)
{
    const std::string name("a\0b", 3);
    message.set("animation-name", name);
    std::string read;

    EXPECT_TRUE(get("animation-name", read));
    EXPECT_EQ(read, name);
}

TEST_F(TypedAttributesTest, AMissingKeyIsAQuietFalse)
{
    Strings strings{"kept"};
    std::string string = "kept";

    EXPECT_FALSE(getFrom("Animations", strings));
    EXPECT_TRUE(said.empty());
    EXPECT_FALSE(get("animation-name", string));
    EXPECT_TRUE(said.empty());
    EXPECT_EQ(strings, Strings{"kept"});
    EXPECT_EQ(string, "kept");
}

TEST_F(TypedAttributesTest, AnIntIsNoBoolAndIsReportedWithACallStack)
{
    message.set("_loading", 1);
    bool loading = true;

    EXPECT_FALSE(getFrom("_loading", loading));
    EXPECT_TRUE(loading) << "left unchanged";
    expectComplaint("getFromMessage : Attribute '_loading' has wrong type (is:'i' != req:'b')!");
}

TEST_F(TypedAttributesTest, ALiteralIsNoString)
{
    message.set("animation-name", static_cast<const char*>("Door"));
    std::string name = "kept";

    EXPECT_FALSE(get("animation-name", name));
    EXPECT_EQ(name, "kept");
    expectComplaint(
        std::string("ktMessage::get : Attribute 'animation-name' has wrong type (is:'PKc' != req:'") +
        typeid(std::string).name() + "')!");
}

TEST_F(TypedAttributesTest, AnotherVectorIsReportedByTheNamesOfBothTypes)
{
    message.set("Animations", std::vector<int>{1});
    Strings strings;

    EXPECT_FALSE(getFrom("Animations", strings));
    expectComplaint(std::string("getFromMessage : Attribute 'Animations' has wrong type (is:'") +
                    typeid(std::vector<int>).name() + "' != req:'" + typeid(Strings).name() + "')!");
}

TEST_F(TypedAttributesTest, AnEmptyValueIsQuietForTheFunction)
{
    message.set("_loading", boost::any());
    bool loading = true;

    EXPECT_FALSE(getFrom("_loading", loading));
    EXPECT_TRUE(loading);
    EXPECT_TRUE(said.empty()) << said;
}

TEST_F(TypedAttributesTest, AnEmptyValueIsAWrongTypeForTheMember)
{
    message.set("animation-name", boost::any());
    std::string name = "kept";

    EXPECT_FALSE(get("animation-name", name));
    EXPECT_EQ(name, "kept");
    expectComplaint(
        std::string("ktMessage::get : Attribute 'animation-name' has wrong type (is:'v' != req:'") +
        typeid(std::string).name() + "')!");
}

} // namespace
