#pragma once

class SoNode;

namespace kthost
{

/// Looks for what would be drawn without end.
class DrawnLoop
{
public:
    /// A node below `root`, or `root` itself, that is drawn as a part of itself; null where there is none.
    static SoNode* find(SoNode& root);
};

} // namespace kthost
