#pragma once

#include "host/vrml/ReadLimits.h"

#include <osg/Node.h>
#include <osg/TimeSensor.h>

#include <cstddef>
#include <string>
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
    std::string problem; ///< Why the scene cannot be drawn, in a few words; empty where it can.
};

/// Builds the scene graph beside the reader's scene.
class SceneBuilder
{
public:
    /// One node for each VRML node that can be reached from `root` through children, node fields, Inline
    /// files and prototype instances, below the first node that holds it, in the order of the file. Prototype
    /// declarations are none. Each has a core of its kind (a TimeSensor's is an osg::TimeSensor with the
    /// fields of the file, all others are VrmlCores) and, where the file names it, a name attachment.
    ///
    /// A node that holds itself is walked once, and a problem: drawing it would never end. What only a Script
    /// or an instance's fields hold is not drawn, so that is none. More nodes inside each other, or more to
    /// draw, than the limits allow are a problem too.
    static SceneNodes build(SoNode& root, const NodeNames& names, const ReadLimits& limits = {});
};

} // namespace kthost
