#pragma once

#include "host/vrml/ReadLimits.h"
#include "host/vrml/SceneReader.h"

#include <functional>
#include <string>

namespace kthost
{

/// The reading of files that the reader may not survive, in a process of its own.
class CheckedReading
{
public:
    /// Limits this process and calls the function. That it comes back means that the reader survived; the
    /// limits on time are off again then.
    static void run(const ReadLimits& limits, const std::function<void()>& read);

    /// The same for a scene file with all that it refers to. The follower is told of places while it may
    /// follow there.
    static void read(const std::string& path, const ReadLimits& limits, const ReadingFollower& follower);

    /// Why the file must not be read, in a few words, where the process ended with this status instead.
    static std::string reasonOf(int status, const ReadLimits& limits);
};

} // namespace kthost
