#include "host/view/PictureRenderer.h"
#include "host/view/SceneView.h"
#include "tests/view/SceneText.h"

#include <gtest/gtest.h>

#include <QByteArrayList>

using kt::test::exampleScene;
using kt::test::sceneOf;
using kt::test::sendFraction;
using kthost::Picture;
using kthost::PictureRenderer;
using kthost::SceneView;

namespace
{

const QSize PictureSize(320, 200);

class PictureTest : public testing::Test
{
protected:
    QImage drawn(const QSize& size = PictureSize)
    {
        const Picture picture = renderer.render(view, size);
        EXPECT_TRUE(picture.error.isEmpty()) << picture.error.toStdString();
        return picture.image;
    }

    SceneView view;
    PictureRenderer renderer;
};

int differentPixels(const QImage& a, const QImage& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    return count;
}

/// Sets an environment variable for the length of a test.
class Environment
{
public:
    Environment(const char* name, const QByteArray& value)
        : _name(name), _before(qgetenv(name)), _was(qEnvironmentVariableIsSet(name))
    {
        qputenv(name, value);
    }
    ~Environment()
    {
        if (_was)
            qputenv(_name, _before);
        else
            qunsetenv(_name);
    }

private:
    const char* _name;
    QByteArray _before;
    bool _was;
};

} // namespace

TEST_F(PictureTest, AnOpenedDoorChangesThePicture)
{
    const auto scene = exampleScene("door.wrl");
    ASSERT_TRUE(scene);
    view.setScene(scene.root.get());
    const QImage shut = drawn();

    sendFraction(scene, "DoorSwing", 0.5F);

    EXPECT_GT(differentPixels(shut, drawn()), PictureSize.width() * PictureSize.height() / 50);
}

TEST_F(PictureTest, TheSameStateGivesTheSamePictureAfterAnother)
{
    const auto scene = exampleScene("courtyard.wrl");
    ASSERT_TRUE(scene);
    view.setScene(scene.root.get());
    const QImage first = drawn();
    sendFraction(scene, "DoorSwing", 0.5F);
    EXPECT_NE(first, drawn());

    sendFraction(scene, "DoorSwing", 0.0F);

    EXPECT_EQ(first, drawn());
}

TEST_F(PictureTest, AnotherRendererGivesTheSamePicture)
{
    const auto scene = exampleScene("courtyard.wrl");
    ASSERT_TRUE(scene);
    view.setScene(scene.root.get());
    const QImage first = drawn();

    SceneView otherView;
    otherView.setScene(scene.root.get());
    PictureRenderer otherRenderer;

    EXPECT_EQ(first, otherRenderer.render(otherView, PictureSize).image);
}

TEST_F(PictureTest, APictureHasTheSizeThatWasAskedFor)
{
    view.setScene(sceneOf("Shape { geometry Sphere {} }").get());

    EXPECT_EQ(drawn(QSize(200, 120)).size(), QSize(200, 120));
    EXPECT_EQ(drawn(QSize(33, 401)).size(), QSize(33, 401));
    EXPECT_EQ(drawn(QSize(1, 1)).size(), QSize(1, 1));
}

TEST_F(PictureTest, ThePictureIsTheRightWayUp)
{
    view.setScene(sceneOf("Background { skyColor 0 0 1 groundColor 0 1 0 groundAngle 1.57 }").get());

    const QImage picture = drawn();

    EXPECT_EQ(picture.pixelColor(160, 5), QColor(0, 0, 255));
    EXPECT_EQ(picture.pixelColor(160, 195), QColor(0, 255, 0));
}

TEST_F(PictureTest, EdgesAreSmooth)
{
    view.setScene(sceneOf("NavigationInfo { headlight FALSE } Background { skyColor 0 0 0 } "
                          "Transform { rotation 0 0 1 0.3 children Shape { geometry Box {} "
                          "appearance Appearance { material Material { emissiveColor 1 1 1 } } } }")
                      .get());

    const QImage picture = drawn();
    int between = 0;
    for (int x = 0; x < picture.width(); ++x)
        between += picture.pixelColor(x, 60).red() % 255 != 0 ? 1 : 0;

    EXPECT_GT(between, 0);
}

TEST_F(PictureTest, APictureIsOpaqueWhereTheSceneIsNot)
{
    view.setScene(
        sceneOf("Shape { geometry Box {} appearance Appearance { material Material { transparency 0.5 } } }")
            .get());

    const QImage picture = drawn();

    EXPECT_FALSE(picture.hasAlphaChannel());
}

TEST_F(PictureTest, AnEmptySizeIsAnError)
{
    const Picture picture = renderer.render(view, QSize(0, 100));

    EXPECT_TRUE(picture.image.isNull());
    EXPECT_EQ(picture.error, "a picture of 0x100 is empty");
}

TEST_F(PictureTest, ASizeBeyondTheDriverIsAnErrorAndTheNextPictureIsFine)
{
    const Picture picture = renderer.render(view, QSize(1000000, 10));

    EXPECT_TRUE(picture.image.isNull());
    EXPECT_TRUE(picture.error.startsWith("a picture of 1000000x10 is too large"))
        << picture.error.toStdString();
    EXPECT_FALSE(drawn().isNull());
}

TEST_F(PictureTest, ASizeBeyondMemoryIsAnError)
{
    const Picture picture = renderer.render(view, QSize(16000, 16000));

    EXPECT_TRUE(picture.image.isNull());
    EXPECT_TRUE(picture.error.startsWith("a picture of 16000x16000 is too large"))
        << picture.error.toStdString();
}

TEST_F(PictureTest, NoDisplayIsNeeded)
{
    const Environment nowhere("DISPLAY", ":4711");

    EXPECT_FALSE(drawn().isNull());
}

TEST(PictureWithoutDriverDeathTest, IsAnErrorInOneLine)
{
    // In a process of its own, since drivers are looked for once a process.
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(
        {
            const Environment none("__EGL_VENDOR_LIBRARY_FILENAMES", "/nowhere/driver.json");
            SceneView view;
            PictureRenderer renderer;
            const Picture picture = renderer.render(view, PictureSize);
            const bool told = picture.image.isNull() && picture.error.startsWith("no OpenGL driver") &&
                              !picture.error.contains('\n');
            std::_Exit(told ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}
