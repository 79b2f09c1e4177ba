#include "host/vrml/ImageDecoder.h"

#include "host/vrml/FileBytes.h"
#include "host/vrml/ReadLimits.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <sstream>
#include <utility>

namespace kthost
{
namespace
{

bool isTooLarge(const QSize& size, std::size_t mostPixels)
{
    return size.width() > ImageDecoder::largestSide || size.height() > ImageDecoder::largestSide ||
           (!size.isEmpty() &&
            static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()) > mostPixels);
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

/// Of decoders, too, nobody says that it was the memory.
bool hasMemoryFor(const QSize& size)
{
    return size.isEmpty() || !QImage(size, QImage::Format_RGBA8888).isNull();
}

ImageDecoder::Result decodeInto(QImage& image, const std::string& bytes, std::size_t mostPixels)
{
    // Qt reads through a view of the bytes; they outlive it.
    QByteArray view = QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size()));
    QBuffer buffer(&view);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (isTooLarge(size, mostPixels))
        return ImageDecoder::Result::NoImage;
    image = reader.read();
    if (image.isNull())
        return hasMemoryFor(size) ? ImageDecoder::Result::NoImage : ImageDecoder::Result::NoMemory;
    return isTooLarge(image.size(), mostPixels) ? ImageDecoder::Result::NoImage : ImageDecoder::Result::Read;
}

void copyRows(const QImage& picture, int components, unsigned char* row)
{
    const auto rowSize = static_cast<std::ptrdiff_t>(picture.width()) * components;
    for (int y = picture.height() - 1; y >= 0; --y)
        row = std::copy_n(picture.constScanLine(y), rowSize, row);
}

} // namespace

std::size_t ImageSize::pixels() const
{
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

std::size_t ImageSize::bytes() const
{
    return pixels() * static_cast<std::size_t>(components);
}

std::string ImageSize::words() const
{
    return std::to_string(width) + " " + std::to_string(height) + " " + std::to_string(components);
}

ImageSize ImageSize::fromWords(const std::string& words)
{
    const auto isSide = [](int pixels) { return pixels > 0 && pixels <= ImageDecoder::largestSide; };
    std::istringstream text(words);
    ImageSize size;
    const bool areRead = static_cast<bool>(text >> size.width >> size.height >> size.components);
    const bool isPixel = size.components == 1 || size.components == 3 || size.components == 4;
    return areRead && isSide(size.width) && isSide(size.height) && isPixel ? size : ImageSize();
}

ImageDecoder::Result ImageDecoder::decode(const std::string& path, const ReadLimits& limits, const Room& room)
{
    std::string ignored;
    std::optional<std::string> bytes = FileBytes::read(path, ignored, {limits.fileMegabytes, {}});
    if (!bytes || bytes->size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return Result::NoImage;
    QImage picture;
    const Result result = decodeInto(picture, *bytes, limits.imagePixels);
    bytes.reset(); // there are enough copies without it
    if (result != Result::Read)
        return result;

    const PixelLayout layout = layoutOf(picture);
    picture = std::move(picture).convertToFormat(layout.format);
    unsigned char* const pixels =
        picture.isNull() ? nullptr : room({picture.width(), picture.height(), layout.components});
    if (!pixels)
        return Result::NoMemory;
    copyRows(picture, layout.components, pixels);
    return Result::Read;
}

} // namespace kthost
