// Each value comes back from a file to the bit.
#include "host/project/AttributeValue.h"
#include "host/project/ProjectError.h"
#include "tests/support/Effort.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace
{

using kthost::AttributeValue;
using Strings = std::vector<std::string>;

/// Through the text of a file.
QJsonValue written(const QJsonValue& value)
{
    const QByteArray text = QJsonDocument(QJsonArray{value}).toJson();
    return QJsonDocument::fromJson(text).array().at(0);
}

boost::any roundTrip(const boost::any& value)
{
    return *AttributeValue::fromJson(AttributeValue::typeOf(value), written(AttributeValue::toJson(value)));
}

void expectSame(const boost::any& value)
{
    EXPECT_TRUE(AttributeValue::areSame(value, roundTrip(value)));
}

std::string why(const char* type, const QJsonValue& json)
{
    try {
        AttributeValue::fromJson(QString::fromLatin1(type), json);
    } catch (const kthost::WrongValue& wrong) {
        return (wrong.path.join(".") + " " + wrong.why).toStdString();
    }
    return "fine";
}

double doubleOfBits(std::uint64_t bits)
{
    double number = 0.0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

} // namespace

TEST(AttributeValue, BoolsAndIntsComeBack)
{
    expectSame(true);
    expectSame(false);
    for (const int number : {0, -1, 7, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        expectSame(number);
}

TEST(AttributeValue, DoublesComeBackToTheBit)
{
    const double odd[] = {0.0,
                          -0.0,
                          0.1,
                          1e22,
                          9007199254740993.0,
                          9.3e18,
                          -1e19,
                          std::numeric_limits<double>::denorm_min(),
                          std::numeric_limits<double>::max(),
                          std::numeric_limits<double>::lowest(),
                          std::numeric_limits<double>::infinity(),
                          -std::numeric_limits<double>::infinity(),
                          doubleOfBits(0x7ff8000000000000),
                          doubleOfBits(0xfff8000000000123)};
    for (const double number : odd)
        expectSame(number);
    std::mt19937_64 bits(1);
    for (int i = 0; i < 20000; ++i)
        expectSame(doubleOfBits(bits()));
}

TEST(AttributeValue, ANegativeZeroIsNotAZero)
{
    EXPECT_FALSE(AttributeValue::areSame(0.0, -0.0));
    EXPECT_TRUE(AttributeValue::areSame(doubleOfBits(0x7ff8000000000001), doubleOfBits(0x7ff8000000000001)));
}

TEST(AttributeValue, EveryCodePointComesBackAsAText)
{
    constexpr uint step = 10 / kt::test::tries(10);
    for (uint code = 0; code < 0x110000; code += step) {
        if (code >= 0xd800 && code < 0xe000)
            continue;
        const std::string bytes = "e" + QString::fromUcs4(&code, 1).toStdString() + "\xCC\x81";
        const QJsonValue json = AttributeValue::bytesToJson(bytes);
        ASSERT_TRUE(json.isString()) << code;
        if (AttributeValue::bytesFromJson(written(json)) != bytes)
            FAIL() << code;
    }
}

TEST(AttributeValue, BytesThatAreNoTextComeBackFromBase64)
{
    const std::string odd[] = {"\xff",
                               "\xc0\x80",         // a zero in two bytes
                               "\xed\xa0\x80",     // half of a surrogate pair
                               "\xef\xbb\xbfText", // a byte order mark that readers would take away
                               "cut \xe2\x82",
                               "\xf4\x90\x80\x80",
                               std::string("a\0\x80", 3)};
    for (const std::string& bytes : odd) {
        EXPECT_TRUE(AttributeValue::bytesToJson(bytes).isObject()) << bytes;
        expectSame(bytes);
    }
}

TEST(AttributeValue, AnyBytesComeBack)
{
    std::mt19937 random(2);
    for (int i = 0; i < 5000; ++i) {
        std::string bytes(random() % 24, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random() % (i % 2 ? 256 : 8) + (i % 2 ? 0 : 0x7c));
        expectSame(bytes);
        expectSame(Strings{bytes, "", bytes + bytes});
    }
}

TEST(AttributeValue, ATextThatIsBase64IsAText)
{
    EXPECT_TRUE(AttributeValue::bytesToJson("AAAA").isString());
    expectSame(std::string("{\"base64\": \"AAAA\"}"));
}

TEST(AttributeValue, VectorsKeepNumberAndOrder)
{
    expectSame(Strings{});
    expectSame(Strings{""});
    expectSame(Strings{"Door", "", "", "", "Fan", "six"});
    EXPECT_FALSE(AttributeValue::areSame(Strings{"a", "b"}, Strings{"b", "a"}));
}

TEST(AttributeValue, OtherTypesAreUnknown)
{
    EXPECT_EQ(AttributeValue::typeOf(1.0f), "");
    EXPECT_EQ(AttributeValue::typeOf(boost::any()), "");
    EXPECT_TRUE(AttributeValue::toJson(static_cast<const char*>("x")).isNull());
    EXPECT_FALSE(AttributeValue::fromJson("matrix", 1).has_value());
    EXPECT_FALSE(AttributeValue::areSame(1.0f, 1.0f));
    EXPECT_FALSE(AttributeValue::areSame(1, 1.0));
}

TEST(AttributeValue, ValuesOfAnotherTypeAreRefused)
{
    EXPECT_EQ(why("bool", 1), " is neither true nor false");
    EXPECT_EQ(why("int", 1.5), " is no whole number of 32 bits");
    EXPECT_EQ(why("int", 2147483648.0), " is no whole number of 32 bits");
    EXPECT_EQ(why("int", "1"), " is no whole number of 32 bits");
    EXPECT_EQ(why("double", "0x12"), " is neither a number nor \"0x\" with the 16 digits of one");
    EXPECT_EQ(why("double", "0x000000000000000g"),
              " is neither a number nor \"0x\" with the 16 digits of one");
    EXPECT_EQ(why("double", QJsonValue()), " is neither a number nor \"0x\" with the 16 digits of one");
    EXPECT_EQ(why("string", 1), " is neither a text nor {\"base64\": \"...\"}");
    EXPECT_EQ(why("string", QJsonObject{{"base64", "AAAA"}, {"more", 1}}),
              " is neither a text nor {\"base64\": \"...\"}");
    EXPECT_EQ(why("string", QJsonObject{{"base64", "A*"}}), "base64 is no base64");
    EXPECT_EQ(why("string", QString(QChar(0xd800))), " is no valid Unicode");
    EXPECT_EQ(why("strings", "Door"), " is no array of texts");
    EXPECT_EQ(why("strings", QJsonArray{"Door", 1}), "[1] is neither a text nor {\"base64\": \"...\"}");
}
