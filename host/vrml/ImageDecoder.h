#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace kthost
{

struct ReadLimits;

/// Of an image's pixels.
struct ImageSize
{
    int width = 0;
    int height = 0;
    int components = 0; ///< Bytes a pixel: 1 grey, 3 red green blue, 4 with transparency.

    std::size_t pixels() const;
    std::size_t bytes() const;

    /// For another process.
    std::string words() const;

    /// What words() gave; no bytes for other words, and for what no decoder here gives.
    static ImageSize fromWords(const std::string& words);
};

/// Decodes image files with Qt: the formats that its installed image plug-ins know, PNG and JPEG among them.
class ImageDecoder
{
public:
    enum class Result { Read, NoImage, NoMemory };

    /// Asked, at most once, for memory of that many bytes; null where there is none.
    using Room = std::function<unsigned char*(const ImageSize&)>;

    /// Pixels of a side; what graphics hardware takes.
    static constexpr int largestSide = 16384;

    /// Decodes a file of the local file system into `room`: rows from the bottom up and not padded, with as
    /// many components a pixel as the image needs. `NoImage` where it is missing, no image, or larger than
    /// the limits on files, pixels and sides. Some formats need a QGuiApplication.
    static Result decode(const std::string& path, const ReadLimits& limits, const Room& room);
};

} // namespace kthost
