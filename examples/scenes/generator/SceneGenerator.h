#pragma once

#include <string>

namespace kthost::bench
{

/// VRML97 text of any size, the same for the same numbers.
class SceneGenerator
{
public:
    /// `sensors` looping time sensors called "Sensor0001" and so on, of different cycle intervals, each with
    /// a PositionInterpolator that moves a Transform with a coloured Shape; then `nodes` further nodes,
    /// Transforms with their Shape, Appearance, Material and geometry, gathered in Groups. Negative numbers
    /// count as 0.
    static std::string generate(int sensors, int nodes);
};

} // namespace kthost::bench
