#include <osg/Node.h>

#include <osg/FieldContainerType.h>

#include <algorithm>

namespace osg
{

const FieldContainerType& NodeCore::getClassType()
{
    static const FieldContainerType type("NodeCore", &AttachmentContainer::getClassType());
    return type;
}

void NodeCore::attachmentsChanged()
{
    for (Node* node : _nodes)
        node->structureChanged();
}

const FieldContainerType& Node::getClassType()
{
    static const FieldContainerType type("Node", &AttachmentContainer::getClassType());
    return type;
}

NodePtr Node::create(const NodeCorePtr& core)
{
    NodePtr node(new Node);
    node->setCore(core);
    return node;
}

Node::~Node()
{
    // One after the other instead of one within the other: scenes nest deeper than the stack is.
    std::vector<NodePtr> orphans = std::move(_children);
    for (const NodePtr& orphan : orphans)
        orphan->_parent = nullptr;
    while (!orphans.empty()) {
        const NodePtr orphan = std::move(orphans.back());
        orphans.pop_back();
        if (orphan->references() > 1)
            continue;
        for (const NodePtr& child : orphan->_children) {
            child->_parent = nullptr;
            orphans.push_back(child);
        }
        orphan->_children.clear();
    }
    if (_core)
        _core->_nodes.erase(std::find(_core->_nodes.begin(), _core->_nodes.end(), this));
}

const FieldContainerType& Node::getType() const
{
    return getClassType();
}

void Node::setCore(const NodeCorePtr& core)
{
    if (_core)
        _core->_nodes.erase(std::find(_core->_nodes.begin(), _core->_nodes.end(), this));
    _core = core;
    if (_core)
        _core->_nodes.push_back(this);
    structureChanged();
}

bool Node::addChild(const NodePtr& child)
{
    for (const Node* node = this; node; node = node->_parent) {
        if (!child || node == child.get())
            return false;
    }
    const NodePtr keep = child; // the caller's reference may be the old parent's own
    if (keep->_parent)
        keep->_parent->subChild(keep);
    keep->_parent = this;
    _children.push_back(keep);
    structureChanged();
    return true;
}

bool Node::subChild(const NodePtr& child)
{
    const auto found = std::find(_children.begin(), _children.end(), child);
    if (found == _children.end())
        return false;
    (*found)->_parent = nullptr;
    _children.erase(found);
    structureChanged();
    return true;
}

void Node::structureChanged()
{
    Node* root = this;
    while (root->_parent)
        root = root->_parent;
    ++root->_structureRevision;
}

void Node::attachmentsChanged()
{
    structureChanged();
}

} // namespace osg
