// What can go wrong while the window is open: plug-ins that throw out of events, signals, a display that goes
// away, settings that have no place.
#include "tests/system/HostProcess.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <csignal>
#include <utility>

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
        return {{"XDG_CONFIG_HOME", place.toStdString()},
                {"XDG_DATA_HOME", folder.filePath("data").toStdString()},
                {"HOME", folder.path().toStdString()}};
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

    /// The scene, edited and not saved.
    QStringList wordsOfAnEdit(const QStringList& more) const
    {
        return words(QStringList{"--send", "select=Door", "--send", "comment=opens"} + more);
    }

    /// A project that a host left when it ended.
    void expectRescued(const QString& file) const
    {
        QFile rescued(file);
        ASSERT_TRUE(rescued.open(QIODevice::ReadOnly)) << file.toStdString();
        EXPECT_TRUE(rescued.readAll().contains("opens"));
    }

    void expectRescuedBeside(const HostRun& run, const char* why) const
    {
        const QString file = folder.filePath("door.rescued.ktproj");
        EXPECT_EQ(run.errors, "kthost: " + QByteArray(why) + "; what was not saved is in " +
                                  QFile::encodeName(file) + "\n");
        expectRescued(file);
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
    HostProcess host(wordsOfAnEdit({"--list", "--send", "faultDialog=x"}), environment);
    host.run();
    ASSERT_TRUE(host.waitForOutput("Fan"));

    display.takeAway();
    const HostRun run = host.result();

    EXPECT_EQ(run.status, 4);
    expectRescuedBeside(run, "window: the display went away");
}

TEST_F(WindowFault, WhatIsNotSavedGoesToTheUsersDataWhereTheScenesFolderIsGone)
{
    Display display;
    if (display.name().empty())
        GTEST_SKIP() << "there is no program here that makes displays";
    ASSERT_TRUE(QDir(folder.path()).mkdir("sub"));
    ASSERT_TRUE(QFile::rename(folder.filePath("door.wrl"), folder.filePath("sub/door.wrl")));
    auto environment = settingsIn(folder.filePath("settings"));
    environment["DISPLAY"] = display.name();
    HostProcess host(
        wordsOfAnEdit({"--list", "--send", "faultDialog=x"}).replaceInStrings("/door.wrl", "/sub/door.wrl"),
        environment);
    host.run();
    ASSERT_TRUE(host.waitForOutput("Fan"));
    ASSERT_TRUE(QDir(folder.filePath("sub")).removeRecursively());

    display.takeAway();
    const HostRun run = host.result();

    EXPECT_EQ(run.status, 4);
    const QString file = folder.filePath("data/kthost/kthost/door.rescued.ktproj");
    EXPECT_TRUE(run.errors.endsWith("; what was not saved is in " + QFile::encodeName(file) + "\n"))
        << run.errors.toStdString();
    expectRescued(file);
}

TEST_F(WindowFault, ASignalLeavesWhatIsNotSavedInAProjectOfItsOwn)
{
    for (const auto& [signal, name] : {std::pair{SIGTERM, "SIGTERM"}, {SIGINT, "SIGINT"}}) {
        const HostRun idle = kt::test::runHost(wordsOfAnEdit({}), faultAt("loop", std::to_string(signal)));
        EXPECT_EQ(idle.signal, signal);
        expectRescuedBeside(idle, (QByteArray(name) + ": the program was told to end").constData());
        ASSERT_TRUE(QFile::remove(folder.filePath("door.rescued.ktproj")));

        const HostRun inDialog = kt::test::runHost(wordsOfAnEdit({"--send", "faultDialog=x"}),
                                                   faultAt("dialog", std::to_string(signal)));
        EXPECT_EQ(inDialog.signal, signal);
        expectRescuedBeside(inDialog, (QByteArray(name) + ": the program was told to end").constData());
        ASSERT_TRUE(QFile::remove(folder.filePath("door.rescued.ktproj")));
    }
}

TEST_F(WindowFault, AnExceptionThatEndsItLeavesWhatIsNotSavedInAProjectOfItsOwn)
{
    const HostRun uncaught =
        kt::test::runHost(wordsOfAnEdit({"--send", "faultUncaught=x"}), faultAt("uncaught", "std"));
    EXPECT_EQ(uncaught.status, 70);
    expectRescuedBeside(uncaught, "an exception that nobody catches: no luck in uncaught");
    ASSERT_TRUE(QFile::remove(folder.filePath("door.rescued.ktproj")));

    const HostRun unexpected =
        kt::test::runHost(wordsOfAnEdit({"--send", "faultLog=x"}), settingsIn(folder.filePath("settings")));
    EXPECT_EQ(unexpected.status, 70);
    expectRescuedBeside(unexpected, "what was asked for failed: no log");
    ASSERT_TRUE(QFile::remove(folder.filePath("door.rescued.ktproj")));

    // The toolkit's event loop may let it out, or end the program there.
    const HostRun later = kt::test::runHost(wordsOfAnEdit({"--send", "faultLogLater=x"}),
                                            settingsIn(folder.filePath("settings")));
    EXPECT_EQ(later.status, 70);
    EXPECT_TRUE(later.errors.contains(": no log; what was not saved is in ")) << later.errors.toStdString();
    expectRescued(folder.filePath("door.rescued.ktproj"));
}

TEST_F(WindowFault, ARescueThatFailsInItsTurnDoesNotKeepItFromItsEnd)
{
    auto environment = settingsIn(folder.filePath("settings"));
    environment["KT_FAULT"] = "uncaught";
    environment["KT_KIND"] = "twice";
    const HostRun run = kt::test::runHost(wordsOfAnEdit({"--send", "faultUncaught=x"}), environment);

    EXPECT_EQ(run.status, 70);
    EXPECT_EQ(run.errors, "kthost: an exception that nobody catches: no luck in uncaught\n");
    EXPECT_EQ(files(), QStringList("door.wrl"));
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
