#pragma once

#include <osg/Node.h>
#include <osg/TimeSensor.h>

#include <cstddef>
#include <vector>

class SoNode;
class SoVRMLTimeSensor;

namespace kthost
{

class NodeNames;

/// A time sensor of the scene graph and the reader's sensor that it stands for. The reader's scene owns the
/// latter.
struct TimeSensorLink
{
    SoVRMLTimeSensor* source = nullptr;
    osg::TimeSensorPtr sensor;
};

/// The scene graph of one file.
struct SceneNodes
{
    osg::NodePtr root;
    std::vector<TimeSensorLink> sensors; ///< In document order.
    std::size_t scriptCount = 0;         ///< Script nodes, which are not run.
};

/// Builds the scene graph beside the reader's scene.
class SceneBuilder
{
public:
    /// One node for each VRML node that can be reached from `root` through children, node fields, Inline
    /// files and prototype instances, below the first node that holds it, in the order of the file. Prototype
    /// declarations are none. Each has a core of its kind (a TimeSensor's is an osg::TimeSensor with the
    /// fields of the file, all others are VrmlCores) and, where the file names it, a name attachment. A scene
    /// that holds itself is walked once.
    static SceneNodes build(SoNode& root, const NodeNames& names);
};

} // namespace kthost
