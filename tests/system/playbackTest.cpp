// The playback table, through the built host and plug-in, read from what --dump says of door.wrl: its Door
// lasts one second and waits to be started.
#include "tests/system/HostProcess.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>

using kt::test::exampleScene;
using kt::test::HostRun;
using kt::test::runFor;
using kt::test::runHeadless;

namespace
{

struct Sensor
{
    bool active;
    bool stop;
    double time;
    double startTime;
    double fraction;

    bool operator==(const Sensor& other) const
    {
        return active == other.active && stop == other.stop && time == other.time &&
               startTime == other.startTime && fraction == other.fraction;
    }
};

void PrintTo(const Sensor& sensor, std::ostream* out)
{
    *out << "active " << sensor.active << ", stop " << sensor.stop << ", time " << sensor.time
         << ", start time " << sensor.startTime << ", fraction " << sensor.fraction;
}

/// The Door of the last dump after these words; the scene's clock begins at 0.
Sensor doorAfter(QStringList words)
{
    words.prepend(exampleScene("door.wrl"));
    words << "--dump";
    const HostRun run = runHeadless(words);
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    for (const QString& line : run.lines()) {
        const QJsonObject sensor = QJsonDocument::fromJson(line.toUtf8()).object();
        if (sensor.value("name") == "Door")
            return {sensor.value("active").toBool(), sensor.value("stop").toBool(),
                    sensor.value("time").toDouble(), sensor.value("startTime").toDouble(),
                    sensor.value("fraction").toDouble()};
    }
    ADD_FAILURE() << "no Door in " << run.output.toStdString();
    return {};
}

QStringList send(const char* message)
{
    return {"--send", QStringLiteral("animation%1=Door").arg(QLatin1String(message))};
}

/// Started at 1 and halted at 1.25, with the clock at 2.
QStringList halted()
{
    return runFor("1") + send("Start") + runFor("0.25") + send("Stop") + runFor("0.75");
}

/// Started at 1, with the clock at 1.25.
QStringList running()
{
    return runFor("1") + send("Start") + runFor("0.25");
}

/// Reset at 1.25 out of a run, with the clock at 2.
QStringList wasReset()
{
    return running() + send("Reset") + runFor("0.75");
}

} // namespace

TEST(Playback, StartedForHalfACycleIsAtFractionOneHalf)
{
    EXPECT_EQ(doorAfter(send("Start") + runFor("0.5")), (Sensor{true, false, 0.5, 0.0, 0.5}));
}

TEST(Playback, AFinishedRunHoldsTheEndPose)
{
    EXPECT_EQ(doorAfter(send("Start") + runFor("1")), (Sensor{false, false, 1.0, 0.0, 1.0}));
    EXPECT_EQ(doorAfter(send("Start") + runFor("3")), (Sensor{false, false, 1.0, 0.0, 1.0}));
}

TEST(Playback, WaitsAfterLoading)
{
    EXPECT_EQ(doorAfter(runFor("2")), (Sensor{false, false, 0.0, 0.0, 0.0}));
}

TEST(Playback, StartRestartsFromAnyState)
{
    EXPECT_EQ(doorAfter(running() + send("Start")), (Sensor{true, false, 1.25, 1.25, 0.25}));
    EXPECT_EQ(doorAfter(halted() + send("Start")), (Sensor{true, false, 2.0, 2.0, 0.25}));
    EXPECT_EQ(doorAfter(wasReset() + send("Start")), (Sensor{true, false, 2.0, 2.0, 0.0}));
    EXPECT_EQ(doorAfter(running() + send("Start") + runFor("0.5")), (Sensor{true, false, 1.75, 1.25, 0.5}));
}

TEST(Playback, StopAndPauseHaltAndKeepTheElapsedTime)
{
    for (const char* message : {"Stop", "Pause"}) {
        EXPECT_EQ(doorAfter(running() + send(message) + runFor("1")), (Sensor{false, false, 1.25, 1.0, 0.25}))
            << message;
        EXPECT_EQ(doorAfter(halted() + send(message)), (Sensor{false, false, 1.25, 1.0, 0.25})) << message;
        EXPECT_EQ(doorAfter(wasReset() + send(message)), (Sensor{false, true, 1.25, 1.25, 0.0})) << message;
    }
}

TEST(Playback, ContinueResumesAtTheElapsedTimeOfTheHalt)
{
    EXPECT_EQ(doorAfter(halted() + send("Continue")), (Sensor{true, false, 2.0, 1.75, 0.25}));
    EXPECT_EQ(doorAfter(halted() + send("Continue") + runFor("0.25")),
              (Sensor{true, false, 2.25, 1.75, 0.5}));
    EXPECT_EQ(doorAfter(wasReset() + send("Continue")), (Sensor{true, false, 2.0, 2.0, 0.0}));
}

TEST(Playback, ContinueLeavesARunningSensorAlone)
{
    EXPECT_EQ(doorAfter(running() + send("Continue")), doorAfter(running()));
}

TEST(Playback, ToggleHaltsAndResumes)
{
    EXPECT_EQ(doorAfter(running() + send("Toggle") + runFor("1")), (Sensor{false, false, 1.25, 1.0, 0.25}));
    EXPECT_EQ(doorAfter(halted() + send("Toggle")), (Sensor{true, false, 2.0, 1.75, 0.25}));
    EXPECT_EQ(doorAfter(wasReset() + send("Toggle") + runFor("0.5")), (Sensor{true, false, 2.5, 2.0, 0.5}));
}

TEST(Playback, ResetPutsTheSensorBackFromAnyState)
{
    const Sensor back{false, true, 2.0, 2.0, 0.0};
    EXPECT_EQ(doorAfter(running() + runFor("0.75") + send("Reset")), back);
    EXPECT_EQ(doorAfter(halted() + send("Reset")), back);
    EXPECT_EQ(doorAfter(wasReset() + send("Reset")), back);
}

TEST(Playback, ALoopRunsFromTheLoadOn)
{
    const HostRun run = runHeadless({exampleScene("door.wrl"), "--run", "2.25", "--dump"});

    const QJsonObject fan = QJsonDocument::fromJson(run.lines().value(1).toUtf8()).object();
    EXPECT_EQ(fan.value("name"), "Fan");
    EXPECT_EQ(fan.value("active"), true);
    EXPECT_EQ(fan.value("fraction"), 0.25);
}
