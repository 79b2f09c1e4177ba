// What docs/projects.md shows to integrators is a project as it is read here.
#include "host/project/ProjectFormat.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{

using Strings = std::vector<std::string>;

/// The first block of the document that is marked as JSON.
QByteArray example()
{
    QFile file(QStringLiteral(KT_DOCS_DIR "/projects.md"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray text = file.readAll();
    const int begin = text.indexOf("```json\n") + 8;
    return text.mid(begin, text.indexOf("```", begin) - begin);
}

} // namespace

TEST(Documents, TheExampleIsReadAsItSays)
{
    const kthost::Project project = kthost::ProjectFormat::fromJson(example(), "projects.md");

    EXPECT_EQ(project.scene, "scenes/courtyard.wrl");
    EXPECT_EQ(boost::any_cast<Strings>(project.attributes.at("Animations")),
              (Strings{"DoorOpen", "front door", "Shift D", "", "Fan", "", " 1", "Ctrl 1"}));
    EXPECT_EQ(boost::any_cast<double>(project.attributes.at("Exposure")), 0.75);
    EXPECT_EQ(project.unknownKeys.keys(), QStringList{"author"});
}

TEST(Documents, TheExampleIsWhatASaveWrites)
{
    const QByteArray text = example();
    EXPECT_EQ(kthost::ProjectFormat::toJson(kthost::ProjectFormat::fromJson(text, "projects.md")), text);
}
