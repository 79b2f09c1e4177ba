#include "host/vrml/ImageGuard.h"

#include "host/vrml/CheckChannel.h"
#include "host/vrml/LimitedRun.h"

#include <kt/ktLog.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace kthost
{

ImageGuard::ImageGuard(std::string program, const ReadLimits& limits)
    : _limits(limits), _program(std::move(program), limits)
{
    start();
}

void ImageGuard::start()
{
    _program.stop();
    // Fresh memory: nobody knows what the program was about to write.
    _memory = std::make_unique<PixelMemory>();
    _program.start(_memory->descriptor());
}

bool ImageGuard::handOver(const std::string& path)
{
    std::error_code noFolder;
    const std::filesystem::path whole = std::filesystem::absolute(path, noFolder); // the program has its own
    const std::string packet = noFolder ? path : whole.string();
    if (_program.send(packet))
        return true;
    start();
    return _program.send(packet);
}

std::string ImageGuard::verdict(ImageSize& size)
{
    const std::string packet = _program.receive(_limits.clockSeconds() + CheckChannel::graceSeconds);
    if (packet.empty())
        return LimitedRun::reasonOf(_program.stop(), _limits);
    if (packet[0] == CheckChannel::image)
        size = ImageSize::fromWords(packet.substr(1));
    return {};
}

bool ImageGuard::copy(const ImageSize& size, const ImageDecoder::Room& room)
{
    const unsigned char* const pixels = size.bytes() > 0 ? _memory->view(size.bytes()) : nullptr;
    unsigned char* const target = pixels ? room(size) : nullptr;
    if (target)
        std::copy_n(pixels, size.bytes(), target);
    _memory->shrink();
    return target != nullptr;
}

bool ImageGuard::read(const std::string& path, const ImageDecoder::Room& room)
{
    ImageSize size;
    const std::string problem = handOver(path) ? verdict(size) : _program.problem();
    if (!problem.empty())
        ktLog::info("%s: the image is left out: %s", path.c_str(), problem.c_str());
    return problem.empty() && copy(size, room);
}

} // namespace kthost
