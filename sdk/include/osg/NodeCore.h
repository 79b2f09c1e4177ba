#pragma once

#include <osg/AttachmentContainer.h>

#include <vector>

namespace osg
{

class Node;

/// What a node is: its kind and the fields of that kind. Several nodes can share one core.
class KT_OSG_EXPORT NodeCore : public AttachmentContainer
{
public:
    static const FieldContainerType& getClassType();

private:
    friend class Node;

    void attachmentsChanged() override;

    std::vector<Node*> _nodes; ///< The nodes that have this core; not owned, they own us.
};

using NodeCorePtr = Ptr<NodeCore>;

} // namespace osg
