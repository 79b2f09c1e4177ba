// A project that is broken or newer is refused in one line with file, line and reason.
#include "host/project/ProjectError.h"
#include "host/project/ProjectFile.h"
#include "host/project/ProjectFormat.h"

#include <gtest/gtest.h>

#include <QFile>

using kthost::ProjectError;
using kthost::ProjectFormat;

namespace
{

/// The line it is refused with; empty where it is not.
std::string refusal(const QByteArray& document)
{
    try {
        ProjectFormat::fromJson(document, "p.ktproj");
    } catch (const ProjectError& error) {
        EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos);
        return error.what();
    }
    return "";
}

std::string refusalOfAttribute(const char* json)
{
    return refusal("{\"formatVersion\": 1,\n\"attributes\": {\n\"a\": " + QByteArray(json) + "}}");
}

} // namespace

TEST(BrokenProject, WhatIsNoJsonIsRefusedAtItsPlace)
{
    EXPECT_EQ(refusal(""), "p.ktproj:1:1: illegal value");
    EXPECT_EQ(refusal("#VRML V2.0 utf8\n"), "p.ktproj:1:2: illegal value");
    EXPECT_EQ(refusal("{\n  \"formatVersion\": 1,\n  \"scene\" \"a.wrl\"\n}").find("p.ktproj:3:"), 0u);
    EXPECT_EQ(refusal("[]"), "p.ktproj:1:1: the document is no object");
}

TEST(BrokenProject, TheFileIsCalledByItsNameWhateverThatHolds)
{
    try {
        ProjectFormat::fromJson("[]", "%2 %1.ktproj");
        ADD_FAILURE() << "it was taken";
    } catch (const ProjectError& error) {
        EXPECT_STREQ(error.what(), "%2 %1.ktproj:1:1: the document is no object");
    }
}

TEST(BrokenProject, ANewerOneIsRefusedWhateverElseItHolds)
{
    EXPECT_EQ(
        refusal("{\"scene\": 5,\n \"formatVersion\": 2}"),
        "p.ktproj:2:19: formatVersion is 2, and this version reads up to 1: a newer one wrote the file");
    EXPECT_EQ(refusal("{\"formatVersion\": 2147483647}").find("p.ktproj:1:19: formatVersion is 2147483647"),
              0u);
}

TEST(BrokenProject, AVersionThatIsNoneIsRefused)
{
    for (const char* version : {"0", "-1", "1.5", "\"1\"", "null", "true", "[1]", "1e300"})
        EXPECT_EQ(refusal("{\"formatVersion\": " + QByteArray(version) + "}"),
                  "p.ktproj:1:19: formatVersion is no format version")
            << version;
    EXPECT_EQ(refusal("{\"scene\": \"a.wrl\"}"), "p.ktproj:1:1: formatVersion is no format version");
}

TEST(BrokenProject, WrongTypesAreRefusedWithTheirPlace)
{
    EXPECT_EQ(refusal("{\"formatVersion\": 1,\n\"scene\": 5}"), "p.ktproj:2:10: scene is no text");
    EXPECT_EQ(refusal("{\"formatVersion\": 1,\n\"scene\": null}"), "p.ktproj:2:10: scene is no text");
    EXPECT_EQ(refusal("{\"formatVersion\": 1, \"sceneIsOutside\": 1}"),
              "p.ktproj:1:40: sceneIsOutside is neither true nor false");
    EXPECT_EQ(refusal("{\"formatVersion\": 1, \"attributes\": []}"),
              "p.ktproj:1:36: attributes is no object");
    EXPECT_EQ(refusalOfAttribute("5"), "p.ktproj:3:6: attributes.a is no object with \"type\" and \"value\"");
    EXPECT_EQ(refusalOfAttribute("{\"value\": 5}"), "p.ktproj:3:6: attributes.a.type is no text");
    EXPECT_EQ(refusalOfAttribute("{\"type\": \"int\"}"),
              "p.ktproj:3:6: attributes.a.value is no whole number of 32 bits");
    EXPECT_EQ(refusalOfAttribute("{\"type\": \"strings\", \"value\": [\"x\",\n 5]}"),
              "p.ktproj:4:2: attributes.a.value[1] is neither a text nor {\"base64\": \"...\"}");
}

TEST(BrokenProject, ANameThatCannotBeOneIsRefused)
{
    const auto refusalOfName = [](const char* name) {
        return refusal("{\"formatVersion\": 1, \"attributes\": {\"" + QByteArray(name) +
                       "\": {\"type\": \"bool\", \"value\": true}}}");
    };
    EXPECT_NE(refusalOfName("_loading").find("attributes._loading is the host's own"), std::string::npos);
    EXPECT_NE(refusalOfName("base64:*").find("is no base64"), std::string::npos);
    EXPECT_NE(refusalOfName("\\ud800").find("is no valid Unicode"), std::string::npos);
    EXPECT_NE(
        refusal(
            "{\"formatVersion\": 1, \"attributes\": {"
            "\"a\": {\"type\": \"int\", \"value\": 1}, \"base64:YQ==\": {\"type\": \"int\", \"value\": 2}}}")
            .find("is there a second time"),
        std::string::npos);
}

TEST(BrokenProject, ANameIsShownOnOneLineOfSomeLength)
{
    const std::string line =
        refusal("{\"formatVersion\": 1, \"attributes\": {\"a\\nb" + QByteArray(5000, 'x') + "\": 1}}");
    EXPECT_NE(line.find("attributes.a?bxxx"), std::string::npos);
    EXPECT_LT(line.size(), 400u);
}

TEST(BrokenProject, AWrongSceneIsRefused)
{
    for (const char* scene :
         {"", "/a.wrl", "http://host/a.wrl", "../a.wrl", "b/../../a.wrl", "a\\u0000.wrl"}) {
        const std::string line = refusal("{\"formatVersion\": 1,\n\"scene\": \"" + QByteArray(scene) + "\"}");
        EXPECT_EQ(line.find("p.ktproj:2:10: scene "), 0u) << line;
    }
    EXPECT_EQ(refusal("{\"formatVersion\": 1, \"scene\": \"../a.wrl\", \"sceneIsOutside\": true}"), "");
}

TEST(BrokenProject, CutAnywhereItIsRefused)
{
    QFile file(KT_DATA_DIR "/version1.ktproj");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll().trimmed();
    ASSERT_EQ(refusal(whole), "");

    for (int length = 0; length < whole.size(); ++length)
        EXPECT_NE(refusal(whole.left(length)), "") << length;
}

TEST(BrokenProject, DeepNestingIsRefused)
{
    constexpr int levels = 50 * 1024 * 1024;
    EXPECT_NE(refusal(QByteArray(levels, '[')).find("too deeply nested"), std::string::npos);
    EXPECT_NE(refusal("{\"formatVersion\": 1, \"x\": " + QByteArray(levels, '{')), "");
    EXPECT_NE(refusal(QByteArray("{\"a\":").repeated(levels / 10)).find("too deeply nested"),
              std::string::npos);
}
