#include "host/vrml/TextureImages.h"

#include "host/vrml/FileBytes.h"
#include "host/vrml/LocalUrl.h"

#include <Inventor/SbImage.h>
#include <Inventor/VRMLnodes/SoVRMLImageTexture.h>

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>

#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace kthost
{
namespace
{

constexpr int largestSide = 16384;

std::string& folder()
{
    static std::string path;
    return path;
}

struct PixelLayout
{
    QImage::Format format;
    int components;
};

PixelLayout layoutOf(const QImage& image)
{
    if (image.hasAlphaChannel())
        return {QImage::Format_RGBA8888, 4};
    if (image.allGray())
        return {QImage::Format_Grayscale8, 1};
    return {QImage::Format_RGB888, 3};
}

QImage decode(const std::string& bytes)
{
    // Qt reads through a view of the bytes; they outlive it.
    QByteArray view = QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size()));
    QBuffer buffer(&view);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (size.width() > largestSide || size.height() > largestSide)
        return {};
    const QImage image = reader.read();
    return image.width() <= largestSide && image.height() <= largestSide ? image : QImage();
}

SbBool readForLibrary(const SbString& path, SbImage* image, void* /*closure*/)
{
    return TextureImages::read(path.getString(), *image) ? TRUE : FALSE;
}

SbBool fetchTexture(const SbString& /*firstUrl*/, void* /*closure*/, SoVRMLImageTexture* texture)
{
    for (int i = 0; i < texture->url.getNum(); ++i) {
        const LocalUrl file = LocalUrl::resolve(texture->url[i].getString(), folder());
        SbImage image;
        if (!file.path.empty() && TextureImages::read(file.path, image)) {
            texture->setImage(image);
            return TRUE;
        }
    }
    return FALSE;
}

} // namespace

void TextureImages::install()
{
    SbImage::addReadImageCB(readForLibrary, nullptr);
    SoVRMLImageTexture::setPrequalifyFileCallBack(fetchTexture, nullptr);
    SoVRMLImageTexture::setDelayFetchURL(FALSE);
    // An image that was dropped for its age would be looked up again in the folder of another file.
    SoVRMLImageTexture::setImageDataMaxAge(std::numeric_limits<std::uint32_t>::max());
}

void TextureImages::leaveOut()
{
    SoVRMLImageTexture::setDelayFetchURL(TRUE);
}

std::string TextureImages::setFolder(std::string path)
{
    return std::exchange(folder(), std::move(path));
}

bool TextureImages::read(const std::string& path, SbImage& image)
{
    std::string ignored;
    const std::optional<std::string> bytes = FileBytes::read(path, ignored);
    if (!bytes || bytes->size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return false;
    QImage picture = decode(*bytes);
    if (picture.isNull())
        return false;

    const PixelLayout layout = layoutOf(picture);
    // The library's rows go from the bottom up and are not padded.
    picture = picture.convertToFormat(layout.format).mirrored();
    const auto rowSize =
        static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(layout.components);
    std::vector<unsigned char> pixels;
    pixels.reserve(rowSize * static_cast<std::size_t>(picture.height()));
    for (int row = 0; row < picture.height(); ++row)
        pixels.insert(pixels.end(), picture.constScanLine(row), picture.constScanLine(row) + rowSize);
    image.setValue(SbVec2s(static_cast<short>(picture.width()), static_cast<short>(picture.height())),
                   layout.components, pixels.data());
    return true;
}

} // namespace kthost
