#pragma once

#include <string>

class SbImage;

namespace kthost
{

struct ReadLimits;

/// Texture images, decoded by Qt: the formats that its installed image plug-ins know, PNG and JPEG among
/// them.
class TextureImages
{
public:
    /// Makes the library ask us for the images of ImageTexture and Background nodes.
    static void install();

    /// No images from now on: for a process that only checks how scenes are read.
    static void leaveOut();

    /// Where relative URLs are looked up from now on, and the folder they were looked up in so far.
    static std::string setFolder(std::string folder);

    /// Files of more bytes and images of more pixels are left out from now on.
    static void setLimits(const ReadLimits& limits);

    /// Reads an image file of the local file system into `image`, with as many components a pixel as it
    /// needs. False where it is missing, no image, larger than the limit, or than 16384 pixels a side, which
    /// is what graphics hardware takes; `image` is then as it was.
    static bool read(const std::string& path, SbImage& image);
};

} // namespace kthost
