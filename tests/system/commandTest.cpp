// The command line of the built host.
#include "tests/system/HostProcess.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using kt::test::exampleScene;
using kt::test::HostRun;
using kt::test::runHeadless;
using kt::test::runHost;

namespace
{

void expectFailure(const HostRun& run, int status, const char* word)
{
    EXPECT_EQ(run.status, status);
    ASSERT_EQ(run.errorLines().size(), 1) << run.errors.toStdString();
    EXPECT_TRUE(run.errorLines().first().startsWith("kthost: ")) << run.errors.toStdString();
    EXPECT_TRUE(run.errorLines().first().contains(word)) << run.errors.toStdString();
}

} // namespace

TEST(Command, VersionAndHelpGoToTheStandardOutput)
{
    const HostRun version = runHost({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.output, "kthost 10.0.0\n");

    const HostRun help = runHost({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_TRUE(help.output.startsWith("Usage: ")) << help.output.toStdString();
    EXPECT_TRUE(help.errors.isEmpty());
}

TEST(Command, WithoutAnythingToDoItEnds)
{
    const HostRun run = runHeadless({});

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_TRUE(run.output.isEmpty());
    EXPECT_TRUE(run.errors.isEmpty()) << run.errors.toStdString();
}

TEST(Command, ArgumentsThatAreOffEndWithStatusTwo)
{
    expectFailure(runHost({"--no-such-option"}), 2, "no-such-option");
    expectFailure(runHeadless({"--run", "soon"}), 2, "soon");
    expectFailure(runHeadless({"--send", "noSuchMessage=Door"}), 2, "noSuchMessage");
}

TEST(Command, AFileThatCannotBeReadEndsWithStatusThree)
{
    expectFailure(runHeadless({"/no/such/scene.wrl"}), 3, "/no/such/scene.wrl");
    expectFailure(runHeadless({QStringLiteral(KT_EXAMPLES_DIR), "--list"}), 3, "examples");
}

TEST(Command, WhatComesBeforeAFailureIsDone)
{
    const QString belowAFile = exampleScene("door.wrl") + "/frames";
    const HostRun run = runHeadless({exampleScene("door.wrl"), "--list", "--frames", belowAFile, "--dump"});

    EXPECT_EQ(run.status, 3);
    EXPECT_TRUE(run.lines().contains("Door"));
    EXPECT_FALSE(run.output.contains("cycleInterval")) << "what comes after a failure is not done";
}

TEST(Command, APluginThatWasNamedAndCannotBeLoadedEndsWithStatusSix)
{
    expectFailure(runHeadless({"--plugin", "/no/such/plugin.so", "--list"}), 6, "/no/such/plugin.so");
    expectFailure(runHeadless({"--plugin", QStringLiteral(KT_EXAMPLES_DIR "/scenes/door.wrl")}), 6,
                  "door.wrl");
}

TEST(Command, NamedPluginsTakeThePlaceOfTheInstalledOnes)
{
    QTemporaryDir empty;

    const HostRun without = runHeadless({exampleScene("door.wrl"), "--plugin-dir", empty.path(), "--list"});
    EXPECT_EQ(without.status, 0) << without.errors.toStdString();
    EXPECT_TRUE(without.output.isEmpty());

    const HostRun with = runHeadless({exampleScene("door.wrl"), "--plugin", KT_PLUGIN_FILE, "--list"});
    EXPECT_EQ(with.status, 0) << with.errors.toStdString();
    EXPECT_TRUE(with.lines().contains("Door"));
}

TEST(Command, APluginFolderWithABadLibraryIsLoadedPastIt)
{
    QTemporaryDir folder;
    QFile bad(folder.filePath("a.so"));
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.write("not a library");
    bad.close();
    ASSERT_TRUE(QFile::link(KT_PLUGIN_FILE, folder.filePath("b.so")));

    const HostRun run = runHeadless({exampleScene("door.wrl"), "--plugin-dir", folder.path(), "--list"});

    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.lines().contains("Door"));
    ASSERT_EQ(run.errorLines().size(), 1) << run.errors.toStdString();
    EXPECT_TRUE(run.errorLines().first().contains("a.so"));
}

TEST(Command, APluginFolderThatIsNotThereEndsWithStatusThree)
{
    expectFailure(runHeadless({"--plugin-dir", "/no/such/folder", "--list"}), 3, "/no/such/folder");
}

TEST(Command, ListsInRegistryOrderWhatTheSceneHolds)
{
    const HostRun run = runHeadless({exampleScene("door.wrl"), "--list"});

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.lines(), (QStringList{"Door", "Fan"}));
    EXPECT_TRUE(run.errors.isEmpty()) << run.errors.toStdString();
}

TEST(Command, AnUnknownAnimationIsPassedOverSilently)
{
    const HostRun run = runHeadless(
        {exampleScene("door.wrl"), "--send", "animationStart=Nobody", "--send", "animationReset="});

    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.errors.isEmpty()) << run.errors.toStdString();
}

TEST(Command, TwoRunsGiveTheSameNumbersToTheBit)
{
    const QStringList words{
        exampleScene("courtyard.wrl"), "--run", "1.37", "--fps", "29.97", "--dump", "--run", "2", "--dump"};

    const HostRun first = runHeadless(words);
    const HostRun second = runHeadless(words);

    EXPECT_EQ(first.status, 0) << first.errors.toStdString();
    EXPECT_FALSE(first.output.isEmpty());
    EXPECT_EQ(first.output, second.output);
}
