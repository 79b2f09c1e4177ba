#include "tests/vrml/SceneBindingFixture.h"

#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/sensors/SoNodeSensor.h>

namespace kthost::test
{
namespace
{

class MovingPictureTest : public SceneBindingTest
{
protected:
    /// Sensors whose boxes sit side by side, deep below groups that keep what they know of what is below
    /// them.
    void openDeepScene()
    {
        const std::string cached = "Group { renderCaching ON boundingBoxCaching ON children [ ";
        std::string text;
        for (int i = 0; i < 8; ++i)
            text += cached;
        text += "DEF B Transform { children Shape { geometry Box { size 2 2 2 } } }"
                "Group { boundingBoxCaching ON children DEF C Transform { children Shape { geometry Box { "
                "size 2 2 2 } } } }";
        for (int i = 0; i < 8; ++i)
            text += " ] }";
        for (const std::string name : {"B", "C"})
            text += "DEF T" + name + " TimeSensor {} DEF I" + name +
                    " PositionInterpolator { key [ 0 1 ] keyValue [ 0 0 0, 8 0 0 ] } ROUTE T" + name +
                    ".fraction_changed TO I" + name + ".set_fraction ROUTE I" + name + ".value_changed TO " +
                    name + ".set_translation ";
        open(text);
    }

    float rightEdge()
    {
        SoGetBoundingBoxAction box(SbViewportRegion(100, 100));
        box.apply(scene->reading.root.get());
        return box.getBoundingBox().getMax()[0];
    }
};

TEST_F(MovingPictureTest, IsNeverAnOldOne)
{
    openDeepScene();
    for (int round = 0; round < 3; ++round) {
        ASSERT_EQ(rightEdge(), 1.0F);
        editFraction(0.5F, 0);
        applyChanges();
        EXPECT_EQ(rightEdge(), 5.0F);
        editFraction(1.0F, 1);
        applyChanges();
        EXPECT_EQ(rightEdge(), 9.0F);
        editFraction(0.0F, 0);
        editFraction(0.25F, 1);
        applyChanges();
        EXPECT_EQ(rightEdge(), 3.0F);
        editFraction(0.0F, 1);
        applyChanges();
    }
}

TEST_F(MovingPictureTest, IsAnnouncedOnceAFrame)
{
    openDeepScene();
    int announcements = 0;
    SoNodeSensor view([](void* count, SoSensor*) { ++*static_cast<int*>(count); }, &announcements);
    view.setPriority(0);
    view.attach(scene->reading.root.get());
    editFraction(0.5F, 0);
    editFraction(0.5F, 1);
    applyChanges();
    EXPECT_EQ(announcements, 1);
    editFraction(0.6F, 1);
    applyChanges();
    EXPECT_EQ(announcements, 2);
    applyChanges();
    EXPECT_EQ(announcements, 2);
}

} // namespace
} // namespace kthost::test
