// Files that the reader's library does not survive, through the built host.
#include "tests/support/ProcessLimit.h"
#include "tests/system/HostProcess.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using kt::test::HostRun;
using kt::test::runHost;

namespace
{

class WildScene : public testing::Test
{
protected:
    QString write(const QByteArray& text)
    {
        const QString path = folder.filePath(QStringLiteral("wild.wrl"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#VRML V2.0 utf8\n" + text);
        return path;
    }

    HostRun list(const QString& file, const std::map<std::string, std::string>& environment = {})
    {
        return runHost({QStringLiteral("--headless"), file, QStringLiteral("--list")}, environment);
    }

    void expectRefusal(const HostRun& run, const QString& reason)
    {
        EXPECT_EQ(run.status, 3);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(QString::fromUtf8(run.errors),
                  QStringLiteral("kthost: %1%2\n").arg(folder.filePath(QStringLiteral("wild.wrl")), reason));
    }

    QTemporaryDir folder;
};

QByteArray nested(int levels)
{
    return QByteArray("Group { children [\n").repeated(levels) + QByteArray("] }").repeated(levels);
}

} // namespace

TEST_F(WildScene, NestedTooDeep)
{
    expectRefusal(list(write(nested(8000))),
                  QStringLiteral(", line 502: more than 1000 brackets are open inside each other"));
}

TEST_F(WildScene, NestedTooDeepForTheReaderWhereTheLimitIsRaised)
{
    expectRefusal(list(write(nested(20000)), {{"KTHOST_READ_BRACKETS", "1000000"}}),
                  QStringLiteral(": it is nested too deep for the reader, or without end"));
}

TEST_F(WildScene, AWordWithoutMeasure)
{
    expectRefusal(list(write("Group {\n" + QByteArray(70000, 'x') + " TRUE }")),
                  QStringLiteral(", line 3: a word of 70000 bytes"));
}

TEST_F(WildScene, ANodeInsideItself)
{
    expectRefusal(list(write("DEF Loop Group { children [ DEF T TimeSensor {} USE Loop ] }")),
                  QStringLiteral(": 'Loop' stands inside itself"));
}

TEST_F(WildScene, AFileInsideItself)
{
    const HostRun run = list(write("DEF T TimeSensor {} Inline { url \"wild.wrl\" }"));

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.output, "T\n");
}

TEST_F(WildScene, AScriptThatHoldsItself)
{
    const HostRun run = list(write("PROTO P [] { DEF S Script { field SFNode self USE S } }\n"
                                   "P {} DEF T TimeSensor {}"));

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.output, "T\n");
}

TEST_F(WildScene, PrototypesThatGrowWithoutBounds)
{
    QByteArray text = "PROTO P0 [] { Group {} }\n";
    for (int i = 1; i <= 20; ++i) {
        const QByteArray below = QByteArray("P" + QByteArray::number(i - 1) + " {} ").repeated(4);
        text += "PROTO P" + QByteArray::number(i) + " [] { Group { children [ " + below + "] } }\n";
    }
    expectRefusal(list(write(text + "P20 {}"), {{"KTHOST_READ_SECONDS", "1"}}),
                  QStringLiteral(": the reader takes longer than 1 s for it"));
}

TEST_F(WildScene, IsReadWithHalfOfTheStackThatTheHostHas)
{
    const QString scene = write(nested(2400) + "DEF T TimeSensor {}");
    const std::map<std::string, std::string> deep{{"KTHOST_READ_BRACKETS", "10000"},
                                                  {"KTHOST_READ_DEPTH", "10000"}};
    {
        const kt::test::ProcessLimit small(RLIMIT_STACK, 2U << 20U);
        expectRefusal(list(scene, deep),
                      QStringLiteral(": it is nested too deep for the reader, or without end"));
    }
    const kt::test::ProcessLimit large(RLIMIT_STACK, 256U << 20U);
    EXPECT_EQ(list(scene, deep).output, "T\n");
}

TEST_F(WildScene, FilesInsideEachOtherWithoutMeasure)
{
    write("Inline { url \"1.wrl\" } DEF T TimeSensor {}");
    for (int i = 1; i <= 4; ++i) {
        QFile file(folder.filePath(QStringLiteral("%1.wrl").arg(i)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#VRML V2.0 utf8\nDEF T" + QByteArray::number(i) + " TimeSensor {}\nInline { url \"" +
                   QByteArray::number(i + 1) + ".wrl\" }");
    }
    const QString scene = folder.filePath(QStringLiteral("wild.wrl"));

    EXPECT_EQ(list(scene, {{"KTHOST_READ_FILES", "3"}}).output, "T1\nT2\nT\n");
    EXPECT_EQ(list(scene).output, "T1\nT2\nT3\nT4\nT\n");
}

TEST_F(WildScene, AFileThatIsTooLarge)
{
    const QString scene = write(QByteArray(3 << 20, ' '));

    expectRefusal(list(scene, {{"KTHOST_READ_FILE_MEGABYTES", "3"}}),
                  QStringLiteral(": it is larger than 3 megabytes"));
}

TEST_F(WildScene, ReferencesOfAFileWithARelativePath)
{
    write("EXTERNPROTO P [] \"library.wrl#P\" P {} Inline { url \"part.wrl\" }");
    for (const auto& [name, text] : {std::pair{"part.wrl", "DEF A TimeSensor {}"},
                                     {"library.wrl", "PROTO P [] { DEF B TimeSensor {} }"}}) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("#VRML V2.0 utf8\n") + text);
    }
    const QString name = QDir(folder.path()).dirName();
    for (const auto& [place, path] : {std::pair{folder.path(), QStringLiteral("wild.wrl")},
                                      {folder.filePath(".."), name + QStringLiteral("/wild.wrl")}}) {
        kt::test::HostProcess host({"--headless", path, "--list"});
        host.setWorkingDirectory(place);
        host.run();
        EXPECT_EQ(host.result().output, list(folder.filePath("wild.wrl")).output);
    }
    EXPECT_TRUE(list(folder.filePath("wild.wrl")).output.contains("A\n"));
}

TEST_F(WildScene, ThatOnlyTheHostCanOpen)
{
    kt::test::HostProcess host({"--headless", "/dev/stdin", "--list"});
    host.setStandardInputFile(write("DEF T TimeSensor {}"));
    host.run();
    const HostRun run = host.result();

    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.errors, "kthost: /dev/stdin: its check found nothing there\n");
}

TEST_F(WildScene, FilesThatReferToEachOtherManyTimesAreNotReadAfterTheRefusal)
{
    // Each fails behind the next ones, of which the last is open already and may not be the next time.
    for (int i = 0; i < 24; ++i) {
        QFile file(folder.filePath(QStringLiteral("%1.wrl").arg(i)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        const QByteArray next = QByteArray::number((i + 1) % 24) + ".wrl#P";
        file.write("#VRML V2.0 utf8\nEXTERNPROTO P [] [ \"" + next + "\" \"" + next + "2\" ]\nGroup {");
    }
    expectRefusal(list(write("EXTERNPROTO P [] \"0.wrl#P\""), {{"KTHOST_READ_SECONDS", "1"}}),
                  QStringLiteral(": the reader takes longer than 1 s for it"));
}
