#include "host/vrml/FileBytes.h"

#include <zlib.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <memory>
#include <utility>

namespace kthost
{
namespace
{

constexpr std::size_t chunkSize = 1 << 18;

class FileDescriptor
{
public:
    // Without waiting, so that a named pipe is refused below instead of hanging here.
    explicit FileDescriptor(const std::string& path)
        : _fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
    }
    ~FileDescriptor()
    {
        if (_fd >= 0)
            ::close(_fd);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    int get() const { return _fd; }

private:
    int _fd;
};

std::optional<std::string> failWithErrno(std::string& error)
{
    error = std::strerror(errno);
    return std::nullopt;
}

bool isGzip(const std::string& bytes)
{
    return bytes.size() >= 2 && bytes[0] == '\x1f' && bytes[1] == '\x8b';
}

/// Where there is no room for so many bytes, sets `error`, which begins with `what`.
bool fits(std::size_t bytes, const FileRoom& room, const char* what, std::string& error)
{
    if (bytes > room.megabytes << 20U)
        error = what + std::to_string(room.megabytes) + " megabytes";
    else if (room.mayHold && !room.mayHold(bytes))
        error = "it is too large to be read now";
    else
        return true;
    return false;
}

/// Unpacks every member of the stream; what follows the last one is ignored, as gzip does.
std::optional<std::string> unpackMembers(const std::string& packed, std::string& error, const FileRoom& room)
{
    z_stream stream{};
    constexpr int anyWindowWithGzipHeader = 15 + 16;
    if (inflateInit2(&stream, anyWindowWithGzipHeader) != Z_OK) {
        error = "out of memory";
        return std::nullopt;
    }
    const std::unique_ptr<z_stream, int (*)(z_stream*)> end(&stream, inflateEnd);
    // zlib takes the input as not const, and does not write to it.
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));

    std::string result;
    std::string chunk(chunkSize, '\0');
    for (;;) {
        // It counts less far than there may be bytes.
        const char* const next = reinterpret_cast<const char*>(stream.next_in);
        const auto left = static_cast<std::size_t>(packed.data() + packed.size() - next);
        stream.avail_in = static_cast<uInt>(std::min<std::size_t>(left, std::numeric_limits<uInt>::max()));
        stream.next_out = reinterpret_cast<Bytef*>(&chunk[0]);
        stream.avail_out = static_cast<uInt>(chunkSize);
        const int status = inflate(&stream, Z_NO_FLUSH);
        const std::size_t more = chunkSize - stream.avail_out;
        if (!fits(result.size() + more, room, "the gzip stream unpacks to more than ", error))
            return std::nullopt;
        result.append(chunk, 0, more);

        if (status == Z_STREAM_END) {
            if (stream.avail_in < 2 || stream.next_in[0] != 0x1f || stream.next_in[1] != 0x8b)
                return result;
            inflateReset(&stream);
        } else if (status == Z_BUF_ERROR ||
                   (status == Z_OK && stream.avail_in == 0 && stream.avail_out > 0)) {
            error = "the gzip stream is cut short";
            return std::nullopt;
        } else if (status != Z_OK) {
            error =
                std::string("the gzip stream is damaged: ") + (stream.msg ? stream.msg : "no reason given");
            return std::nullopt;
        }
    }
}

} // namespace

std::optional<std::string> FileBytes::read(const std::string& path, std::string& error, const FileRoom& room)
{
    const FileDescriptor file(path);
    struct stat status
    {
    };
    if (file.get() < 0 || ::fstat(file.get(), &status) != 0)
        return failWithErrno(error);
    if (!S_ISREG(status.st_mode)) {
        error = S_ISDIR(status.st_mode) ? "it is a folder" : "it is not a regular file";
        return std::nullopt;
    }

    std::string bytes;
    for (;;) {
        const std::size_t used = bytes.size();
        const auto expected = static_cast<std::size_t>(status.st_size);
        if (!fits(std::max(used, expected), room, "it is larger than ", error))
            return std::nullopt;
        bytes.resize(used < expected ? expected + 1 : used + chunkSize);
        const ssize_t count = ::read(file.get(), &bytes[used], bytes.size() - used);
        if (count < 0 && errno != EINTR)
            return failWithErrno(error);
        bytes.resize(used + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count == 0)
            return bytes;
    }
}

std::optional<std::string> FileBytes::unpack(std::string bytes, std::string& error, const FileRoom& room)
{
    return isGzip(bytes) ? unpackMembers(bytes, error, room) : std::optional<std::string>(std::move(bytes));
}

} // namespace kthost
