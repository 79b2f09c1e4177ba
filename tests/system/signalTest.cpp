// SIGTERM and SIGINT at any moment: the host ends by them, as shells expect it, and leaves nothing half done.
#include "tests/system/HostProcess.h"

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <algorithm>
#include <csignal>
#include <random>

using kt::test::HostProcess;
using kt::test::HostRun;

namespace
{

class Signal : public testing::Test
{
protected:
    Signal() { QFile::copy(kt::test::exampleScene("door.wrl"), folder.filePath("door.wrl")); }

    QString write(const char* name, const QByteArray& text) const
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }

    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder;
};

/// The child processes of a process.
QList<qint64> childrenOf(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/task/%1/children").arg(process));
    file.open(QIODevice::ReadOnly);
    QList<qint64> children;
    for (const QByteArray& word : file.readAll().split(' ')) {
        if (!word.isEmpty())
            children << word.toLongLong();
    }
    return children;
}

/// The words that make a program the first process of a container; empty where this system allows none.
QStringList containerWords()
{
    for (const QStringList& words :
         {QStringList{"unshare", "--fork", "--pid"},
          QStringList{"unshare", "--user", "--map-root-user", "--fork", "--pid"}}) {
        QProcess trial;
        trial.start(words.first(), words.mid(1) + QStringList("true"));
        if (trial.waitForFinished() && trial.exitStatus() == QProcess::NormalExit && trial.exitCode() == 0)
            return words;
    }
    return {};
}

/// A process that nobody has asked about yet counts as ended.
bool isAlive(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray stat = file.readAll();
    return !stat.isEmpty() && stat.at(stat.lastIndexOf(')') + 2) != 'Z';
}

constexpr int longEnough = 30000; // milliseconds

template <class Condition>
bool comesTrue(Condition&& condition)
{
    const QDeadlineTimer deadline(longEnough);
    while (!condition() && !deadline.hasExpired())
        sched_yield();
    return condition();
}

/// A file that its check is busy with until the check's limit.
QByteArray endlessScene()
{
    QByteArray text = "#VRML V2.0 utf8\nPROTO P0 [] { Group {} }\n";
    for (int i = 1; i <= 20; ++i) {
        const QByteArray below = QByteArray("P" + QByteArray::number(i - 1) + " {} ").repeated(4);
        text += "PROTO P" + QByteArray::number(i) + " [] { Group { children [ " + below + "] } }\n";
    }
    return text + "P20 {}";
}

class SignalAt : public Signal, public testing::WithParamInterface<const char*>
{
};

} // namespace

TEST_P(SignalAt, EndsTheHostByItAndLeavesNoFileOfAnotherName)
{
    if (QByteArray(GetParam()).startsWith("python") && !KT_HAS_SCRIPTING)
        GTEST_SKIP() << "this build runs no scripts";
    QStringList words{"--headless",
                      "--plugin",
                      KT_BUILD_DIR "/tests/plugins/faults/faults.so",
                      "--plugin",
                      KT_PLUGIN_FILE,
                      folder.filePath("door.wrl"),
                      "--run",
                      "0.1",
                      "--save",
                      folder.filePath("p.ktproj")};
    if (KT_HAS_SCRIPTING)
        words << "--script" << write("s.py", "pass\n");
    const QStringList before = files();

    for (const int signal : {SIGTERM, SIGINT}) {
        const HostRun ran =
            kt::test::runHost(words, {{"KT_FAULT", GetParam()}, {"KT_KIND", std::to_string(signal)}});

        EXPECT_EQ(ran.signal, signal) << ran.errors.toStdString();
        EXPECT_EQ(ran.errors, "");
        QStringList left = files();
        left.removeAll("p.ktproj");
        EXPECT_EQ(left, before);
    }
}

INSTANTIATE_TEST_SUITE_P(Moments, SignalAt,
                         testing::Values("static", "initPlugin", "changedScene", "loop", "save",
                                         "pythonStart", "getWidget", "destructor"),
                         [](const auto& moment) { return std::string(moment.param); });

TEST_F(Signal, EndsTheFirstProcessOfAContainerToo)
{
    const QStringList container = containerWords();
    if (container.isEmpty())
        GTEST_SKIP() << "this system makes no containers";
    for (const char* moment : {"loop", "save"}) {
        QProcess host;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("KT_FAULT", moment);
        environment.insert("KT_KIND", QString::number(SIGTERM));
        host.setProcessEnvironment(environment);
        host.start(container.first(),
                   container.mid(1) + QStringList{KT_BUILD_DIR "/bin/kthost", "--headless", "--plugin",
                                                  KT_BUILD_DIR "/tests/plugins/faults/faults.so",
                                                  folder.filePath("door.wrl"), "--run", "0.1", "--save",
                                                  folder.filePath("p.ktproj")});
        ASSERT_TRUE(host.waitForFinished(longEnough)) << moment;
        EXPECT_EQ(host.exitCode(), 128 + SIGTERM) << moment;
        EXPECT_EQ(host.readAllStandardError(), "");
        EXPECT_EQ(files(), QStringList("door.wrl")) << moment;
    }
}

TEST_F(Signal, WhileASceneIsCheckedEndsTheCheckToo)
{
    HostProcess host({"--headless", write("endless.wrl", endlessScene())}, {{"KTHOST_READ_SECONDS", "100"}});
    host.run();
    ASSERT_TRUE(host.waitForStarted());
    QList<qint64> programs; // that check scenes and decode images
    QList<qint64> readers;
    ASSERT_TRUE(comesTrue([&] {
        programs = childrenOf(host.processId());
        readers.clear();
        for (const qint64 program : programs)
            readers << childrenOf(program);
        return programs.size() == 2 && readers.size() == 1;
    }));

    ::kill(static_cast<pid_t>(host.processId()), SIGTERM);

    EXPECT_EQ(host.result().signal, SIGTERM);
    EXPECT_TRUE(comesTrue([&] {
        const QList<qint64> all = programs + readers;
        return std::none_of(all.begin(), all.end(), isAlive);
    }));
}

TEST_F(Signal, WhileAScriptRunsEndsTheHost)
{
    if (!KT_HAS_SCRIPTING)
        GTEST_SKIP() << "this build runs no scripts";
    const QString script =
        write("s.py", "import sys\nprint 'runs'\nsys.stdout.flush()\nwhile True:\n    pass\n");

    HostProcess ended({"--headless", "--script", script});
    ended.run();
    ASSERT_TRUE(ended.waitForOutput("runs"));
    ended.terminate();
    EXPECT_EQ(ended.result().signal, SIGTERM);

    HostProcess interrupted({"--headless", "--script", script});
    interrupted.run();
    ASSERT_TRUE(interrupted.waitForOutput("runs"));
    ::kill(static_cast<pid_t>(interrupted.processId()), SIGINT);
    EXPECT_EQ(interrupted.result().status, 130) << "the script's own interrupt";
}

TEST_F(Signal, WhileItSavesLeavesAWholeProjectAndNothingElse)
{
    if (!KT_HAS_SCRIPTING)
        GTEST_SKIP() << "this build runs no scripts";
    const QString project = folder.filePath("p.ktproj");
    const QString script =
        write("s.py", "import sys, ktHost\nktHost.save(sys.argv[1])\nprint 'saving'\nsys.stdout.flush()\n"
                      "while True:\n    ktHost.save(sys.argv[1])\n");
    std::mt19937 random(std::random_device{}());
    for (int i = 0; i < 8; ++i) {
        HostProcess host({"--headless", folder.filePath("door.wrl"), "--script", script, "--", project});
        host.run();
        ASSERT_TRUE(host.waitForOutput("saving"));
        host.waitForFinished(std::uniform_int_distribution<int>(1, 20)(random)); // which it does not
        host.terminate();

        EXPECT_EQ(host.result().signal, SIGTERM);
        EXPECT_EQ(files(), (QStringList{"door.wrl", "p.ktproj", "s.py"}));
        QFile file(project);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_TRUE(QJsonDocument::fromJson(file.readAll()).isObject());
    }
}
