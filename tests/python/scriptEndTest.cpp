// How scripts end, and what the program makes of it.
#include "tests/python/ScriptRun.h"

#include <csignal>

#include <unistd.h>

namespace
{

class ScriptEnd : public kt::test::ScriptRun
{
protected:
    /// Runs the script, and sends the interrupt of Ctrl-C as soon as it has printed a line.
    kt::test::HostRun runInterrupted(const char* text) const
    {
        QProcess process;
        process.start(QStringLiteral(KT_BUILD_DIR "/bin/kthost"), {"--headless", "--script", script(text)});
        EXPECT_TRUE(process.waitForReadyRead());
        kill(static_cast<pid_t>(process.processId()), SIGINT);
        EXPECT_TRUE(process.waitForFinished());
        kt::test::HostRun run;
        run.errors = process.readAllStandardError();
        run.status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        return run;
    }
};

} // namespace

TEST_F(ScriptEnd, AFailureIsTracedAndEndsWithStatusFive)
{
    const auto run = runScript("def deep():\n    return 1 / 0\n\ndeep()\n");

    EXPECT_EQ(run.status, 5);
    const QString path = folder.filePath("script.py");
    EXPECT_EQ(
        run.errorLines(),
        (QStringList{"Traceback (most recent call last):", "  File \"" + path + "\", line 4, in <module>",
                     "    deep()", "  File \"" + path + "\", line 2, in deep", "    return 1 / 0",
                     "ZeroDivisionError: integer division or modulo by zero",
                     "kthost: " + path + ": ZeroDivisionError: integer division or modulo by zero"}));
}

TEST_F(ScriptEnd, ASyntaxErrorIsAFailure)
{
    const auto run = runScript("print (\n");

    EXPECT_EQ(run.status, 5);
    EXPECT_TRUE(run.errorLines().last().startsWith("kthost: ")) << run.errors.toStdString();
    EXPECT_TRUE(run.errorLines().last().contains("SyntaxError")) << run.errors.toStdString();
}

TEST_F(ScriptEnd, TextsBeyondAsciiArePrintedAsUtf8)
{
    const auto failure = runScript("raise ValueError(u'T\\xfcr')");
    EXPECT_EQ(failure.status, 5);
    EXPECT_TRUE(failure.errors.endsWith("script.py: ValueError: T\xc3\xbcr\n"))
        << failure.errors.toStdString();
    EXPECT_TRUE(runScript("raise ValueError('T\\xc3\\xbcr')").errors.endsWith("ValueError: T\xc3\xbcr\n"));

    const auto farewell = runScript("import sys; sys.exit(u'T\\xfcr')");
    EXPECT_EQ(farewell.status, 1);
    EXPECT_EQ(farewell.errors, "T\xc3\xbcr\n");
}

TEST_F(ScriptEnd, AFarewellIsPrintedWhole)
{
    EXPECT_EQ(runScript("import sys; sys.exit('a' * 5000 + '\\n  b')").errors,
              QByteArray(5000, 'a') + "\n  b\n");
}

TEST_F(ScriptEnd, AHookForExceptionsCannotEndTheProgram)
{
    const auto run = runScript("import sys\ndef hook(*exception): sys.exit(0)\nsys.excepthook = hook\n"
                               "raise ValueError('no')\n");

    EXPECT_EQ(run.status, 5);
    EXPECT_TRUE(run.errorLines().contains("ValueError: no")) << run.errors.toStdString();
    EXPECT_TRUE(run.errors.endsWith("script.py: ValueError: no\n")) << run.errors.toStdString();
    EXPECT_TRUE(run.lines().contains("pythonInit: destroy ktAnimation!")) << "the host did not end by itself";
}

TEST_F(ScriptEnd, WhatComesAfterAFailureIsNotDone)
{
    const auto run = kt::test::runHeadless(
        {kt::test::exampleScene("door.wrl"), "--script", script("raise ValueError, 'no'\n"), "--list"});

    EXPECT_EQ(run.status, 5);
    EXPECT_FALSE(run.lines().contains("Door"));
}

TEST_F(ScriptEnd, ExitEndsTheProgramWithItsStatus)
{
    EXPECT_EQ(runScript("import sys; sys.exit(7)").status, 7);
    EXPECT_EQ(runScript("import sys; sys.exit()").status, 0);
    EXPECT_EQ(runScript("import ktHost; ktHost.quit(9)").status, 9);
    EXPECT_EQ(runScript("import ktHost; ktHost.quit()").status, 0);
    EXPECT_EQ(runScript("raise SystemExit").status, 0);

    const auto run = runScript("import sys; sys.exit('that will not do')");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "that will not do\n");
}

TEST_F(ScriptEnd, WhatComesAfterAnExitIsNotDone)
{
    const auto run = kt::test::runHeadless(
        {kt::test::exampleScene("door.wrl"), "--script", script("import ktHost; ktHost.quit()"), "--list"});

    EXPECT_EQ(run.status, 0);
    EXPECT_FALSE(run.lines().contains("Door"));
}

TEST_F(ScriptEnd, ExitFunctionsRunAndFilesAreWritten)
{
    const QString path = folder.filePath("out.txt");

    EXPECT_EQ(printed("import atexit, sys\natexit.register(lambda: sys.stdout.write('%d left\\n' % "
                      "len(getAnimations())))\n"
                      "out = open(sys.argv[1], 'w')\nout.write('kept')\nprint 'done'",
                      {path}),
              (QStringList{"done", "2 left"}));
    QFile out(path);
    ASSERT_TRUE(out.open(QIODevice::ReadOnly));
    EXPECT_EQ(out.readAll(), "kept");
}

TEST_F(ScriptEnd, EverythingThatScriptsMadeGoesWhateverItsName)
{
    QStringList lines =
        printed("class Thing(object):\n"
                "    def __init__(self, name): self.name = name\n"
                "    def __del__(self, out=__import__('sys').stdout): out.write(self.name + ' goes\\n')\n"
                "for i in range(8): globals()[i] = Thing('of a number')\n"
                "globals()[u'T\\xfcr'] = Thing('of unicode')\nname = Thing('of a name')\n");

    EXPECT_EQ(lines.removeAll("of a number goes"), 8);
    lines.sort();
    EXPECT_EQ(lines, (QStringList{"of a name goes", "of unicode goes"}));
}

TEST_F(ScriptEnd, AMissingScriptEndsWithStatusThree)
{
    const auto run = kt::test::runHeadless({"--script", "/no/such/script.py"});

    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.errors, "kthost: /no/such/script.py: No such file or directory\n");
    EXPECT_EQ(kt::test::runHeadless({"--script", folder.path()}).status, 3);
}

TEST_F(ScriptEnd, CtrlCStopsAScriptThatNeverEnds)
{
    const auto run = runInterrupted("print 'on'\nimport sys; sys.stdout.flush()\nwhile True: pass\n");

    EXPECT_EQ(run.status, 130);
    EXPECT_TRUE(run.errorLines().contains("KeyboardInterrupt")) << run.errors.toStdString();
    EXPECT_TRUE(run.errorLines().last().endsWith("script.py: KeyboardInterrupt")) << run.errors.toStdString();
}

TEST_F(ScriptEnd, CtrlCStopsAnAdvance)
{
    const auto run =
        runInterrupted("import ktHost, sys\nprint 'on'\nsys.stdout.flush()\nktHost.advance(1e12)\n");

    EXPECT_EQ(run.status, 130);
}

TEST_F(ScriptEnd, AScriptMayCatchTheInterrupt)
{
    const auto run = runInterrupted("import sys\n"
                                    "try:\n    print 'on'\n    sys.stdout.flush()\n    while True: pass\n"
                                    "except KeyboardInterrupt: sys.exit(11)\n");

    EXPECT_EQ(run.status, 11);
}
