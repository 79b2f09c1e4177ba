#include "host/view/SceneView.h"
#include "tests/view/SceneText.h"

#include <Inventor/VRMLnodes/SoVRMLTransform.h>
#include <Inventor/VRMLnodes/SoVRMLViewpoint.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using kt::test::named;
using kt::test::sceneOf;
using kthost::SceneView;

namespace
{

constexpr float Tolerance = 1e-5F;
constexpr float QuarterTurn = 1.5707963F;

const char* const TwoViewpoints = R"(
    DEF Lift Transform { children DEF First Viewpoint { position 1 2 3 description "Entrance" fieldOfView 0.5 } }
    DEF Second Viewpoint { position 0 0 20 orientation 0 1 0 1.5707963 }
    Shape { geometry Box {} }
)";

class ViewpointTest : public testing::Test
{
protected:
    void show(const char* text)
    {
        scene = sceneOf(text);
        ASSERT_TRUE(scene);
        view.setScene(scene.get());
    }

    SoVRMLViewpoint& viewpoint(const char* name) { return *named<SoVRMLViewpoint>(scene, name); }
    SoVRMLTransform& transform(const char* name) { return *named<SoVRMLTransform>(scene, name); }
    SbVec3f position() const { return view.camera()->position.getValue(); }

    SbVec3f direction() const
    {
        SbVec3f ahead;
        view.camera()->orientation.getValue().multVec(SbVec3f(0, 0, -1), ahead);
        return ahead;
    }

    SceneView view;
    kthost::CoinRef<SoVRMLGroup> scene;
};

::testing::AssertionResult isNear(const SbVec3f& actual, const SbVec3f& expected)
{
    if ((actual - expected).length() <= Tolerance)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << actual.toString().getString() << " is not " << expected.toString().getString();
}

} // namespace

TEST_F(ViewpointTest, TheFirstOneOfTheFileIsBound)
{
    show(TwoViewpoints);

    EXPECT_EQ(view.boundViewpoint(), 0);
    EXPECT_TRUE(isNear(position(), SbVec3f(1, 2, 3)));
    EXPECT_TRUE(isNear(direction(), SbVec3f(0, 0, -1)));
    EXPECT_FLOAT_EQ(view.camera()->heightAngle.getValue(), 0.5F);
}

TEST_F(ViewpointTest, OneWithoutPositionStandsWhereVrml97HasIt)
{
    show("Viewpoint {}");

    EXPECT_TRUE(isNear(position(), SbVec3f(0, 0, 10)));
}

TEST_F(ViewpointTest, NodesAboveItPlaceItInTheWorld)
{
    show("Transform { translation 10 0 0 rotation 0 1 0 1.5707963 children Viewpoint { position 0 0 2 } }");

    EXPECT_TRUE(isNear(position(), SbVec3f(12, 0, 0)));
    EXPECT_TRUE(isNear(direction(), SbVec3f(-1, 0, 0)));
}

TEST_F(ViewpointTest, TheCameraFollowsItsPositionAndOrientation)
{
    show(TwoViewpoints);

    viewpoint("First").position = SbVec3f(5, 2, 3);
    viewpoint("First").orientation = SbRotation(SbVec3f(0, 1, 0), QuarterTurn);
    view.updateViewpoint();

    EXPECT_TRUE(isNear(position(), SbVec3f(5, 2, 3)));
    EXPECT_TRUE(isNear(direction(), SbVec3f(-1, 0, 0)));
}

TEST_F(ViewpointTest, TheCameraFollowsTheNodesAboveIt)
{
    show(TwoViewpoints);

    transform("Lift").translation = SbVec3f(0, 10, 0);
    view.updateViewpoint();

    EXPECT_TRUE(isNear(position(), SbVec3f(1, 12, 3)));
}

TEST_F(ViewpointTest, TheCameraFollowsItsFieldOfView)
{
    show(TwoViewpoints);

    viewpoint("First").fieldOfView = 1.25F;
    view.updateViewpoint();

    EXPECT_FLOAT_EQ(view.camera()->heightAngle.getValue(), 1.25F);
}

TEST_F(ViewpointTest, WhatTheUserAddedStaysRelativeToIt)
{
    show(TwoViewpoints);
    view.camera()->position = SbVec3f(1, 2, 5); // two back

    viewpoint("First").orientation = SbRotation(SbVec3f(0, 1, 0), QuarterTurn);
    view.updateViewpoint();

    EXPECT_TRUE(isNear(position(), SbVec3f(3, 2, 3)));
    EXPECT_TRUE(isNear(direction(), SbVec3f(-1, 0, 0)));
}

TEST_F(ViewpointTest, WhatTheUserTurnedStaysRelativeToIt)
{
    show(TwoViewpoints);
    view.camera()->orientation = SbRotation(SbVec3f(1, 0, 0), QuarterTurn); // looks up

    viewpoint("First").orientation = SbRotation(SbVec3f(0, 0, 1), QuarterTurn);
    view.updateViewpoint();

    EXPECT_TRUE(isNear(direction(), SbVec3f(-1, 0, 0)));
}

TEST_F(ViewpointTest, OneThatDoesNotMoveLeavesTheUsersCameraAlone)
{
    show(TwoViewpoints);
    view.camera()->position = SbVec3f(7, 7, 7);

    view.updateViewpoint();

    EXPECT_EQ(position(), SbVec3f(7, 7, 7));
}

TEST_F(ViewpointTest, AThousandStepsEndWhereOneDoes)
{
    show(TwoViewpoints);
    for (int step = 1; step <= 1000; ++step) {
        viewpoint("First").orientation =
            SbRotation(SbVec3f(0.2F, 1, 0.1F), 0.003F * static_cast<float>(step));
        view.updateViewpoint();
    }
    const SbRotation walked = view.camera()->orientation.getValue();

    SceneView other;
    other.setScene(scene.get());

    EXPECT_EQ(walked, other.camera()->orientation.getValue());
    EXPECT_EQ(position(), other.camera()->position.getValue());
}

TEST_F(ViewpointTest, TheyGoByDescriptionElseByNameElseByNumber)
{
    show("Viewpoint { description \"From the brücke\" } DEF Tower Viewpoint {} Viewpoint {}");

    EXPECT_EQ(view.viewpoints(), (QStringList{QString::fromUtf8("From the brücke"), "Tower", "Viewpoint 3"}));
}

TEST_F(ViewpointTest, TheirNamesAreThoseOfTheFile)
{
    QTemporaryDir folder;
    QFile file(folder.filePath("scene.wrl"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#VRML V2.0 utf8\nDEF Brücke Viewpoint {}\n");
    file.close();
    const kthost::SceneReading reading = kthost::SceneReader::read(file.fileName().toStdString());
    ASSERT_TRUE(reading);

    view.setScene(reading.root.get(), &reading.names);

    EXPECT_EQ(view.viewpoints(), QStringList(QString::fromUtf8("Brücke")));
}

TEST_F(ViewpointTest, AnotherOneCanBeBound)
{
    show(TwoViewpoints);

    view.bindViewpoint(1);

    EXPECT_EQ(view.boundViewpoint(), 1);
    EXPECT_TRUE(isNear(position(), SbVec3f(0, 0, 20)));
    EXPECT_TRUE(isNear(direction(), SbVec3f(-1, 0, 0)));
}

TEST_F(ViewpointTest, OneThatIsNotBoundDoesNotMoveTheCamera)
{
    show(TwoViewpoints);

    viewpoint("Second").position = SbVec3f(9, 9, 9);
    view.updateViewpoint();

    EXPECT_TRUE(isNear(position(), SbVec3f(1, 2, 3)));
}

TEST_F(ViewpointTest, OneThatDoesNotExistIsIgnored)
{
    show(TwoViewpoints);

    view.bindViewpoint(2);
    view.bindViewpoint(-1);

    EXPECT_EQ(view.boundViewpoint(), 0);
}

TEST_F(ViewpointTest, ResettingUndoesTheUsersNavigation)
{
    show(TwoViewpoints);
    view.camera()->position = SbVec3f(7, 7, 7);

    view.resetCamera();

    EXPECT_TRUE(isNear(position(), SbVec3f(1, 2, 3)));
}

TEST_F(ViewpointTest, AnotherSceneForgetsTheViewpointsOfTheFirst)
{
    show(TwoViewpoints);
    const auto first = scene;
    show("Shape { geometry Box {} }");
    const SbVec3f before = position();

    named<SoVRMLViewpoint>(first, "First")->position = SbVec3f(50, 50, 50);
    view.updateViewpoint();

    EXPECT_EQ(position(), before);
    EXPECT_EQ(view.boundViewpoint(), -1);
    EXPECT_TRUE(view.viewpoints().isEmpty());
}
