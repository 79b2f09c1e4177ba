#include "host/vrml/ImageGuard.h"

#include "host/vrml/CheckChannel.h"
#include "host/vrml/LimitedRun.h"

#include <kt/ktLog.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>

namespace kthost
{
namespace
{

/// Each may take as long as its limits let it.
constexpr std::size_t mostFatal = 5;

} // namespace

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
    if (!_memory->failed())
        _program.start(_memory->descriptor());
}

void ImageGuard::startOver()
{
    _fatal.clear();
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

std::string ImageGuard::decode(const std::string& path, ImageSize& size)
{
    if (_fatal.count(path) != 0)
        return "the reader did not survive it before";
    if (_fatal.size() >= mostFatal)
        return "the reader did not survive " + std::to_string(mostFatal) + " others of the scene";
    if (!handOver(path))
        return _program.problem().empty() ? _program.notRunning(EPIPE) : _program.problem();
    const std::string packet = _program.receive(_limits.clockSeconds() + CheckChannel::graceSeconds);
    if (packet.empty()) {
        const int status = _program.stop();
        _memory.reset();
        _fatal.insert(path);
        return LimitedRun::reasonOf(status, _limits);
    }
    if (packet[0] != CheckChannel::image)
        return packet.substr(1);
    size = ImageSize::fromWords(packet.substr(1));
    return {};
}

bool ImageGuard::copy(const ImageSize& size, const ImageDecoder::Room& room)
{
    const bool isAllowed = size.bytes() > 0 && size.pixels() <= _limits.imagePixels;
    const unsigned char* const pixels = isAllowed ? _memory->view(size.bytes()) : nullptr;
    unsigned char* const target = pixels ? room(size) : nullptr;
    if (target)
        std::copy_n(pixels, size.bytes(), target);
    return target != nullptr;
}

bool ImageGuard::read(const std::string& path, const ImageDecoder::Room& room)
{
    if (path.empty())
        return false;
    ImageSize size;
    const std::string problem = decode(path, size);
    if (!problem.empty())
        ktLog::info("%s: the image is left out: %s", path.c_str(), problem.c_str());
    const bool isRead = problem.empty() && copy(size, room);
    if (_memory)
        _memory->release();
    return isRead;
}

} // namespace kthost
