// A plug-in that throws in any of the host's calls: the host says so in one line and goes on, with the other
// plug-ins, to the end of what it was asked for.
#include "tests/system/HostProcess.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using kt::test::HostRun;

namespace
{

const char* const faultsFolder = KT_BUILD_DIR "/tests/plugins/faults";

struct Call
{
    const char* name;
    const char* told; ///< The words before what was thrown; FILE stands for the library's path.
};

void PrintTo(const Call& call, std::ostream* out)
{
    *out << call.name;
}

class PluginFaults : public testing::Test
{
protected:
    PluginFaults()
    {
        QFile::copy(kt::test::exampleScene("door.wrl"), folder.filePath("door.wrl"));
        QFile script(folder.filePath("s.py"));
        EXPECT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("import ktHost\nktHost.open('" + folder.filePath("p.ktproj").toUtf8() +
                     "')\nprint 'script'\n");
    }

    /// Everything that leads to one of the calls, with the plug-in beside the real one.
    HostRun run(const char* call, const char* kind) const
    {
        const QString plugins = QStringLiteral(KT_BUILD_DIR "/lib/kthost/plugins");
        QStringList words{"--headless",   "--plugin-dir", faultsFolder,
                          "--plugin-dir", plugins,        folder.filePath("door.wrl")};
        const bool isRefused = QByteArrayList{"version", "initPlugin", "constructor"}.contains(call);
        for (const char* message : {"fault", "faultKey", "faultCore"}) {
            if (!isRefused)
                words << "--send" << QStringLiteral("%1=x").arg(QLatin1String(message));
        }
        words << "--run"
              << "0.2"
              << "--send"
              << "animationStart=Faulty";
        words << "--save" << folder.filePath("p.ktproj") << "--list";
        if (KT_HAS_SCRIPTING)
            words << "--script" << folder.filePath("s.py");
        return kt::test::runHost(words, {{"KT_FAULT", call}, {"KT_KIND", kind}});
    }

    /// And nothing else: each line begins and ends like that.
    static void expectTold(const HostRun& ran, const char* told, const QString& what)
    {
        const QString begin = QString(told).replace("FILE", QString(faultsFolder) + "/faults.so");
        EXPECT_FALSE(ran.errorLines().isEmpty()) << "nothing was told";
        for (const QString& line : ran.errorLines())
            EXPECT_TRUE(line.startsWith(begin) && line.endsWith(what)) << line.toStdString();
    }

    void expectDone(const HostRun& ran) const
    {
        EXPECT_EQ(ran.status, 0) << ran.errors.toStdString();
        EXPECT_TRUE(ran.lines().contains("Door")) << "the other plug-in works";
        EXPECT_TRUE(QFile::exists(folder.filePath("p.ktproj")));
        EXPECT_TRUE(!KT_HAS_SCRIPTING || ran.lines().contains("script"));
    }

    QTemporaryDir folder;
};

class PluginFault : public PluginFaults, public testing::WithParamInterface<Call>
{
};

} // namespace

TEST_P(PluginFault, AnExceptionIsToldOfAndTheRestIsDone)
{
    if (QString(GetParam().name).startsWith("python") && !KT_HAS_SCRIPTING)
        GTEST_SKIP() << "this build runs no scripts";

    const HostRun known = run(GetParam().name, "std");
    expectTold(known, GetParam().told, QStringLiteral("no luck in %1").arg(GetParam().name));
    expectDone(known);

    const HostRun unknown = run(GetParam().name, "other");
    expectTold(unknown, GetParam().told, "an unknown exception");
    expectDone(unknown);
}

INSTANTIATE_TEST_SUITE_P(
    Calls, PluginFault,
    testing::Values(Call{"version", "kthost: plug-in FILE: it threw"},
                    Call{"initPlugin", "kthost: plug-in FILE: it threw"},
                    Call{"constructor", "kthost: plug-in FILE: it threw"},
                    Call{"init", "FILE: init: it threw"}, Call{"loop", "Fault: loop: "},
                    Call{"update", "Fault: update: "}, Call{"cleared", "Fault: message 16 failed"},
                    Call{"changedScene", "Fault: message 32768 failed"},
                    Call{"load", "Fault: message 8192 failed"},
                    Call{"callback", "fault: a callback of faults.so failed"},
                    Call{"key", "key press: a callback of faults.so failed"},
                    Call{"pythonStart", "interpreter start: a callback of faults.so failed"},
                    Call{"pythonEnd", "interpreter end: a callback of faults.so failed"},
                    Call{"getWidget", "Fault: getWidget: "}),
    [](const auto& call) { return call.param.name; });

TEST_F(PluginFaults, OneThatFailsToSayWhatItKeepsLeavesASavedProjectAndAnError)
{
    const HostRun ran = run("save", "std");

    EXPECT_EQ(ran.status, 3);
    ASSERT_EQ(ran.errorLines().size(), 2) << ran.errors.toStdString();
    EXPECT_EQ(ran.errorLines()[0], "Fault: message 8192 failed: no luck in save") << "told once";
    EXPECT_EQ(ran.errorLines()[1],
              "kthost: " + folder.filePath("p.ktproj") + ": saved, but a module failed to say what it keeps");
    QFile project(folder.filePath("p.ktproj"));
    ASSERT_TRUE(project.open(QIODevice::ReadOnly));
    EXPECT_TRUE(project.readAll().contains("Animations")) << "what the other plug-in keeps";
}

TEST_F(PluginFaults, ASensorOfAPluginsOwnClassFailsAlone)
{
    const HostRun ran = run("changed", "std");

    expectDone(ran);
    // Once in the frame loop, however many frames, and in the operation of the other plug-in.
    ASSERT_EQ(ran.errorLines().size(), 2) << ran.errors.toStdString();
    EXPECT_EQ(ran.errorLines()[0], "time sensor Faulty: no luck in changed");
    EXPECT_EQ(ran.errorLines()[1],
              "animationStart: a callback of libktAnimation.so failed: no luck in changed");
}

TEST_F(PluginFaults, OneThatCannotBeCaughtEndsTheProgramInOneLine)
{
    const HostRun loading = run("static", "std");
    EXPECT_EQ(loading.status, 6);
    EXPECT_EQ(loading.errorLines().size(), 1);
    expectTold(loading, "kthost: plug-in FILE: it threw while it was loaded: ", "no luck in static");
}

TEST_F(PluginFaults, OneThatCannotBeCaughtInACallEndsTheProgramInOneLineToo)
{
    const HostRun ran = kt::test::runHost({"--headless", "--plugin-dir", faultsFolder, "--send",
                                           "faultUncaught=x", "--save", folder.filePath("p.ktproj")},
                                          {{"KT_FAULT", "uncaught"}, {"KT_KIND", "std"}});

    EXPECT_EQ(ran.status, 70);
    EXPECT_EQ(ran.errors, "kthost: an exception that nobody catches: no luck in uncaught\n");
    EXPECT_FALSE(QFile::exists(folder.filePath("p.ktproj")));
}

TEST_F(PluginFaults, OneThatIsUnloadedChangesNothingOfWhatWasDone)
{
    const HostRun unloading = run("destructor", "other");

    expectDone(unloading);
    EXPECT_EQ(unloading.errorLines().size(), 1);
    expectTold(unloading, "kthost: plug-in FILE: it threw while it was unloaded: ", "an unknown exception");
}
