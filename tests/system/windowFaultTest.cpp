// What can go wrong while the window is open: plug-ins that throw out of events, signals, a display that goes
// away, settings that have no place.
#include "tests/system/HostProcess.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <csignal>

using kt::test::HostProcess;
using kt::test::HostRun;

namespace
{

/// A display of its own, which can be taken away.
class Display
{
public:
    Display()
    {
        const QString program = QStandardPaths::findExecutable("Xvfb");
        if (program.isEmpty())
            return;
        _server.setStandardErrorFile(QProcess::nullDevice());
        _server.start(program, {"-displayfd", "1", "-screen", "0", "1280x1024x24"});
        if (_server.waitForReadyRead())
            _name = ":" + _server.readLine().trimmed().toStdString();
    }

    ~Display() { takeAway(); }

    void takeAway()
    {
        _server.kill();
        _server.waitForFinished();
    }

    /// Empty where there is none.
    const std::string& name() const { return _name; }

private:
    QProcess _server;
    std::string _name;
};

class WindowFault : public testing::Test
{
protected:
    WindowFault() { QFile::copy(kt::test::exampleScene("door.wrl"), folder.filePath("door.wrl")); }

    std::map<std::string, std::string> settingsIn(const QString& place) const
    {
        return {{"XDG_CONFIG_HOME", place.toStdString()}, {"HOME", folder.path().toStdString()}};
    }

    std::map<std::string, std::string> faultAt(const char* call, const std::string& kind) const
    {
        auto environment = settingsIn(folder.filePath("settings"));
        environment["KT_FAULT"] = call;
        environment["KT_KIND"] = kind;
        return environment;
    }

    /// The scene, with the real plug-in, the one that fails, and the one that edits.
    QStringList words(const QStringList& more) const
    {
        return QStringList{"--plugin",
                           KT_PLUGIN_FILE,
                           "--plugin",
                           KT_BUILD_DIR "/tests/plugins/faults/faults.so",
                           "--plugin",
                           KT_BUILD_DIR "/tests/plugins/hands.so",
                           folder.filePath("door.wrl")} +
               more;
    }

    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder;
};

} // namespace

TEST_F(WindowFault, AnEventThatAPluginThrowsOutOfIsToldOfOnceAndTheWindowLivesOn)
{
    for (const char* call : {"paint", "idle"}) {
        HostProcess host(words({}), faultAt(call, "std"));
        host.run();
        host.setReadChannel(QProcess::StandardError);
        ASSERT_TRUE(host.waitForReadyRead(kt::test::longestRun));
        EXPECT_FALSE(host.waitForFinished(200)) << "it went on";
        host.terminate();
        const HostRun run = host.result();

        EXPECT_EQ(run.signal, SIGTERM);
        ASSERT_EQ(run.errorLines().size(), 1) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.startsWith("faults.so: ")) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.contains(QByteArray("no luck in ") + call)) << run.errors.toStdString();
    }
}

TEST_F(WindowFault, SignalsEndItWhileItWaitsAndWhileADialogIsOpen)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        EXPECT_EQ(kt::test::runHost(words({}), faultAt("idle", std::to_string(signal))).signal, signal);
        const HostRun inDialog =
            kt::test::runHost(words({"--send", "faultDialog=x"}), faultAt("dialog", std::to_string(signal)));
        EXPECT_EQ(inDialog.signal, signal) << inDialog.errors.toStdString();
    }
    EXPECT_EQ(files(), QStringList("door.wrl"));
}

TEST_F(WindowFault, ADisplayThatGoesAwayEndsItInOneLine)
{
    Display display;
    if (display.name().empty())
        GTEST_SKIP() << "there is no program here that makes displays";
    auto environment = settingsIn(folder.filePath("settings"));
    environment["DISPLAY"] = display.name();
    HostProcess host(words({"--list"}), environment);
    host.run();
    ASSERT_TRUE(host.waitForOutput("Fan"));

    display.takeAway();
    const HostRun run = host.result();

    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.errors.toStdString(), "kthost: window: the display went away\n");
    EXPECT_EQ(files(), QStringList("door.wrl"));
}

TEST_F(WindowFault, WhatIsNotSavedWhenTheDisplayGoesAwayIsInAProjectOfItsOwn)
{
    Display display;
    if (display.name().empty())
        GTEST_SKIP() << "there is no program here that makes displays";
    auto environment = settingsIn(folder.filePath("settings"));
    environment["DISPLAY"] = display.name();
    HostProcess host(
        words({"--send", "select=Door", "--send", "comment=opens", "--list", "--send", "faultDialog=x"}),
        environment);
    host.run();
    ASSERT_TRUE(host.waitForOutput("Fan"));

    display.takeAway();
    const HostRun run = host.result();

    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.errors, "kthost: window: the display went away; what was not saved is in " +
                              QFile::encodeName(folder.filePath("door.rescued.ktproj")) + "\n");
    QFile rescued(folder.filePath("door.rescued.ktproj"));
    ASSERT_TRUE(rescued.open(QIODevice::ReadOnly));
    EXPECT_TRUE(rescued.readAll().contains("opens"));
}

TEST_F(WindowFault, WithoutAPlaceForSettingsItRunsAllTheSame)
{
    for (const QString& place : {folder.filePath("door.wrl"), QStringLiteral("/dev/null/none")}) {
        HostProcess host(words({"--list"}), settingsIn(place));
        host.run();
        EXPECT_TRUE(host.waitForOutput("Fan"));
        host.terminate();
        const HostRun run = host.result();
        EXPECT_EQ(run.signal, SIGTERM);
        EXPECT_EQ(run.errors.toStdString(), "");
    }
}
