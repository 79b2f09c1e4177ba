// kthost-image-reader: decodes images for ImageGuard, in a process that may fail.
//   kthost-image-reader LIMIT...
// with the words of ReadLimits.
// CheckChannel says what it is connected with.
#include "host/vrml/CheckChannel.h"
#include "host/vrml/ImageDecoder.h"
#include "host/vrml/LimitedRun.h"
#include "host/vrml/PixelMemory.h"

#include <QGuiApplication>
#include <QImageReader>

#include <sys/resource.h>

#include <string>

namespace
{

using namespace kthost;

/// Pixels are in memory that counts as a file, which the host's user may have limited.
void allowLargeFiles()
{
    rlimit limit{};
    if (getrlimit(RLIMIT_FSIZE, &limit) != 0)
        return;
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_FSIZE, &limit);
}

/// The answer for an image, whose pixels are then in the memory.
std::string read(const std::string& path, const ReadLimits& limits, PixelMemory& memory)
{
    ImageSize size;
    const auto room = [&](const ImageSize& needed) {
        size = needed;
        return memory.grow(size.bytes());
    };
    switch (ImageDecoder::decode(path, limits, room)) {
    case ImageDecoder::Result::Read:
        return CheckChannel::image + size.words();
    case ImageDecoder::Result::NoMemory:
        return CheckChannel::verdict + std::string("there is not enough memory for its pixels");
    default:
        return std::string(1, CheckChannel::verdict);
    }
}

/// In this very process: to fork one takes longer than most images do. The host starts another one after an
/// image that ends it.
void serve(const ReadLimits& limits)
{
    PixelMemory memory(CheckChannel::memory);
    QImageReader::supportedImageFormats(); // looks for the decoders before there is an image
    for (std::string path = CheckChannel::receive(CheckChannel::socket); !path.empty();
         path = CheckChannel::receive(CheckChannel::socket)) {
        std::string answer;
        LimitedRun::run(limits, [&] { answer = read(path, limits, memory); });
        CheckChannel::send(CheckChannel::socket, answer);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const auto limits = CheckChannel::begin(argc, argv);
    if (!limits)
        return 2;
    allowLargeFiles();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_QPA_PLATFORMTHEME");             // of a desktop that is not looked at
    const QGuiApplication application(argc, argv); // decoders that draw, texts above all, need one
    serve(*limits);
}
