#pragma once

#include <kt/ktNodePtr.h>
#include <osg/FieldContainerType.h>

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
        if (!node)
            return;
        if (node->getCore() && node->getCore()->getType().isDerivedFrom(Core::getClassType()))
            out.emplace_back(node);
        const std::size_t count = node->getNChildren();
        for (std::size_t i = 0; i < count; ++i)
            findByType<Core>(node->getChild(i), out);
    }
};
