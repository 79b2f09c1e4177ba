#pragma once

#include "host/vrml/ReadLimits.h"
#include "host/vrml/SceneReader.h"

#include <string>

namespace kthost
{

/// The reading of a file that the reader may not survive, in a process of its own that has been forked for
/// it.
class CheckedReading
{
public:
    /// Limits this process, and reads the file with all that it refers to. That the process comes back means
    /// that the reader survived; the limits on time are off again then. The follower is told of places while
    /// it may follow there.
    static void read(const std::string& path, const ReadLimits& limits, const ReadingFollower& follower);

    /// Why the file must not be read, in a few words, where the process ended with this status instead.
    static std::string reasonOf(int status, const ReadLimits& limits);
};

} // namespace kthost
