#pragma once

#include "host/vrml/CheckProgram.h"
#include "host/vrml/ImageDecoder.h"
#include "host/vrml/PixelMemory.h"
#include "host/vrml/ReadLimits.h"

#include <memory>
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

    /// As ImageDecoder::decode(). False, too, where the decoder does not survive the file; the log says so.
    bool read(const std::string& path, const ImageDecoder::Room& room);

private:
    void start();
    bool handOver(const std::string& path);

    /// Waits for what becomes of the image: why it must not be read, or how large it is. No bytes for a file
    /// that is no image.
    std::string verdict(ImageSize& size);

    bool copy(const ImageSize& size, const ImageDecoder::Room& room);

    ReadLimits _limits;
    std::unique_ptr<PixelMemory> _memory;
    CheckProgram _program;
};

} // namespace kthost
