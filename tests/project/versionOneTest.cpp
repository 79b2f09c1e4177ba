// A file of format version 1 as it was written then. Whatever the format becomes, this file is read like
// this.
#include "host/project/AttributeValue.h"
#include "host/project/ProjectFile.h"
#include "host/project/ProjectFormat.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <cstring>
#include <limits>

namespace
{

using kthost::Project;
using Strings = std::vector<std::string>;

const char* const file = KT_DATA_DIR "/version1.ktproj";

template <class T>
T attribute(const Project& project, const std::string& name)
{
    const auto found = project.attributes.find(name);
    const T* value = found == project.attributes.end() ? nullptr : boost::any_cast<T>(&found->second);
    EXPECT_NE(value, nullptr) << name;
    return value ? *value : T();
}

} // namespace

TEST(VersionOne, TheSceneIsRelativeToTheProject)
{
    const Project project = kthost::ProjectFile::read(file);

    EXPECT_EQ(project.scene, "scenes/court yard.wrl");
    EXPECT_FALSE(project.isSceneOutside);
}

TEST(VersionOne, AttributesHaveTheirTypesAndBytes)
{
    const Project project = kthost::ProjectFile::read(file);

    EXPECT_EQ(project.attributes.size(), 9u);
    EXPECT_EQ(attribute<Strings>(project, "Animations"),
              (Strings{"DoorOpen", "front door", "Shift D", "", "F\xC3\xA4n",
                       "L\xC3\xBC"
                       "fter: \"schnell\"\n\x01 \\ \xE6\x9D\xB1 \xF0\x9F\x9A\xAA e\xCC\x81",
                       " 1", "Ctrl 1"}));
    EXPECT_EQ(attribute<bool>(project, "\xFFname"), false);
    EXPECT_EQ(attribute<bool>(project, "grid"), true);
    EXPECT_EQ(attribute<std::string>(project, "bytes"), std::string("\0\xFF\x80", 3));
    EXPECT_EQ(attribute<std::string>(project, "title"), "Courtyard");
    EXPECT_EQ(attribute<double>(project, "exact"), 0.1);
    EXPECT_EQ(attribute<int>(project, "lowest"), std::numeric_limits<int>::min());
    EXPECT_EQ(attribute<Strings>(project, "spare"), Strings());
    const double nothing = attribute<double>(project, "nothing");
    const std::uint64_t expected = 0x7ff8000000000001;
    EXPECT_EQ(std::memcmp(&nothing, &expected, sizeof nothing), 0);
}

TEST(VersionOne, ASaveKeepsAllOfItKnownOrNot)
{
    QFile original(file);
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));

    const QByteArray saved = kthost::ProjectFormat::toJson(kthost::ProjectFile::read(file));

    EXPECT_EQ(QJsonDocument::fromJson(saved), QJsonDocument::fromJson(original.readAll()));
}
