#pragma once

#include <unordered_map>
#include <vector>

class SoFieldContainer;
class SoFieldData;
class SoNode;

namespace kthost
{

/// Finds the nodes that a node of the reader's scene holds, whatever its kind.
class NodeFields
{
public:
    /// The nodes held by its fields, by the fields of the prototype instance that it is the root of, and by
    /// its hidden children, such as an Inline's file; in this order, without prototype declarations. Repeats
    /// are possible.
    std::vector<SoNode*> nodesOf(SoNode& node);

    /// Those of them that are drawn, or otherwise gone through, with the node: not what only a Script holds,
    /// nor what the fields of an instance hand over to its body. Each as often as it is drawn.
    std::vector<SoNode*> drawnNodesOf(SoNode& node);

    /// Takes all nodes out of the fields of a node and of the prototype instance that it is the root of.
    static void empty(SoNode& node);

private:
    static void appendHidden(SoNode& node, std::vector<SoNode*>& nodes);
    void appendFields(const SoFieldContainer& container, const SoFieldData* fields,
                      std::vector<SoNode*>& nodes);

    /// Which fields of this kind of container hold nodes.
    std::unordered_map<const SoFieldData*, std::vector<int>> _nodeFields;
};

} // namespace kthost
