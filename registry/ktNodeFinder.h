#pragma once

#include <kt/ktNodePtr.h>
#include <osg/FieldContainerType.h>

#include <utility>
#include <vector>

/// Collects nodes of a scene by the kind of their core.
class ktNodeFinder
{
public:
    /// Appends `node` and all below it whose core is a Core, or derives from it, to `out`, in document order.
    /// A null node adds nothing; a node without a core is passed over, its children are not.
    template <class Core>
    static void findByType(const osg::NodePtr& node, std::vector<ktNodePtr>& out)
    {
        std::vector<osg::NodePtr> pending; // not recursive: scenes nest deeper than the stack is
        if (node)
            pending.push_back(node);
        while (!pending.empty()) {
            const osg::NodePtr next = std::move(pending.back());
            pending.pop_back();
            if (next->getCore() && next->getCore()->getType().isDerivedFrom(Core::getClassType()))
                out.emplace_back(next);
            for (std::size_t i = next->getNChildren(); i > 0; --i)
                pending.push_back(next->getChild(i - 1));
        }
    }
};
