#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kt::test
{

/// A node of a scene file: a TimeSensor or a Transform.
struct FileNode
{
    std::string name; ///< What the file calls it; empty for nothing.
    bool isSensor = true;
    bool isInside =
        false; ///< A child of the last Transform before it that is not inside of one; where there is one.
    double cycleInterval = 1.0;
    bool isLooping = false;
    bool isEnabled = true;
    double startTime = 0.0;
    double stopTime = 0.0;
};

using SceneFile = std::vector<FileNode>;

/// The file's text, as VRML97.
std::string vrml(const SceneFile& scene);

} // namespace kt::test
