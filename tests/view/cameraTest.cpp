#include "host/view/PictureRenderer.h"
#include "host/view/SceneView.h"
#include "tests/view/SceneText.h"

#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include <gtest/gtest.h>

#include <cmath>

using kt::test::sceneOf;
using kthost::PictureRenderer;
using kthost::SceneView;

namespace
{

/// A glowing square before a black sky, its sides seen under 2 * atan(0.25) from the viewpoint, half of what
/// the picture's smaller side shows.
const char* const Square = R"(
    NavigationInfo { headlight FALSE }
    Background { skyColor 0 0 0 }
    Viewpoint { position 0 0 4 fieldOfView 0.92729522 }
    Shape {
        appearance Appearance { material Material { emissiveColor 1 1 1 } }
        geometry IndexedFaceSet {
            coord Coordinate { point [ -1 -1 0, 1 -1 0, 1 1 0, -1 1 0 ] }
            coordIndex [ 0 1 2 3 ]
        }
    }
)";

class CameraTest : public testing::Test
{
protected:
    QImage drawn(const char* text, const QSize& size)
    {
        scene = sceneOf(text);
        view.setScene(scene.get());
        return renderer.render(view, size).image;
    }

    kthost::CoinRef<SoVRMLGroup> scene;
    SceneView view;
    PictureRenderer renderer;
};

bool isLit(const QImage& picture, int x, int y)
{
    return qGray(picture.pixel(x, y)) > 100;
}

int litInRow(const QImage& picture, int y)
{
    int count = 0;
    for (int x = 0; x < picture.width(); ++x)
        count += isLit(picture, x, y) ? 1 : 0;
    return count;
}

int litInColumn(const QImage& picture, int x)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        count += isLit(picture, x, y) ? 1 : 0;
    return count;
}

} // namespace

TEST_F(CameraTest, TheFieldOfViewIsTheHeightOfALandscapePicture)
{
    const QImage picture = drawn(Square, QSize(400, 200));

    EXPECT_EQ(litInColumn(picture, 200), 100);
    EXPECT_EQ(litInRow(picture, 100), 100);
}

TEST_F(CameraTest, TheFieldOfViewIsTheWidthOfAPortraitPicture)
{
    const QImage picture = drawn(Square, QSize(200, 400));

    EXPECT_EQ(litInColumn(picture, 100), 100);
    EXPECT_EQ(litInRow(picture, 200), 100);
}

TEST_F(CameraTest, ASceneWithoutViewpointIsSeenWhole)
{
    const char* const far =
        "NavigationInfo { headlight FALSE } Background {} Transform { translation 500 80 -3000 "
        "children Shape { geometry Sphere { radius 40 } appearance Appearance { material "
        "Material { emissiveColor 1 1 1 } } } }";
    const QImage picture = drawn(far, QSize(300, 200));

    EXPECT_TRUE(isLit(picture, 150, 100));
    EXPECT_EQ(litInRow(picture, 0) + litInRow(picture, 199), 0);
    EXPECT_GT(litInColumn(picture, 150), 100);
}

TEST_F(CameraTest, NothingIsClippedNearOrFar)
{
    const char* const deep =
        "NavigationInfo { headlight FALSE } Background {} Viewpoint { position 0 0 0.5 } "
        "DEF Spot Transform { translation -0.06 0 0.3 children Shape { geometry Box { size 0.1 0.1 0.01 } "
        "appearance DEF Glow Appearance { material Material { emissiveColor 1 1 1 } } } } "
        "Transform { translation 300 0 -1000 children Shape { geometry Box { size 500 500 1 } "
        "appearance USE Glow } }";
    const QImage picture = drawn(deep, QSize(200, 200));

    EXPECT_TRUE(isLit(picture, 50, 100));
    EXPECT_TRUE(isLit(picture, 150, 100));
}

TEST_F(CameraTest, WhatIsCloseTogetherStaysApartInAVastScene)
{
    // The black board stands just behind the glowing one and is drawn after it; a third thing is far behind
    // the camera.
    const char* const vast = R"(
        NavigationInfo { headlight FALSE } Background {} Viewpoint { position 0 0 30 }
        Transform { translation 0 0 0.015 children Shape { geometry Box { size 7 7 0.02 }
            appearance DEF Glow Appearance { material Material { emissiveColor 1 1 1 } } } }
        Shape { geometry Box { size 8 8 0.02 }
            appearance Appearance { material Material { diffuseColor 0 0 0 } } }
        Transform { translation 0 0 99 children Shape { geometry Box {} appearance USE Glow } }
    )";
    const QImage picture = drawn(vast, QSize(200, 200));

    int lit = 0;
    for (int y = 80; y < 120; ++y)
        for (int x = 80; x < 120; ++x)
            lit += isLit(picture, x, y) ? 1 : 0;
    EXPECT_EQ(lit, 40 * 40);
}

TEST_F(CameraTest, ASceneBehindTheCameraIsNoHarm)
{
    const QImage picture =
        drawn("Background {} Viewpoint { position 0 0 -50 } Shape { geometry Box {} }", QSize(50, 50));

    EXPECT_FALSE(isLit(picture, 25, 25));
}

TEST_F(CameraTest, AnEmptySceneIsNoHarm)
{
    view.setScene(nullptr);
    view.updateViewpoint();
    view.viewAll(QSize(100, 100));

    EXPECT_FALSE(renderer.render(view, QSize(100, 100)).image.isNull());
    EXPECT_TRUE(std::isfinite(view.camera()->position.getValue()[2]));
}

TEST_F(CameraTest, TheHeadlightShinesUnlessTheSceneTurnsItOff)
{
    const char* const dark = "NavigationInfo { headlight FALSE } Background {} Shape { geometry Box {} "
                             "appearance Appearance { material Material {} } }";
    const char* const lit =
        "Background {} Shape { geometry Box {} appearance Appearance { material Material {} } }";

    EXPECT_FALSE(isLit(drawn(dark, QSize(100, 100)), 50, 50));
    EXPECT_TRUE(isLit(drawn(lit, QSize(100, 100)), 50, 50));
}

TEST_F(CameraTest, TheHeadlightTurnsWithTheCamera)
{
    const QImage picture = drawn("Background {} Viewpoint { position 10 0 0 orientation 0 1 0 1.5707963 } "
                                 "Shape { geometry Box {} appearance Appearance { material Material {} } }",
                                 QSize(100, 100));

    EXPECT_TRUE(isLit(picture, 50, 50));
}

TEST_F(CameraTest, TheOverlayIsDrawnAndOutlivesTheScene)
{
    const auto mark = sceneOf(Square);
    view.overlay()->addChild(mark.get());

    EXPECT_TRUE(isLit(drawn("Background {} Viewpoint { position 0 0 4 }", QSize(100, 100)), 50, 50));
}
