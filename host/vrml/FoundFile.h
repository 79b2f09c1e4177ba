#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace kthost
{

/// What a reading found where it looked for a file, as numbers that two processes of one build can compare.
struct FoundFile
{
    /// Null bytes stand for a file that cannot be read.
    static FoundFile of(const std::string& path, const std::optional<std::string>& bytes)
    {
        const std::hash<std::string> numberOf;
        return {numberOf(path), bytes ? numberOf(*bytes) : 0};
    }

    std::uint64_t path = 0;
    std::uint64_t bytes = 0;
};

} // namespace kthost
