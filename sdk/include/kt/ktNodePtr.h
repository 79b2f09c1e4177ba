#pragma once

#include <kt/Export.h>
#include <osg/Node.h>

#include <utility>

/// A copyable handle to a node of the scene, null by default. Keeps the node alive; hold it no longer than an
/// operation takes.
class KT_EXPORT ktNodePtr
{
public:
    ktNodePtr() = default;
    ktNodePtr(osg::NodePtr node) : _node(std::move(node)) {}

    operator const osg::NodePtr&() const { return _node; }

    osg::Node* operator->() const { return _node.get(); }
    explicit operator bool() const { return static_cast<bool>(_node); }
    bool operator==(const ktNodePtr& other) const { return _node == other._node; }
    bool operator!=(const ktNodePtr& other) const { return _node != other._node; }

private:
    osg::NodePtr _node;
};
