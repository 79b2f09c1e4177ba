#pragma once

#include "host/vrml/ReadLimits.h"
#include "host/vrml/SceneReader.h"

#include <string>

namespace kthost
{

/// The reading of a scene file that the reader may not survive, in a process of its own that has been forked
/// for it.
class CheckedReading
{
public:
    /// Reads the file with all that it refers to, as a LimitedRun. The follower is told of places while it
    /// may follow there.
    static void read(const std::string& path, const ReadLimits& limits, const ReadingFollower& follower);
};

} // namespace kthost
