// Where the words of scripts go.
#include "tests/python/ScriptRun.h"

namespace
{

class ScriptOutput : public kt::test::ScriptRun
{
};

} // namespace

TEST_F(ScriptOutput, StandsInOrderWithThatOfTheHost)
{
    const QString path = script("print 'before',\nprint 'it',\n");

    const auto run = kt::test::runHeadless(
        {kt::test::exampleScene("door.wrl"), "--script", path, "--list", "--script", path});

    EXPECT_EQ(run.output, "before it\nDoor\nFan\nbefore it\npythonInit: destroy ktAnimation!\n");
}

TEST_F(ScriptOutput, TheErrorStreamIsApart)
{
    const auto run = runScript("import sys\nprint >>sys.stderr, 'a', 'b'\nsys.stderr.write('c')\n"
                               "sys.stderr.write('d\\ne')\nprint 'out'\n");

    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "a b\ncd\ne\n");
    EXPECT_TRUE(run.output.startsWith("out\n"));
}

TEST_F(ScriptOutput, ErrorsStandAfterWhatWasPrintedBefore)
{
    // Both streams into one, as on a terminal.
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(KT_BUILD_DIR "/bin/kthost"),
                  {"--headless", "--plugin-dir", folder.path(), "--script",
                   script("import sys\nprint 1\nprint >>sys.stderr, 2\nprint 3\nprint >>sys.stderr, 4\n")});
    ASSERT_TRUE(process.waitForFinished());

    EXPECT_EQ(process.readAll(), "1\n2\n3\n4\n");
}

TEST_F(ScriptOutput, UnicodeIsPrintedAsUtf8AndBytesAsTheyAre)
{
    const auto run = runScript("print u'T\\xfcr \\u20ac'\nprint 'T\\xfcr'\n");

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_TRUE(run.output.startsWith("T\xc3\xbcr \xe2\x82\xac\nT\xfcr\n")) << run.output.toStdString();
}

TEST_F(ScriptOutput, TheStreamsAreAsMuchOfFilesAsTheStandardLibraryAsksFor)
{
    EXPECT_EQ(
        printed(
            "import sys, subprocess\nprint sys.stdout.isatty(), sys.stdout.fileno(), sys.stderr.fileno()\n"
            "sys.stdout.writelines(['a', 'b', '\\n'])\nsys.stdout.flush()\n"
            "subprocess.call(['echo', 'child'], stdout=sys.stdout)\n"
            "try: sys.stdout.write(1)\nexcept TypeError: print 'refused'\n"),
        (QStringList{"False 1 2", "ab", "child", "refused"}));
}
