#pragma once

#include "host/vrml/CheckProgram.h"
#include "host/vrml/ImageDecoder.h"
#include "host/vrml/PixelMemory.h"
#include "host/vrml/ReadLimits.h"

#include <memory>
#include <set>
#include <string>

namespace kthost
{

/// Lets a process of its own, with limits on time, memory and stack, decode images: whoever decodes the
/// formats of many makers may not survive each file. The process hands the pixels over in shared memory. It
/// serves image after image, and is started again where one ended it. GUI thread.
class ImageGuard
{
public:
    /// Starts the program, `kthost-image-reader`, in the background.
    ImageGuard(std::string program, const ReadLimits& limits);
    ImageGuard(const ImageGuard&) = delete;
    ImageGuard& operator=(const ImageGuard&) = delete;

    /// Another scene: images that ended the process may be tried again.
    void startOver();

    /// Whether ImageDecoder reads the image into `room`. False, too, where it does not survive the file,
    /// where it did not before, or where other images of the scene ended it too often; the log says so.
    bool read(const std::string& path, const ImageDecoder::Room& room);

private:
    void start();
    bool handOver(const std::string& path);

    /// Lets the program decode it: why that must not be or fails, or how large it is. No bytes for a file
    /// that is no image.
    std::string decode(const std::string& path, ImageSize& size);

    bool copy(const ImageSize& size, const ImageDecoder::Room& room);

    ReadLimits _limits;
    std::unique_ptr<PixelMemory> _memory;
    CheckProgram _program;
    std::set<std::string> _fatal; ///< Files of this scene that ended the program.
};

} // namespace kthost
