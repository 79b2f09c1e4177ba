// How the module closes an edit of a time sensor, whatever the edit was.
#include "panel/ktAnimationGUIW.h"
#include "tests/support/ModuleFixture.h"

#include <osg/PThreadBase.h>

#include <functional>

namespace
{

struct Edit
{
    const char* name;
    std::function<void(kt::test::OpenAnimation&)> make;
};

void PrintTo(const Edit& edit, std::ostream* out)
{
    *out << edit.name;
}

class EditEndTest : public kt::test::ModuleFixture, public testing::WithParamInterface<Edit>
{
protected:
    EditEndTest() : door(addTimeSensor("Door"))
    {
        addRecord("Door");
        select({"Door"});
        scene.changes.clear();
    }

    void edit() { GetParam().make(module()); }

    kt::test::RecordingSensor& door;
};

INSTANTIATE_TEST_SUITE_P(
    EveryEdit, EditEndTest,
    testing::Values(Edit{"start", [](ktAnimation& m) { m.startAnimation("Door"); }},
                    Edit{"stop", [](ktAnimation& m) { m.stopAnimation("Door"); }},
                    Edit{"toggle", [](ktAnimation& m) { m.toggleAnimation("Door"); }},
                    Edit{"pause", [](ktAnimation& m) { m.pauseAnimation("Door"); }},
                    Edit{"continue", [](ktAnimation& m) { m.continueAnimation("Door"); }},
                    Edit{"reset", [](ktAnimation& m) { m.resetAnimation("Door"); }},
                    Edit{"cycleInterval", [](ktAnimation& m) { m.changedCycleInterval(3.0); }},
                    Edit{"fraction", [](ktAnimation& m) { m.changedFraction(0.5); }}),
    [](const testing::TestParamInfo<Edit>& edit) { return edit.param.name; });

TEST_P(EditEndTest, IsRecordedInTheChangeListFirst)
{
    edit();

    ASSERT_EQ(scene.changes.entries().size(), 1u);
    EXPECT_EQ(scene.changes.entries()[0].container.get(), &door);
    ASSERT_EQ(door.changes.size(), 1u);
    EXPECT_EQ(door.changes[0].listed, 1u);
    EXPECT_EQ(door.changes[0].mask, scene.changes.entries()[0].mask);
}

TEST_P(EditEndTest, TellsTheSensorOfAnExternalChange)
{
    edit();

    ASSERT_EQ(door.changes.size(), 1u);
    EXPECT_EQ(door.changes[0].origin, 1u);
}

TEST_P(EditEndTest, OnlyTellsTheSensorWhereTheThreadHasNoChangeList)
{
    osg::PThreadBase::setCurrentChangeList(nullptr);

    edit();

    EXPECT_EQ(door.changes.size(), 1u);
    EXPECT_TRUE(scene.changes.isEmpty());
}

TEST_P(EditEndTest, OnlyRecordsWhileChangesAreIgnored)
{
    osg::FieldContainerPtr::_ignore_change = true;

    edit();

    EXPECT_TRUE(door.changes.empty());
    EXPECT_EQ(scene.changes.entries().size(), 1u);
}

} // namespace
