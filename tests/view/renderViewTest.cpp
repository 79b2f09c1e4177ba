#include "host/view/RenderView.h"
#include "host/view/SceneView.h"
#include "tests/view/MouseDrag.h"
#include "tests/view/SceneText.h"

#include <Inventor/VRMLnodes/SoVRMLTouchSensor.h>
#include <Inventor/VRMLnodes/SoVRMLViewpoint.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

using kt::test::exampleScene;
using kt::test::named;
using kt::test::sceneOf;
using kthost::RenderView;
using kthost::SceneView;

namespace
{

class RenderViewTest : public testing::Test
{
protected:
    RenderViewTest() : widget(view), frames(&widget, &RenderView::frameRendered)
    {
        widget.resize(300, 200);
        widget.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&widget));
    }

    bool nextFrame()
    {
        frames.clear();
        return frames.wait();
    }

    QWidget* window() { return widget.focusProxy(); }

    SceneView view;
    RenderView widget;
    QSignalSpy frames;
};

} // namespace

TEST_F(RenderViewTest, TellsOfItsFirstFrame)
{
    EXPECT_TRUE(!frames.isEmpty() || frames.wait());
}

TEST_F(RenderViewTest, DrawsWhenTheSceneIsReplaced)
{
    ASSERT_TRUE(!frames.isEmpty() || frames.wait());
    const auto scene = exampleScene("door.wrl");

    view.setScene(scene.root.get());

    EXPECT_TRUE(nextFrame());
}

TEST_F(RenderViewTest, DrawsWhenANodeOfTheSceneChanges)
{
    const auto scene = exampleScene("door.wrl");
    view.setScene(scene.root.get());
    ASSERT_TRUE(nextFrame());
    QCoreApplication::processEvents();

    kt::test::sendFraction(scene, "DoorSwing", 0.5F);

    EXPECT_TRUE(nextFrame());
}

TEST_F(RenderViewTest, ItsPictureShowsWhatTheViewShows)
{
    const auto scene = sceneOf("NavigationInfo { headlight FALSE } Background { skyColor 1 0 0 }");
    view.setScene(scene.get());

    const kthost::Picture picture = widget.picture(QSize(64, 48));

    EXPECT_EQ(picture.error, "");
    EXPECT_EQ(picture.image.size(), QSize(64, 48));
    EXPECT_EQ(picture.image.pixelColor(30, 20), QColor(255, 0, 0));
}

TEST_F(RenderViewTest, ItsPictureHasItsOwnSizeUnlessAskedOtherwise)
{
    EXPECT_EQ(widget.picture().image.size(), widget.size() * widget.devicePixelRatioF());
}

TEST_F(RenderViewTest, GoesOnDrawingAfterAPictureWasTaken)
{
    ASSERT_TRUE(!frames.isEmpty() || frames.wait());
    ASSERT_EQ(widget.picture(QSize(64, 48)).error, "");

    view.camera()->position = SbVec3f(1, 2, 3);

    EXPECT_TRUE(nextFrame());
    EXPECT_EQ(widget.picture(QSize(64, 48)).error, "");
}

TEST_F(RenderViewTest, DraggingTurnsTheCameraAboutTheScene)
{
    const auto scene = exampleScene("door.wrl");
    view.setScene(scene.root.get());
    ASSERT_TRUE(nextFrame());
    const SbRotation before = view.camera()->orientation.getValue();

    kt::test::drag(window(), QPoint(150, 100), QPoint(200, 100));

    EXPECT_FALSE(before.equals(view.camera()->orientation.getValue(), 1e-3F));
}

TEST_F(RenderViewTest, ViewingAllBringsADistantSceneIntoThePicture)
{
    const auto scene =
        sceneOf("NavigationInfo { headlight FALSE } Background {} Viewpoint { position 900 0 0 } Shape { "
                "geometry Box {} appearance Appearance { material Material { emissiveColor 1 1 1 } } }");
    view.setScene(scene.get());
    ASSERT_EQ(qGray(widget.picture(QSize(60, 60)).image.pixel(30, 30)), 0);

    widget.viewAll();

    EXPECT_EQ(qGray(widget.picture(QSize(60, 60)).image.pixel(30, 30)), 255);
}

TEST_F(RenderViewTest, CanBeReachedByTabAndHasAName)
{
    ASSERT_NE(window(), nullptr);
    EXPECT_TRUE(window()->focusPolicy() & Qt::TabFocus);
    EXPECT_TRUE(window()->focusPolicy() & Qt::ClickFocus);
    EXPECT_FALSE(window()->accessibleName().isEmpty());
}

TEST_F(RenderViewTest, ASecondOneMayFollowTheFirst)
{
    SceneView otherView;
    RenderView other(otherView);
    QSignalSpy otherFrames(&other, &RenderView::frameRendered);
    other.resize(100, 100);
    other.show();

    EXPECT_TRUE(otherFrames.wait());
}

TEST_F(RenderViewTest, ItsWindowIsAsLargeAsTheWidget)
{
    EXPECT_EQ(window()->size(), widget.size());

    widget.resize(420, 260);

    EXPECT_TRUE(QTest::qWaitFor([&] { return window()->size() == QSize(420, 260); }));
}

TEST_F(RenderViewTest, AClickOnWhatIsTouchableIsTheScenes)
{
    const auto scene = sceneOf("Viewpoint { position 0 0 10 } Group { children [ DEF Touch TouchSensor {}\n"
                               "Shape { geometry Box { size 2 2 2 } } ] }");
    auto* const touch = named<SoVRMLTouchSensor>(scene, "Touch");
    view.setScene(scene.get());
    ASSERT_TRUE(nextFrame());
    const SbTime before = touch->touchTime.getValue();

    QTest::mouseClick(window(), Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_EQ(touch->touchTime.getValue(), before);

    QTest::mouseClick(window(), Qt::LeftButton, {}, window()->rect().center());
    EXPECT_GT(touch->touchTime.getValue(), before);
}

TEST_F(RenderViewTest, ATouchDoesNotTurnTheScene)
{
    const auto scene = sceneOf("Viewpoint { position 0 0 10 } Group { children [ DEF Touch TouchSensor {}\n"
                               "Shape { geometry Box { size 2 2 2 } } ] }");
    view.setScene(scene.get());
    ASSERT_TRUE(nextFrame());
    const auto dragFrom = [&](const QPoint& start) {
        const SbRotation before = view.camera()->orientation.getValue();
        kt::test::drag(window(), start, start + QPoint(50, 0));
        return !before.equals(view.camera()->orientation.getValue(), 1e-3F);
    };

    EXPECT_FALSE(dragFrom(window()->rect().center()));
    EXPECT_TRUE(dragFrom(QPoint(5, 5)));
}
