#include "host/view/PictureRenderer.h"
#include "host/view/SceneView.h"
#include "tests/view/SceneText.h"

#include <gtest/gtest.h>

using kt::test::sceneOf;
using kthost::PictureRenderer;
using kthost::SceneView;

namespace
{

QImage drawn(const char* text)
{
    const auto scene = sceneOf(text);
    SceneView view;
    view.setScene(scene.get());
    PictureRenderer renderer;
    return renderer.render(view, QSize(100, 100)).image;
}

} // namespace

TEST(Background, TheFirstOfSeveralShows)
{
    const QImage picture = drawn("Background { skyColor 1 0 0 } Viewpoint { position 0 0 10 } Shape { "
                                 "geometry Box {} } Background { skyColor 0 1 0 }");

    EXPECT_EQ(picture.pixelColor(2, 2), QColor(255, 0, 0));
    EXPECT_GT(picture.pixelColor(50, 50).blue(), 100);
}

TEST(Background, OneAfterTheShapesDoesNotHideThem)
{
    const QImage picture = drawn(
        "Viewpoint { position 0 0 10 } Shape { geometry Sphere { radius 2 } appearance Appearance { material "
        "Material { diffuseColor 0 0 0 emissiveColor 0 0 1 } } } Background { skyColor 1 0 0 }");

    EXPECT_EQ(picture.pixelColor(50, 50), QColor(0, 0, 255));
    EXPECT_EQ(picture.pixelColor(2, 2), QColor(255, 0, 0));
}

TEST(Background, OneWithoutColoursIsBlack)
{
    const QImage picture = drawn("Background {}");

    EXPECT_EQ(picture.pixelColor(50, 50), QColor(Qt::black));
}

TEST(Background, ASceneWithoutOneGetsOursLighterTowardsTheHorizon)
{
    const QImage picture =
        drawn("Viewpoint {} Transform { translation 1000 0 0 children Shape { geometry Box {} } }");

    EXPECT_GT(qGray(picture.pixel(50, 50)), qGray(picture.pixel(50, 2)));
    EXPECT_GT(qGray(picture.pixel(50, 50)), qGray(picture.pixel(50, 97)));
}

TEST(Background, AnEmptyViewHasOursToo)
{
    SceneView view;
    PictureRenderer renderer;
    const QImage picture = renderer.render(view, QSize(100, 100)).image;

    EXPECT_GT(qGray(picture.pixel(50, 50)), qGray(picture.pixel(50, 2)));
}
