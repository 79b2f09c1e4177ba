#include "host/vrml/TextureImages.h"

#include "host/vrml/ImageGuard.h"
#include "host/vrml/ReadLimits.h"
#include "host/vrml/SceneGuard.h"

#include "tests/support/LogRecorder.h"
#include "tests/vrml/BuiltScene.h"
#include "tests/vrml/SceneFiles.h"

#include <gtest/gtest.h>

#include <Inventor/SbImage.h>
#include <Inventor/VRMLnodes/SoVRMLBox.h>
#include <Inventor/actions/SoCallbackAction.h>

#include <QImage>
#include <QString>

#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

namespace kthost
{
namespace
{

class TextureImagesTest : public testing::Test
{
protected:
    std::string save(const std::string& name, const QImage& picture) const
    {
        EXPECT_TRUE(picture.save(QString::fromStdString(folder.path(name))));
        return folder.path(name);
    }

    static std::vector<int> pixelsOf(const SbImage& image, int& components)
    {
        SbVec2s size;
        const unsigned char* const bytes = image.getValue(size, components);
        return bytes ? std::vector<int>(bytes, bytes + size[0] * size[1] * components) : std::vector<int>();
    }

    static SoCallbackAction::Response readTextureSize(void* size, SoCallbackAction* action, const SoNode*)
    {
        int ignored = 0;
        action->getTextureImage(*static_cast<SbVec2s*>(size), ignored);
        return SoCallbackAction::CONTINUE;
    }

    test::SceneFolder folder;
    SbImage image;
    int components = 0;
};

TEST_F(TextureImagesTest, PutsTheRowsBottomUpWithoutPadding)
{
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(QColor(10, 20, 30));
    picture.setPixelColor(0, 0, QColor(1, 2, 3));
    picture.setPixelColor(2, 1, QColor(7, 8, 9));
    ASSERT_TRUE(TextureImages::read(save("a.png", picture), image));
    EXPECT_EQ(pixelsOf(image, components),
              (std::vector<int>{10, 20, 30, 10, 20, 30, 7, 8, 9, 1, 2, 3, 10, 20, 30, 10, 20, 30}));
    EXPECT_EQ(components, 3);
}

TEST_F(TextureImagesTest, KeepsTransparencyAndGrey)
{
    QImage glass(1, 1, QImage::Format_ARGB32);
    glass.fill(QColor(1, 2, 3, 4));
    ASSERT_TRUE(TextureImages::read(save("glass.png", glass), image));
    EXPECT_EQ(pixelsOf(image, components), (std::vector<int>{1, 2, 3, 4}));

    QImage grey(1, 1, QImage::Format_Grayscale8);
    grey.fill(77);
    ASSERT_TRUE(TextureImages::read(save("grey.png", grey), image));
    EXPECT_EQ(pixelsOf(image, components), std::vector<int>{77});
}

TEST_F(TextureImagesTest, RefusesMorePixelsThanTheLimit)
{
    const std::string path = save("a.png", QImage(30, 20, QImage::Format_RGB32));
    ReadLimits limits;
    limits.imagePixels = 599;
    TextureImages::setReading(limits, nullptr);
    EXPECT_FALSE(TextureImages::read(path, image));
    limits.imagePixels = 600;
    TextureImages::setReading(limits, nullptr);
    EXPECT_TRUE(TextureImages::read(path, image));
    TextureImages::setReading({}, nullptr);
}

TEST_F(TextureImagesTest, RefusesAFileThatIsLargerThanTheLimit)
{
    QImage picture(700, 700, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const std::string path = save("a.bmp", picture); // 1.9 megabytes
    ReadLimits limits;
    for (const auto& [megabytes, isRead] : {std::pair{1U, false}, {2U, true}}) {
        limits.fileMegabytes = megabytes;
        TextureImages::setReading(limits, nullptr);
        EXPECT_EQ(TextureImages::read(path, image), isRead);
    }
    TextureImages::setReading({}, nullptr);
}

TEST_F(TextureImagesTest, RefusesWhatIsNoImage)
{
    EXPECT_FALSE(TextureImages::read(folder.path("none.png"), image));
    EXPECT_FALSE(TextureImages::read(folder.write("text.png", "no image"), image));
    EXPECT_FALSE(TextureImages::read(folder.write("empty.png", ""), image));
    EXPECT_FALSE(TextureImages::read(save("wide.png", QImage(16385, 1, QImage::Format_Mono)), image));
    EXPECT_TRUE(pixelsOf(image, components).empty());
}

TEST_F(TextureImagesTest, LeavesThemToTheGuardWhileThereIsOne)
{
    const std::string path = save("a.png", QImage(3, 2, QImage::Format_RGB32));
    auto broken = std::make_shared<ImageGuard>(folder.path("no-such-program"), ReadLimits());
    TextureImages::setReading({}, broken);
    EXPECT_FALSE(TextureImages::read(path, image));
    broken.reset();
    EXPECT_TRUE(TextureImages::read(path, image));
}

TEST_F(TextureImagesTest, EachReadingTriesItsImagesAnew)
{
    const kt::test::LogRecorder log;
    const auto guard = std::make_shared<ImageGuard>(KT_LYING_READER, ReadLimits());
    for (int reading = 0; reading < 2; ++reading) {
        TextureImages::setReading({}, guard);
        EXPECT_FALSE(TextureImages::read("3", image));
    }
    TextureImages::setReading({}, nullptr);
    const std::string fatal = "info: 3: the image is left out: the reader breaks down over it";
    EXPECT_EQ(log.lines(), (std::vector<std::string>{fatal, fatal}));
}

TEST_F(TextureImagesTest, TheGuardOfASceneReadsItsImagesToo)
{
    const std::string scene =
        folder.writeScene("scene.wrl", "Appearance { texture ImageTexture {\nurl \"a.png\" } }");
    save("a.png", QImage(3, 2, QImage::Format_RGB32));
    std::filesystem::create_symlink(KT_SCENE_CHECK, folder.path("kthost-scene-check"));
    std::filesystem::create_symlink(KT_LYING_READER, folder.path("kthost-image-reader"));
    for (const auto& [program, warnings] :
         {std::pair{std::string(KT_SCENE_CHECK), 0U}, {folder.path("kthost-scene-check"), 1U}}) {
        SceneGuard guard(program, {});
        const SceneReading reading = SceneReader::read(scene, {}, &guard);
        ASSERT_TRUE(reading) << reading.error;
        EXPECT_EQ(reading.warnings.total(), warnings);
    }
}

TEST_F(TextureImagesTest, LoadsATextureFromTheFolderOfTheFileThatNamesIt)
{
    folder.makeFolder("parts");
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    save("parts/Holz \xC3\xBC.jpg", picture);
    folder.writeScene("parts/part.wrl", "Shape { appearance Appearance { texture ImageTexture {\n"
                                        "url [ \"none.png\" \"Holz \xC3\xBC.jpg\" ] } } geometry Box {} }");
    const test::BuiltScene scene(folder.writeScene("scene.wrl", "Inline { url \"parts/part.wrl\" }"));
    ASSERT_TRUE(scene.reading) << scene.reading.error;
    EXPECT_EQ(scene.reading.warnings.total(), 0U);

    SbVec2s size;
    SoCallbackAction action;
    action.addPreCallback(SoVRMLBox::getClassTypeId(), readTextureSize, &size);
    action.apply(scene.reading.root.get());
    EXPECT_EQ(size, SbVec2s(2, 2));
}

TEST_F(TextureImagesTest, WarnsOfAMissingTexture)
{
    const test::BuiltScene scene(folder.writeScene(
        "scene.wrl", "Appearance { texture ImageTexture {\nurl \"http://example.org/a.png\" } }"));
    ASSERT_TRUE(scene.reading) << scene.reading.error;
    ASSERT_EQ(scene.reading.warnings.total(), 1U);
    EXPECT_NE(scene.reading.warnings.entries()[0].text.find("http://example.org/a.png"), std::string::npos);
}

} // namespace
} // namespace kthost
