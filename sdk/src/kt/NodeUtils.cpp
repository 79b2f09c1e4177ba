#include <kt/NodeUtils.h>

#include <osg/FieldContainerType.h>
#include <osg/Name.h>

namespace
{

const char* nameAttachmentOf(const osg::AttachmentContainer& container)
{
    const osg::AttachmentPtr attachment = container.findAttachment(osg::Name::getClassType().getGroupId(), 0);
    if (!attachment || !attachment->getType().isDerivedFrom(osg::Name::getClassType()))
        return nullptr;
    return osg::staticCast<osg::Name>(attachment)->getCString();
}

} // namespace

const char* NodeUtils::getName(const osg::NodePtr& node)
{
    if (!node)
        return nullptr;
    if (const char* name = nameAttachmentOf(*node))
        return name;
    const osg::NodeCorePtr& core = node->getCore();
    if (!core)
        return nullptr;
    if (const char* name = nameAttachmentOf(*core))
        return name;
    return core->getType().getName();
}
