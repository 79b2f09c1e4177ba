// Files that the reader's library does not survive, through the built host.
#include "tests/system/HostProcess.h"

#include <gtest/gtest.h>

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
