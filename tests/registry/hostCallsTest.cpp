// How often an operation reads the clock, and what else it asks the host for.
#include "tests/support/HostCalls.h"
#include "listwidget/ktAnimationListWidget.h"
#include "tests/support/ModuleFixture.h"

#include <kt/ktFileIO.h>
#include <kt/ktMessage.h>

namespace
{

using kt::test::HostCalls;
using Lines = std::vector<std::string>;

/// Each reading of the clock finds it a second later; the first one at 100.
class HostCallsTest : public kt::test::ModuleFixture
{
protected:
    HostCallsTest() : door(addTimeSensor("Door"))
    {
        HostCalls::reset();
        HostCalls::clockStep() = 1.0;
        setSimulationTime(100.0);
    }
    ~HostCallsTest() override { HostCalls::reset(); }

    static std::size_t reads() { return HostCalls::linesOf({"getSimulationTime"}).size(); }

    kt::test::RecordingSensor& door;
};

TEST_F(HostCallsTest, StartReadsItForEachOfItsTimes)
{
    module().startAnimation("Door");

    EXPECT_EQ(door.getTime(), 100.0);
    EXPECT_EQ(door.getStartTime(), 101.0);
    EXPECT_EQ(reads(), 2u);
}

TEST_F(HostCallsTest, ContinueAndToggleReadItForEachOfTheirTimes)
{
    door.setTime(12.5);
    door.setStartTime(10.0);
    module().continueAnimation("Door");
    EXPECT_EQ(door.getTime(), 100.0);
    EXPECT_EQ(door.getStartTime(), 101.0 - 2.5);

    door.setActive(false);
    module().toggleAnimation("Door");
    EXPECT_EQ(door.getTime(), 102.0);
    EXPECT_EQ(door.getStartTime(), 103.0 - 1.5);
    EXPECT_EQ(reads(), 4u);
}

TEST_F(HostCallsTest, ResetReadsItOnce)
{
    module().resetAnimation("Door");

    EXPECT_EQ(door.getTime(), 100.0);
    EXPECT_EQ(door.getStartTime(), 100.0);
    EXPECT_EQ(reads(), 1u);
}

TEST_F(HostCallsTest, HaltingDoesNotReadIt)
{
    door.setActive(true);
    module().continueAnimation("Door");
    module().stopAnimation("Door");
    module().pauseAnimation("Door");
    door.setActive(true);
    module().toggleAnimation("Door");

    EXPECT_EQ(reads(), 0u);
}

TEST_F(HostCallsTest, EachSensorReadsItForItself)
{
    const kt::test::RecordingSensor& second = addTimeSensor("Door");

    module().resetAnimation("Door");

    EXPECT_EQ(door.getTime(), 100.0);
    EXPECT_EQ(second.getTime(), 101.0);
}

TEST_F(HostCallsTest, AnUnknownNameDoesNotReadIt)
{
    module().startAnimation("Window");
    module().resetAnimation("Window");

    EXPECT_EQ(reads(), 0u);
}

TEST_F(HostCallsTest, EveryOperationResolvesTheNameOnceWhateverItIs)
{
    module().startAnimation("Door");
    module().stopAnimation(nullptr);
    module().toggleAnimation("");
    module().pauseAnimation("Door");
    module().continueAnimation("Door");
    module().resetAnimation("Door");

    EXPECT_EQ(HostCalls::linesOf({"findNodes"}),
              (Lines{"findNodes Door", "findNodes (null)", "findNodes ", "findNodes Door", "findNodes Door",
                     "findNodes Door"}));
}

TEST_F(HostCallsTest, TheProjectIsAskedForAgainAfterItsFlag)
{
    ktMessage message(8192);
    module().receivedMessage(message);
    EXPECT_EQ(HostCalls::linesOf({"getProject"}).size(), 1u) << "it says nothing";

    for (const bool loading : {true, false}) {
        ktFileIO::getProject().set("_loading", loading, false);
        HostCalls::reset();
        module().receivedMessage(message);
        EXPECT_EQ(HostCalls::linesOf({"getProject"}).size(), 2u) << loading;
    }
}

TEST_F(HostCallsTest, ARenameIsAnnouncedAndRecorded)
{
    addRecord("Door");
    select({"Door"});
    list().item(0)->setText("Gate");

    module().animationRenamed(list().item(0), 0, {});

    EXPECT_EQ(HostCalls::linesOf({"setNodeName"}), Lines{"setNodeName 1|Gate|1"});
}

TEST_F(HostCallsTest, ShowingNodesHandsTheSelectedNamesOver)
{
    for (const char* name : {"Fan", "T\xC3\xBCr", "Door"})
        addRecord(name);
    list().selectAll();
    HostCalls::reset();

    list().animShowNodes();

    EXPECT_EQ(HostCalls::lines(), (Lines{"findNodes [Fan;T\xFCr;Door;]", "scrollToNode"}));
}

TEST_F(HostCallsTest, ShowingNoNodesStillAsksButDoesNotScroll)
{
    HostCalls::reset();

    list().animShowNodes();

    EXPECT_EQ(HostCalls::lines(), Lines{"findNodes []"});
}

} // namespace
