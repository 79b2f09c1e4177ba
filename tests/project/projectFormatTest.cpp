#include "host/project/ProjectFormat.h"
#include "host/project/AttributeValue.h"
#include "host/project/ProjectError.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>

namespace
{

using kthost::Project;
using kthost::ProjectFormat;
using Strings = std::vector<std::string>;

Project parsed(const QByteArray& document)
{
    return ProjectFormat::fromJson(document, "p.ktproj");
}

/// Through a file, once.
Project roundTrip(const Project& project)
{
    return parsed(ProjectFormat::toJson(project));
}

QJsonObject object(const QByteArray& document)
{
    return QJsonDocument::fromJson(document).object();
}

} // namespace

TEST(ProjectFormat, AnEmptyProjectHasItsVersion)
{
    EXPECT_EQ(object(ProjectFormat::toJson({})), object("{\"formatVersion\": 1, \"attributes\": {}}"));
    EXPECT_TRUE(parsed("{\"formatVersion\": 1}").attributes.empty());
    EXPECT_EQ(parsed("{\"formatVersion\": 1}").scene, "");
}

TEST(ProjectFormat, SceneAndAttributesComeBack)
{
    Project project;
    project.scene = "../sc\u00e9nes/a \"b\".wrl";
    project.isSceneOutside = true;
    project.attributes = {{"Animations", Strings{"Door", "", "Shift D", ""}}, {"count", 3}, {"", true}};

    const Project back = roundTrip(project);

    EXPECT_EQ(back.scene, project.scene);
    EXPECT_TRUE(back.isSceneOutside);
    ASSERT_EQ(back.attributes.size(), 3u);
    for (const auto& [name, value] : project.attributes)
        EXPECT_TRUE(kthost::AttributeValue::areSame(value, back.attributes.at(name))) << name;
}

TEST(ProjectFormat, AttributeNamesAreBytes)
{
    Project project;
    const Strings names{"\xff",         "base64:",   "base64:AAAA", std::string("a\0b", 3),
                        "\xEF\xBB\xBF", "T\xC3\xBCr"};
    for (std::size_t i = 0; i < names.size(); ++i)
        project.attributes[names[i]] = static_cast<int>(i);

    const Project back = roundTrip(project);

    ASSERT_EQ(back.attributes.size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(boost::any_cast<int>(back.attributes.at(names[i])), static_cast<int>(i));
}

TEST(ProjectFormat, AHundredRoundsChangeNothing)
{
    Project project;
    project.scene = "a.wrl";
    project.attributes["Animations"] =
        Strings{"T\xC3\xBCr \xF0\x9F\x9A\xAA", "e\xCC\x81 \xC3\xA9 \xEF\xBF\xBF \x7f\t", "\xff\xfe", "Alt 0"};
    project.attributes["exact"] = 0.1 + 0.2;
    const QByteArray first = ProjectFormat::toJson(project);

    QByteArray document = first;
    for (int i = 0; i < 100; ++i)
        document = ProjectFormat::toJson(parsed(document));

    EXPECT_EQ(document, first);
}

TEST(ProjectFormat, UnknownKeysAreHandedOn)
{
    const QByteArray document =
        R"({"formatVersion": 1, "window": {"w": [1, 2.5, null, "x"]}, "scene": "a.wrl",
        "attributes": {"fov": {"type": "double", "value": 1, "unit": "radians"}}, "": false})";

    EXPECT_EQ(object(ProjectFormat::toJson(parsed(document))), object(document));
}

TEST(ProjectFormat, AByteOrderMarkAtTheBeginningOfATextIsKept)
{
    const QByteArray document =
        "\xEF\xBB\xBF{\"formatVersion\": 1, \"theirs\": [\"\xEF\xBB\xBFraw\", \"\\ufeffescaped\"],"
        "\"attributes\": {\"a\": {\"type\": \"string\", \"value\": \"\xEF\xBB\xBFx\"}}}";
    const Project project = roundTrip(roundTrip(parsed(document)));

    EXPECT_EQ(project.unknownKeys.value("theirs").toArray(),
              (QJsonArray{QString(QChar(0xfeff)) + "raw", QString(QChar(0xfeff)) + "escaped"}));
    EXPECT_EQ(boost::any_cast<std::string>(project.attributes.at("a")), "\xEF\xBB\xBFx");
}

TEST(ProjectFormat, AttributesOfUnknownTypesAreHandedOn)
{
    const QByteArray document =
        R"({"formatVersion": 1, "attributes": {"m": {"type": "matrix", "value": [1], "more": 0}, "n": {"type": ""}}})";
    const Project project = parsed(document);

    EXPECT_TRUE(project.attributes.empty());
    EXPECT_EQ(project.unknownAttributes.keys(), (QStringList{"m", "n"}));
    EXPECT_EQ(object(ProjectFormat::toJson(project)), object(document));
}

TEST(ProjectFormat, ANewValueReplacesOneOfAnUnknownType)
{
    Project project =
        parsed(R"({"formatVersion": 1, "attributes": {"m": {"type": "matrix", "value": [1]}}})");
    project.attributes["m"] = 5;

    EXPECT_EQ(object(ProjectFormat::toJson(project)),
              object(R"({"formatVersion": 1, "attributes": {"m": {"type": "int", "value": 5}}})"));
}

TEST(ProjectFormat, WhatStoodBesideAValueGoesWithTheAttribute)
{
    Project project =
        parsed(R"({"formatVersion": 1, "attributes": {"a": {"type": "int", "value": 1, "unit": "m"}}})");
    project.attributes.clear();

    EXPECT_EQ(object(ProjectFormat::toJson(project)), object(R"({"formatVersion": 1, "attributes": {}})"));
}
