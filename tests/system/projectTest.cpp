// Settings travel with the project: one kthost saves them, another one opens them.
#include "tests/support/Effort.h"
#include "tests/support/ProcessLimit.h"
#include "tests/system/HostProcess.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

using kt::test::HostRun;

namespace
{

class ProjectTest : public testing::Test
{
protected:
    ProjectTest() { QFile::copy(kt::test::exampleScene("door.wrl"), path("door.wrl")); }

    QString path(const char* name) const { return QDir(folder.path()).filePath(name); }

    /// Without a window, with the plug-in and the hands.
    HostRun run(const QStringList& words) const
    {
        return kt::test::runHeadless(
            QStringList{"--plugin", KT_PLUGIN_FILE, "--plugin", KT_BUILD_DIR "/tests/plugins/hands.so"} +
            words);
    }

    void expectDone(const QStringList& words) const
    {
        const HostRun done = run(words);
        EXPECT_EQ(done.status, 0) << done.errors.toStdString();
        EXPECT_TRUE(done.errors.isEmpty()) << done.errors.toStdString();
    }

    void expectRefused(const HostRun& refused, const char* word) const
    {
        EXPECT_EQ(refused.status, 3) << word;
        ASSERT_EQ(refused.errorLines().size(), 1) << refused.errors.toStdString();
        EXPECT_TRUE(refused.errorLines().first().startsWith("kthost: ")) << refused.errors.toStdString();
        EXPECT_TRUE(refused.errorLines().first().contains(word)) << refused.errors.toStdString();
    }

    QByteArray bytes(const char* name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll();
    }

    void put(const char* name, const QByteArray& text) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }

    void putProject(const char* name, const QJsonArray& animations) const
    {
        put(name,
            QJsonDocument(
                QJsonObject{{"formatVersion", 1},
                            {"scene", "door.wrl"},
                            {"attributes", QJsonObject{{"Animations", QJsonObject{{"type", "strings"},
                                                                                  {"value", animations}}}}}})
                .toJson());
    }

    QJsonArray animations(const char* name) const
    {
        const QJsonObject attributes = QJsonDocument::fromJson(bytes(name)).object()["attributes"].toObject();
        return attributes["Animations"].toObject()["value"].toArray();
    }

    QTemporaryDir folder;
};

TEST_F(ProjectTest, WhatTheUserSetIsThereInTheNextRun)
{
    expectDone({path("door.wrl"), "--send", "select=Door", "--send", "comment=front door", "--send",
                "startModifier=Shift", "--send", "startKey=D", "--send", "stopModifier=Shift", "--send",
                "stopKey=E", "--save", path("p.ktproj")});
    EXPECT_EQ(animations("p.ktproj"),
              (QJsonArray{"Door", "front door", "Shift D", "Shift E", "Fan", "", "", ""}));

    expectDone({path("p.ktproj"), "--save", path("q.ktproj")});
    EXPECT_EQ(bytes("q.ktproj"), bytes("p.ktproj"));
}

TEST_F(ProjectTest, HotkeysFireInTheNextRun)
{
    putProject("p.ktproj", {"Door", "", "Shift D", "Shift E", "Fan", "", "", ""});
    const auto isActive = [](const QString& line) {
        return QJsonDocument::fromJson(line.toUtf8()).object()["active"].toBool();
    };

    const QStringList lines =
        run({path("p.ktproj"), "--dump", "--send", "press=D", "--dump", "--send", "press=E", "--dump"})
            .lines();

    ASSERT_EQ(lines.size(), 6);
    EXPECT_FALSE(isActive(lines[0]));
    EXPECT_TRUE(isActive(lines[2]));
    EXPECT_FALSE(isActive(lines[4]));
}

TEST_F(ProjectTest, TheSavedOrderComesBackAndNewAnimationsFollow)
{
    putProject("p.ktproj", {"Fan", "", "", ""});
    EXPECT_EQ(run({path("p.ktproj"), "--list"}).lines(), (QStringList{"Fan", "Door"}));

    putProject("q.ktproj", {"Fan", "", "", "", "Door", "", "", ""});
    EXPECT_EQ(run({path("q.ktproj"), "--list"}).lines(), (QStringList{"Fan", "Door"}));
}

TEST_F(ProjectTest, TextsOfAnyLanguageSurviveManyRounds)
{
    const QString text =
        QString::fromUtf8("T\xC3\xBCr e\xCC\x81 \xE6\x9D\xB1 \xF0\x9F\x9A\xAA \xD7\xA9 \xEF\xBF\xBF "
                          "\t\"\\/\x7F\xE2\x80\xAE");
    putProject("a.ktproj", {"Door", text, "", "", "Fan", "", "", ""});
    QStringList words{path("a.ktproj"), "--save", path("a.ktproj")};
    const QByteArray first = (expectDone(words), bytes("a.ktproj"));

    for (int i = 0; i < kt::test::tries(100); ++i)
        ASSERT_EQ(run(words).status, 0) << i;

    EXPECT_EQ(bytes("a.ktproj"), first);
    EXPECT_EQ(animations("a.ktproj").at(1).toString(), text);
}

TEST_F(ProjectTest, OddSettingsAreReadAsFarAsTheyGo)
{
    putProject("six.ktproj", {"Door", "six", "", "", "Fan", "lost"});
    expectDone({path("six.ktproj"), "--save", path("six.ktproj")});
    EXPECT_EQ(animations("six.ktproj"), (QJsonArray{"Door", "six", "", "", "Fan", "", "", ""}));

    putProject("twice.ktproj", {"Door", "first", "", "", "Door", "second", "", ""});
    expectDone({path("twice.ktproj"), "--save", path("twice.ktproj")});
    EXPECT_EQ(animations("twice.ktproj"), (QJsonArray{"Door", "first", "", "", "Fan", "", "", ""}));

    putProject("empty.ktproj", {});
    EXPECT_EQ(run({path("empty.ktproj"), "--list"}).lines(), (QStringList{"Door", "Fan"}));

    put("none.ktproj", R"({"formatVersion": 1, "scene": "door.wrl"})");
    EXPECT_EQ(run({path("none.ktproj"), "--list"}).lines(), (QStringList{"Door", "Fan"}));

    put("other.ktproj", R"({"formatVersion": 1, "scene": "door.wrl",
        "attributes": {"Animations": {"type": "string", "value": "Door"}}})");
    const HostRun other = run({path("other.ktproj"), "--list"});
    EXPECT_EQ(other.status, 0);
    EXPECT_EQ(other.lines(), (QStringList{"Door", "Fan"}));
    EXPECT_TRUE(other.errors.contains("Attribute 'Animations' has wrong type")) << other.errors.toStdString();
}

TEST_F(ProjectTest, WithoutThePluginItsSettingsAreKept)
{
    putProject("p.ktproj", {"Door", "kept", "Shift D", ""});

    const HostRun saved = kt::test::runHeadless(
        {"--plugin", KT_BUILD_DIR "/tests/plugins/hands.so", path("p.ktproj"), "--save", path("q.ktproj")});

    EXPECT_EQ(saved.status, 0) << saved.errors.toStdString();
    EXPECT_EQ(animations("q.ktproj"), animations("p.ktproj"));
}

TEST_F(ProjectTest, BrokenOnesAreRefusedInOneLine)
{
    put("notJson.ktproj", "#VRML V2.0 utf8\n");
    expectRefused(run({path("notJson.ktproj")}), "notJson.ktproj:1:");
    put("newer.ktproj", "{\"formatVersion\":\n2}");
    expectRefused(run({path("newer.ktproj")}), "newer.ktproj:2:1: formatVersion is 2");
    put("type.ktproj",
        R"({"formatVersion": 1, "attributes": {"Animations": {"type": "strings", "value": [1]}}})");
    expectRefused(run({path("type.ktproj")}), "attributes.Animations.value[0]");
    for (const char* scene : {"/etc/passwd", "../door.wrl", "http://localhost/door.wrl", "none.wrl"}) {
        put("scene.ktproj", "{\"formatVersion\": 1, \"scene\": \"" + QByteArray(scene) + "\"}");
        expectRefused(run({path("scene.ktproj")}), "scene");
    }
    put("folder.ktproj", R"({"formatVersion": 1, "scene": "."})");
    expectRefused(run({path("folder.ktproj")}), "it is a folder");
    expectRefused(run({path("missing.ktproj")}), "missing.ktproj");
}

TEST_F(ProjectTest, CutAnywhereItIsRefused)
{
    QJsonArray many;
    for (int i = 0; i < 60; ++i)
        many << QStringLiteral("Animation%1").arg(i) << "comment"
             << "Shift A"
             << "";
    putProject("whole.ktproj", many);
    const QByteArray whole = bytes("whole.ktproj");

    const int step = whole.size() / kt::test::tries(50);
    for (int length = 0; length < whole.size() - 2; length += step) {
        put("cut.ktproj", whole.left(length));
        expectRefused(run({path("cut.ktproj")}), "cut.ktproj:");
    }
}

TEST_F(ProjectTest, AHundredMegabytesOfNestingAreRefused)
{
    put("deep.ktproj", QByteArray(100 * 1024 * 1024, '['));
    expectRefused(run({path("deep.ktproj")}), "deep.ktproj");
    put("deep.ktproj", QByteArray(50 * 1024 * 1024, '['));
    expectRefused(run({path("deep.ktproj")}), "nested");
}

TEST_F(ProjectTest, ASaveThatFailsEndsWithStatusThreeAndKeepsTheOldFile)
{
    expectRefused(run({path("door.wrl"), "--save", path("none/p.ktproj")}), "No such file or directory");

    put("p.ktproj", "old");
    {
        const kt::test::FileSizeLimit limit(100, SIG_DFL);
        expectRefused(run({path("door.wrl"), "--save", path("p.ktproj")}), "File too large");
    }
    EXPECT_EQ(bytes("p.ktproj"), "old");
}

} // namespace
