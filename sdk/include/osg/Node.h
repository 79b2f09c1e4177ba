#pragma once

#include <osg/AttachmentContainer.h>
#include <osg/NodeCore.h>

#include <cstdint>
#include <vector>

namespace osg
{

class Node;
using NodePtr = Ptr<Node>;

/// A place in the scene's tree: one core, ordered children, one parent at most.
class KT_OSG_EXPORT Node : public AttachmentContainer
{
public:
    static const FieldContainerType& getClassType();

    static constexpr FieldMask CoreFieldMask = 1u << 1;
    static constexpr FieldMask ChildrenFieldMask = 1u << 2;

    static NodePtr create(const NodeCorePtr& core = {});

    const FieldContainerType& getType() const override;

    const NodeCorePtr& getCore() const { return _core; }

    /// Null takes the core off.
    void setCore(const NodeCorePtr& core);

    Node* getParent() const { return _parent; }

    std::size_t getNChildren() const { return _children.size(); }

    /// `index` is below getNChildren().
    const NodePtr& getChild(std::size_t index) const { return _children[index]; }

    /// Appends a child, taking it off its present parent first. Null, the node itself and its ancestors are
    /// refused with false.
    bool addChild(const NodePtr& child);

    /// Takes a child off; false where it is none of ours.
    bool subChild(const NodePtr& child);

    /// Counts the edits of children, cores and names in the tree of which this node is the root.
    /// Whoever keeps something derived from the tree's structure compares it; see ktScenegraph.
    std::uint64_t getStructureRevision() const { return _structureRevision; }

    /// Counts one such edit in the tree that this node belongs to.
    void structureChanged();

protected:
    Node() = default;
    ~Node() override;

private:
    void attachmentsChanged() override;

    NodeCorePtr _core;
    Node* _parent = nullptr;
    std::vector<NodePtr> _children;
    std::uint64_t _structureRevision = 0;
};

} // namespace osg
