// How the command line runs scripts.
#include "tests/python/ScriptRun.h"

namespace
{

class ScriptFile : public kt::test::ScriptRun
{
};

} // namespace

TEST_F(ScriptFile, RunsAsByPythonsOwnCommandLine)
{
    const QString path = folder.filePath("script.py");

    EXPECT_EQ(printed("import sys\nprint __name__\nprint __file__\nprint sys.path[0]\nprint sys.argv",
                      {"a", "b c", "--list"}),
              (QStringList{"__main__", path, folder.path(), "['" + path + "', 'a', 'b c', '--list']"}));
}

TEST_F(ScriptFile, ImportsItsNeighboursAndTheStandardLibrary)
{
    script("def answer(): return 42\n", "neighbour.py");

    EXPECT_EQ(printed("import os, csv, json, random, tempfile, subprocess, neighbour\n"
                      "print neighbour.answer(), json.loads('[1]'), os.path.basename(os.__file__)[:5]\n"
                      "import sys; print sys.version_info[:3]\n"),
              (QStringList{"42 [1] os.py", "(2, 7, 18)"}));
}

TEST_F(ScriptFile, BytesOfArgumentsArriveAsTheyAre)
{
    EXPECT_EQ(printed("import sys; print repr(sys.argv[1])", {QString::fromUtf8("T\xc3\xbcr")}),
              QStringList{R"('T\xc3\xbcr')"});
}

TEST_F(ScriptFile, IsRunInTurnWithOtherActions)
{
    const QString first =
        script("import ktHost\nprint 'first', ktHost.time()\nstartAnimation('Door')\nkept = 1\n", "first.py");
    const QString second = script("print 'second', ktHost.time(), kept\n", "second.py");

    const auto run = kt::test::runHeadless({kt::test::exampleScene("door.wrl"), "--script", first, "--run",
                                            "1.5", "--list", "--script", second});

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.lines(),
              (QStringList{"first 0.0", "Door", "Fan", "second 1.5 1", "pythonInit: destroy ktAnimation!"}));
}

TEST_F(ScriptFile, WhatItEditedIsInThePicture)
{
    const QString before = folder.filePath("before.png");
    const QString after = folder.filePath("after.png");

    printed("import sys, ktHost\nktHost.screenshot(sys.argv[1], (80, 60))\nstartAnimation('Door')\n"
            "ktHost.advance(0.5)\nktHost.screenshot(sys.argv[2], size=(80, 60))\n",
            {before, after});

    QFile first(before);
    QFile second(after);
    ASSERT_TRUE(first.open(QIODevice::ReadOnly));
    ASSERT_TRUE(second.open(QIODevice::ReadOnly));
    EXPECT_NE(first.readAll(), second.readAll());
}

TEST_F(ScriptFile, TheInterpreterIsNotStartedForNothing)
{
    const auto run = kt::test::runHeadless({kt::test::exampleScene("door.wrl"), "--list"});

    EXPECT_FALSE(run.output.contains("pythonInit")) << "its end was told";
}

TEST_F(ScriptFile, EnvironmentVariablesForOtherPythonsAreNotRead)
{
    const QString path = script("import sys\nprint 'elsewhere' in ''.join(sys.path)\n");

    const auto run = kt::test::runHost({"--headless", "--script", path},
                                       {{"PYTHONHOME", "/elsewhere"}, {"PYTHONPATH", "/elsewhere"}});

    EXPECT_EQ(run.lines().value(0), "False") << run.errors.toStdString();
}
