#pragma once

#include "host/vrml/ReadLimits.h"

#include <cstdint>
#include <functional>
#include <string>

namespace kthost
{

/// The reading of a file that the reader may not survive, in a process of its own that has been forked for
/// it.
class CheckedReading
{
public:
    /// Told how far it is, while it may be followed there.
    using Tell = std::function<void(std::uint64_t place)>;

    /// Limits this process, and reads the file with all that it refers to. That the process comes back means
    /// that the reader survived; the limits on time and memory are off again then.
    static void read(const std::string& path, const ReadLimits& limits, const Tell& tell);

    /// Why the file must not be read, in a few words, where the process ended with this status instead.
    static std::string reasonOf(int status, const ReadLimits& limits);
};

} // namespace kthost
