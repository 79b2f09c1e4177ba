// Every change of an animation reaches the picture: two pictures of a moving door, by the built host.
#include "tests/system/HostProcess.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

using kt::test::exampleScene;
using kt::test::HostRun;
using kt::test::runFor;
using kt::test::runHeadless;

namespace
{

class Picture : public testing::Test
{
protected:
    /// The picture of door.wrl after these words.
    QImage after(QStringList words)
    {
        const QString file = folder.filePath("picture.png");
        QFile::remove(file);
        words = QStringList{exampleScene("door.wrl"), "--size", "320x240"} + words;
        words << "--screenshot" << file;
        const HostRun run = runHeadless(words);
        EXPECT_EQ(run.status, 0) << run.errors.toStdString();
        const QImage picture(file);
        EXPECT_EQ(picture.size(), QSize(320, 240));
        return picture;
    }

    QTemporaryDir folder;
};

/// How many pixels differ clearly.
int difference(const QImage& a, const QImage& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QColor p = a.pixelColor(x, y);
            const QColor q = b.pixelColor(x, y);
            const int apart =
                qAbs(p.red() - q.red()) + qAbs(p.green() - q.green()) + qAbs(p.blue() - q.blue());
            count += apart > 60 ? 1 : 0;
        }
    }
    return count;
}

constexpr int clearlyMoved = 1500;

const QStringList start{"--send", "animationStart=Door"};
const QStringList resetDoor{"--send", "animationReset=Door"};
const QStringList toggle{"--send", "animationToggle=Door"};
const QStringList stop{"--send", "animationStop=Door"};
const QStringList stopFan{"--send", "animationStop=Fan"};

} // namespace

TEST_F(Picture, AStartedDoorMoves)
{
    EXPECT_GT(difference(after(stopFan), after(stopFan + start + runFor("0.5"))), clearlyMoved);
}

TEST_F(Picture, TheFinalFractionReachesThePicture)
{
    const QImage atTheEnd = after(stopFan + start + runFor("1"));

    EXPECT_GT(difference(after(stopFan + start + runFor("0.5")), atTheEnd), clearlyMoved);
    EXPECT_EQ(difference(after(stopFan + start + runFor("7")), atTheEnd), 0) << "the end pose is held";
}

TEST_F(Picture, AHaltedDoorStandsStillAndGoesOnFromThere)
{
    const QImage half = after(stopFan + start + runFor("0.5"));

    EXPECT_EQ(difference(after(stopFan + start + runFor("0.5") + stop + runFor("3")), half), 0);
    EXPECT_EQ(
        difference(after(stopFan + start + runFor("0.25") + toggle + runFor("3") + toggle + runFor("0.25")),
                   half),
        0);
}

TEST_F(Picture, ResetMovesThePictureOfASensorThatDoesNotRun)
{
    EXPECT_EQ(difference(after(stopFan + start + runFor("0.5") + stop + resetDoor), after(stopFan)), 0);
    EXPECT_EQ(difference(after(stopFan + start + runFor("2") + resetDoor + runFor("1")), after(stopFan)), 0);
}

TEST_F(Picture, TwoRunsGiveTheSamePicture)
{
    EXPECT_EQ(after(start + runFor("0.4")), after(start + runFor("0.4")));
}

TEST_F(Picture, FramesAreNumberedPicturesOfEachStep)
{
    const QString frames = folder.filePath("new/frames");
    const HostRun run = runHeadless({exampleScene("door.wrl"), "--run", "0.2", "--size", "64x48", "--frames",
                                     frames, "--fps", "10", "--run", "0.25", "--run", "0.1"});

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(QDir(frames).entryList(QDir::Files, QDir::Name),
              (QStringList{"frame-00001.png", "frame-00002.png", "frame-00003.png", "frame-00004.png"}));
}

TEST_F(Picture, NeedsNoDisplay)
{
    const QString file = folder.filePath("picture.png");
    const HostRun run = kt::test::runHost({"--headless", exampleScene("door.wrl"), "--screenshot", file},
                                          {{"DISPLAY", ":9876"}});

    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_EQ(QImage(file).size(), QSize(1280, 800));
}

TEST_F(Picture, WhereNoPictureCanBeMadeTheStatusIsFour)
{
    const QString file = folder.filePath("picture.png");
    const HostRun run =
        runHeadless({exampleScene("door.wrl"), "--size", "16384x16384", "--screenshot", file});

    EXPECT_EQ(run.status, 4);
    ASSERT_EQ(run.errorLines().size(), 1) << run.errors.toStdString();
    EXPECT_TRUE(run.errorLines().first().startsWith("kthost: ")) << run.errors.toStdString();
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(Picture, APictureThatCannotBeWrittenEndsWithStatusThree)
{
    const HostRun run =
        runHeadless({exampleScene("door.wrl"), "--screenshot", "/no/such/folder/picture.png"});

    EXPECT_EQ(run.status, 3);
    EXPECT_TRUE(run.errors.contains("/no/such/folder/picture.png")) << run.errors.toStdString();
}

TEST_F(Picture, SensorsOfTheViewerStartAnimationsOnceAPictureIsDrawn)
{
    const QString scene = folder.filePath("scene.wrl");
    QFile file(scene);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("#VRML V2.0 utf8\nViewpoint { position 0 0 10 }\nShape { geometry Box {} }\n"
               "DEF Near ProximitySensor { size 100 100 100 }\n"
               "DEF Far ProximitySensor { center 500 0 0 size 10 10 10 }\n"
               "DEF Seen VisibilitySensor { size 2 2 2 }\n"
               "DEF A TimeSensor {}\nDEF B TimeSensor {}\nDEF C TimeSensor {}\n"
               "ROUTE Near.enterTime TO A.set_startTime\nROUTE Far.enterTime TO B.set_startTime\n"
               "ROUTE Seen.enterTime TO C.set_startTime\n");
    file.close();

    const QStringList drawn{"--screenshot", folder.filePath("picture.png")};
    const QStringList dumped =
        runHeadless(QStringList{scene} + runFor("1") + drawn + runFor("0.5") + QStringList{"--dump"}).lines();

    ASSERT_EQ(dumped.size(), 3);
    EXPECT_TRUE(dumped[0].contains("\"active\":true")) << dumped[0].toStdString();
    EXPECT_TRUE(dumped[1].contains("\"active\":false")) << dumped[1].toStdString();
    EXPECT_TRUE(dumped[2].contains("\"active\":true")) << dumped[2].toStdString();
}
