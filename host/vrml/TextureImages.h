#pragma once

#include <memory>
#include <string>

class SbImage;

namespace kthost
{

class ImageGuard;
struct ReadLimits;

/// The images of a scene, for the library that draws them.
class TextureImages
{
public:
    /// Makes the library ask us for the images of ImageTexture and Background nodes.
    static void install();

    /// No images from now on: for a process that only checks how scenes are read.
    static void leaveOut();

    /// Where relative URLs are looked up from now on, and the folder they were looked up in so far.
    static std::string setFolder(std::string folder);

    /// From now on images are read by the guard, for as long as there is one, and otherwise by ourselves with
    /// these limits.
    static void setReading(const ReadLimits& limits, const std::shared_ptr<ImageGuard>& guard);

    /// Reads an image file of the local file system into `image`, as ImageDecoder does. Where it fails,
    /// `image` is as it was.
    static bool read(const std::string& path, SbImage& image);
};

} // namespace kthost
