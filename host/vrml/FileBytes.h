#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace kthost
{

/// How many bytes of a file there may be, as they are and unpacked; a reading that would need more fails.
struct FileRoom
{
    std::size_t megabytes = 1024;
    std::function<bool(std::size_t bytes)> mayHold; ///< Asked before there are so many; none for yes.
};

/// Reading whole files. Paths are bytes as the file system has them. Each function gives null where it fails,
/// and sets `error` to why, in a few words without the path.
class FileBytes
{
public:
    /// The bytes of a regular file, as they are.
    static std::optional<std::string> read(const std::string& path, std::string& error,
                                           const FileRoom& room = {});

    /// The bytes, unpacked where they are a gzip stream. A stream that is cut short or damaged fails.
    static std::optional<std::string> unpack(std::string bytes, std::string& error,
                                             const FileRoom& room = {});
};

} // namespace kthost
