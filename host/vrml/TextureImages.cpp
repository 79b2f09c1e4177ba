#include "host/vrml/TextureImages.h"

#include "host/vrml/FileBytes.h"
#include "host/vrml/LocalUrl.h"
#include "host/vrml/ReadLimits.h"

#include <Inventor/SbImage.h>
#include <Inventor/VRMLnodes/SoVRMLImageTexture.h>

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

namespace kthost
{
namespace
{

constexpr int largestSide = 16384;

ReadLimits present;

bool isTooLarge(const QSize& size)
{
    return size.width() > largestSide || size.height() > largestSide ||
           (!size.isEmpty() &&
            static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()) >
                present.imagePixels);
}

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
    if (isTooLarge(reader.size()))
        return {};
    QImage image = reader.read();
    return isTooLarge(image.size()) ? QImage() : image;
}

/// From the bottom up and not padded, as the library has its rows.
void copyRows(const QImage& picture, int components, SbImage& image)
{
    const SbVec2s size(static_cast<short>(picture.width()), static_cast<short>(picture.height()));
    image.setValue(size, components, nullptr);
    SbVec2s copied;
    unsigned char* row = image.getValue(copied, components);
    const auto rowSize = static_cast<std::ptrdiff_t>(picture.width()) * components;
    for (int y = picture.height() - 1; y >= 0; --y)
        row = std::copy_n(picture.constScanLine(y), rowSize, row);
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

void TextureImages::setLimits(const ReadLimits& limits)
{
    present = limits;
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
    std::optional<std::string> bytes = FileBytes::read(path, ignored, {present.fileMegabytes, {}});
    if (!bytes || bytes->size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return false;
    QImage picture = decode(*bytes);
    bytes.reset(); // there are enough copies without it
    if (picture.isNull())
        return false;

    const PixelLayout layout = layoutOf(picture);
    picture = std::move(picture).convertToFormat(layout.format);
    copyRows(picture, layout.components, image);
    return true;
}

} // namespace kthost
