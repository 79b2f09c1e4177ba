// The scripts that the cookbook explains do what it says.
#include "tests/python/ScriptRun.h"

#include <QDir>
#include <QImage>

namespace
{

class Cookbook : public kt::test::ScriptRun
{
protected:
    static kt::test::HostRun cook(const char* name, const QStringList& words, const QStringList& further = {})
    {
        return kt::test::runHeadless(
            QStringList{kt::test::exampleScene("door.wrl"), "--script",
                        QStringLiteral(KT_EXAMPLES_DIR "/scripts/") + QLatin1String(name)} +
            further + QStringList{"--"} + words);
    }
};

} // namespace

TEST_F(Cookbook, PlayAllTakesEachAnimationThroughItsCycle)
{
    const auto run = cook("playAll.py", {}, {"--dump"});

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.lines().value(0), "played Door, Fan");
    EXPECT_TRUE(run.lines().value(1).contains("\"fraction\":1,")) << run.output.toStdString();
}

TEST_F(Cookbook, TurntableWritesNumberedPicturesThatDiffer)
{
    const auto run = cook("turntable.py", {"Door", folder.filePath("turn"), "3"});

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    const QDir written(folder.filePath("turn"));
    ASSERT_EQ(written.entryList({"*.png"}), (QStringList{"turn-000.png", "turn-001.png", "turn-002.png"}));
    EXPECT_NE(QImage(written.filePath("turn-000.png")), QImage(written.filePath("turn-002.png")));

    EXPECT_EQ(cook("turntable.py", {"Door"}).status, 1);
    EXPECT_EQ(cook("turntable.py", {"Nobody", folder.path()}).errors, "there is no animation Nobody\n");
}

TEST_F(Cookbook, CommentsGoIntoATable)
{
    const QString table = folder.filePath("table.csv");

    const auto run = cook("commentsToCsv.py", {table});

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    QFile written(table);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_EQ(written.readAll(), "name,comment,start,stop\r\nDoor,,,\r\nFan,,,\r\n");
}

TEST_F(Cookbook, InSequenceStartsTheNextWhereTheLastEnded)
{
    const auto run = cook("inSequence.py", {"Fan", "Door"});

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    ASSERT_EQ(run.lines().size(), 3);
    const QString end = run.lines()[0].section(" to ", 1);
    EXPECT_TRUE(run.lines()[1].startsWith("Door from " + end)) << run.output.toStdString();
}

TEST_F(Cookbook, ReactToTimeStartsTheSecondWhenTheFirstIsHalfWay)
{
    const auto run = cook("reactToTime.py", {"Door", "Fan"}, {"--dump"});

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(run.lines().value(0), "Door is half way at 0.52 s, Fan starts");
    EXPECT_TRUE(run.lines().value(2).contains("\"startTime\":0.5")) << run.output.toStdString();
}
