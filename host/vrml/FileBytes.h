#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace kthost
{

/// Reading whole files. Paths are bytes as the file system has them. Each function gives null where it fails,
/// and sets `error` to why, in a few words without the path.
class FileBytes
{
public:
    /// The bytes of a regular file, as they are.
    static std::optional<std::string> read(const std::string& path, std::string& error);

    /// The bytes of a regular file, unpacked where they are a gzip stream, whatever the file is called.
    /// A stream that is cut short or damaged fails, and so does one that unpacks to more bytes than `most`.
    static std::optional<std::string> readUnpacked(const std::string& path, std::string& error,
                                                   std::size_t most = sizeLimit);

    static constexpr std::size_t sizeLimit = std::size_t{1} << 30U;
};

} // namespace kthost
