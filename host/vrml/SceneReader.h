#pragma once

#include "host/vrml/CoinRef.h"
#include "host/vrml/FoundFile.h"
#include "host/vrml/NodeNames.h"
#include "host/vrml/ReadLimits.h"
#include "host/vrml/SceneEnd.h"
#include "host/vrml/SceneWarnings.h"

#include <Inventor/VRMLnodes/SoVRMLGroup.h>

#include <cstdint>
#include <functional>
#include <string>

namespace kthost
{

class SceneGuard;

/// What became of reading a scene file.
struct SceneReading
{
    SceneEnd end;              ///< To be asked for a problem when all else that is to be done is done.
    CoinRef<SoVRMLGroup> root; ///< The reader's scene; null where the file was refused.
    NodeNames names;           ///< The node names, which the reader's nodes have stand-ins for.
    SceneWarnings warnings;

    /// One line with the file, the line and the reader's words; empty where the file was read.
    std::string error;

    explicit operator bool() const { return static_cast<bool>(root); }
};

/// Told during a reading how much of the file's bytes the reader has behind it: a part from 0 to 1 that only
/// grows, about a hundred times in a large file and perhaps never in a small one. It must not throw.
using ReadingProgress = std::function<void(double part)>;

/// Who follows a reading.
struct ReadingFollower
{
    /// Told how much of all texts is behind it, in bytes; grows, but not with every call.
    std::function<void(std::uint64_t place)> passed;

    /// Told of each file when it was looked for, before anything of it is behind.
    std::function<void(const FoundFile& file)> found;
};

/// Reads VRML97 files, plain or packed with gzip, with all that they refer to in the local file system:
/// Inline and EXTERNPROTO files and textures, each looked up from the folder of the file that names it.
/// Nothing is fetched from elsewhere. What is missing, and what a TextMender passes over, costs a warning.
class SceneReader
{
public:
    /// The scene in the file at `path`. What it refers to counts as a part of the place that names it. Leaves
    /// every other scene as it is. With a guard, the file is checked by it within its limits and refused
    /// where the reader would not survive it, if not at once then by the answer of `end`; without one, the
    /// reader gets whatever the file holds. GUI thread.
    static SceneReading read(const std::string& path, const ReadingProgress& progress = {},
                             SceneGuard* guard = nullptr);

    /// Reads the file as read() does, but without its images and long lists of numbers, and forgets it: for
    /// SceneGuard's process, to see whether the reader survives.
    static void readSkeleton(const std::string& path, const ReadLimits& limits,
                             const ReadingFollower& follower = {});
};

} // namespace kthost
