// Scripts beside a running event loop, as in the window.
#include "host/app/ActionRunner.h"
#include "host/app/HostError.h"
#include "host/app/LiveClock.h"
#include "host/app/Pictures.h"
#include "host/app/Scripting.h"
#include "host/app/Session.h"
#include "host/scripting/Interpreter.h"
#include "tests/support/LogRecorder.h"

#include <kt/ktController.h>
#include <kt/ktScript.h>

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <thread>

namespace
{

using namespace kthost;

class WindowScript : public testing::Test
{
protected:
    /// What the script ended with; Done where it came to its end.
    ExitStatus run(const char* text)
    {
        QFile file(folder.filePath("script.py"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        try {
            scripting.run({file.fileName(), {}});
        } catch (const HostError& error) {
            return error.status();
        }
        return ExitStatus::Done;
    }

    static int openFiles()
    {
        return QDir("/proc/self/fd").entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size();
    }

    QTemporaryDir folder;
    kt::test::LogRecorder log;
    Session session;
    LiveClock clock{session.frames()};
    Pictures pictures{session};
    ActionRunner runner{session, pictures};
    Scripting scripting{session, runner, &clock};
};

const char* const endless = "while True: pass\n";

} // namespace

TEST_F(WindowScript, EventsAreProcessedWhileItRuns)
{
    QTimer::singleShot(0, [this] {
        EXPECT_TRUE(scripting.isRunning());
        scripting.interrupt();
    });

    EXPECT_EQ(run(endless), ExitStatus::Interrupted);
    EXPECT_FALSE(scripting.isRunning());
}

TEST_F(WindowScript, ClosingTheLastWindowEndsIt)
{
    QTimer::singleShot(0, [] { emit qApp->lastWindowClosed(); });

    EXPECT_EQ(run(endless), ExitStatus::Interrupted);
}

TEST_F(WindowScript, AnAdvanceIsInterruptedToo)
{
    // Its own steps process events in the window, which the runner's call after each step stands for.
    ActionRunner busy(session, pictures, [] { QCoreApplication::processEvents(); });
    Scripting other(session, busy, &clock);
    QTimer::singleShot(0, [&] { other.interrupt(); });
    QFile file(folder.filePath("script.py"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("import ktHost\nktHost.advance(1e12)\n");
    file.close();

    EXPECT_THROW(other.run({file.fileName(), {}}), HostError);
}

TEST_F(WindowScript, AnInterruptWithoutAScriptIsForgotten)
{
    EXPECT_EQ(run("pass"), ExitStatus::Done);
    scripting.interrupt();

    EXPECT_EQ(run("pass"), ExitStatus::Done);
}

TEST_F(WindowScript, TheClockGoesOnFromWhereAnAdvanceLedTo)
{
    clock.start();

    EXPECT_EQ(
        run("import ktHost\nbegin = ktHost.time()\nktHost.advance(1000.0)\nassert ktHost.time() >= begin + "
            "1000\n"
            "end = ktHost.time()\nwhile ktHost.time() == end: pass\nassert ktHost.time() < end + 500\n"),
        ExitStatus::Done);

    EXPECT_TRUE(clock.isRunning());
}

TEST_F(WindowScript, StatementsOfModulesShareTheNamespaceAndTellOfFailures)
{
    EXPECT_TRUE(ktScript::run("kept = 41"));
    EXPECT_TRUE(ktScript::run("kept += 1"));
    EXPECT_EQ(run("assert kept == 42"), ExitStatus::Done);
    log.lines().clear();

    EXPECT_FALSE(ktScript::run("kept / 0"));
    EXPECT_FALSE(ktScript::run("import sys; sys.exit(3)"));
    EXPECT_FALSE(ktScript::run("this is no statement"));

    EXPECT_NE(std::find(log.lines().begin(), log.lines().end(),
                        "error: ZeroDivisionError: integer division or modulo by zero"),
              log.lines().end());
}

TEST_F(WindowScript, AScriptThatBreaksTheModulePathIsHeardOfAndLeavesNoFileOpen)
{
    EXPECT_EQ(run("import sys\nkept, sys.path = sys.path, None\nraise ValueError('mine')\n"),
              ExitStatus::ScriptFailed);
    EXPECT_EQ(log.lines().back(), "error: ValueError: mine");
    const int before = openFiles();

    EXPECT_EQ(run("pass"), ExitStatus::ScriptFailed) << "there is no module path to put its folder on";

    EXPECT_EQ(openFiles(), before);
    EXPECT_TRUE(ktScript::run("sys.path = kept[1:]"));
    EXPECT_EQ(run("pass"), ExitStatus::Done);
}

TEST_F(WindowScript, WhereItCameFromOutlastsAScriptButItsFolderIsNoLongerOnTheModulePath)
{
    EXPECT_EQ(run("import os, sys\nassert os.path.dirname(__file__) in sys.path\n"), ExitStatus::Done);

    EXPECT_TRUE(ktScript::run("assert sys.argv == [__file__] and os.path.basename(__file__) == 'script.py'"));
    EXPECT_TRUE(ktScript::run("assert os.path.dirname(__file__) not in sys.path"));
}

TEST_F(WindowScript, WhatIsPrintedIsInTheLogLineByLine)
{
    EXPECT_EQ(run("pass"), ExitStatus::Done);
    log.lines().clear();
    testing::internal::CaptureStdout();

    EXPECT_EQ(run("import sys\nprint 'one\\ntwo'\nsys.stdout.write('thr'); sys.stdout.write('ee')\n"
                  "print >>sys.stderr, 'four'\n"),
              ExitStatus::Done);

    EXPECT_EQ(testing::internal::GetCapturedStdout(), "one\ntwo\nthree");
    EXPECT_EQ(log.lines(),
              (std::vector<std::string>{"info: one", "info: two", "error: four", "info: three"}));
}

TEST_F(WindowScript, WhatThreadsPrintIsHeardOfOnTheGuiThreadInTheOrderPrinted)
{
    std::string heard;
    bool isOnGuiThread = true;
    scripting.setListener([&, gui = std::this_thread::get_id()](const std::string& text, bool) {
        isOnGuiThread = isOnGuiThread && std::this_thread::get_id() == gui;
        heard += text;
    });

    EXPECT_EQ(run("import sys, threading\n"
                  "def talk():\n    print 'two'\n    print >>sys.stderr, 'three'\n"
                  "print 'one'\nthread = threading.Thread(target=talk)\nthread.start()\nthread.join()\n"
                  "print 'four'\nthread = threading.Thread(target=talk)\nthread.start()\nthread.join()\n"),
              ExitStatus::Done);

    EXPECT_TRUE(isOnGuiThread);
    EXPECT_EQ(heard, "one\ntwo\nthree\nfour\ntwo\nthree\n");
    EXPECT_EQ(log.lines(), (std::vector<std::string>{"info: one", "info: two", "error: three", "info: four",
                                                     "info: two", "error: three"}));
}

TEST_F(WindowScript, WhatAThreadPrintsIsHeardOfWhileTheScriptSaysNothing)
{
    scripting.setListener([&](const std::string& text, bool) {
        if (text == "enough")
            scripting.interrupt();
    });

    EXPECT_EQ(run("import sys, threading\n"
                  "threading.Thread(target=lambda: sys.stdout.write('enough')).start()\n"
                  "for i in xrange(100000000): pass\n"),
              ExitStatus::Interrupted);
}

TEST_F(WindowScript, AThreadStandsStillBetweenScripts)
{
    EXPECT_EQ(run("import threading\ngo, gone = threading.Event(), threading.Event()\n"
                  "def wait():\n    go.wait()\n    gone.set()\n"
                  "threading.Thread(target=wait).start()\n"),
              ExitStatus::Done)
        << "it is not waited for";

    EXPECT_EQ(run("assert not gone.is_set()\ngo.set()\ngone.wait()\n"), ExitStatus::Done);
}

TEST_F(WindowScript, TypedStatementsAreRunWhenTheyAreWhole)
{
    Interpreter& interpreter = scripting.interpreter();
    std::string printed;
    interpreter.setListener([&](const std::string& text, bool) { printed += text; });
    ScriptOutcome outcome;

    EXPECT_TRUE(interpreter.runTyped("6 * 7", outcome));
    EXPECT_EQ(printed, "42\n");
    EXPECT_FALSE(interpreter.runTyped("for i in range(2):", outcome));
    EXPECT_FALSE(interpreter.runTyped("for i in range(2):\n    i", outcome));
    EXPECT_TRUE(interpreter.runTyped("for i in range(2):\n    i\n", outcome));
    EXPECT_EQ(printed, "42\n0\n1\n");
    EXPECT_TRUE(interpreter.runTyped("1 +* 2", outcome));
    EXPECT_EQ(outcome.kind, ScriptOutcome::Failed);
    EXPECT_TRUE(interpreter.runTyped("raise SystemExit(3)", outcome));
    EXPECT_EQ(outcome.kind, ScriptOutcome::Exit);
    EXPECT_EQ(outcome.status, 3);
}

TEST_F(WindowScript, NamesAreCompleted)
{
    Interpreter& interpreter = scripting.interpreter();
    EXPECT_TRUE(ktScript::run("import ktHost\nkeepThis = keepThat = 1"));

    EXPECT_EQ(interpreter.completions("keepTh"), (QStringList{"keepThat", "keepThis"}));
    EXPECT_EQ(interpreter.completions("ktHost.sel"), (QStringList{"ktHost.select(", "ktHost.selection("}));
    EXPECT_EQ(interpreter.completions("ktHost.nothing"), QStringList());
    EXPECT_EQ(interpreter.completions("nobody.x"), QStringList());
    EXPECT_TRUE(ktScript::run("import sys; assert 'readline' not in sys.modules")) << "it is for terminals";
}
