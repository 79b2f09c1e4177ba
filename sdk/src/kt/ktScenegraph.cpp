#include <kt/ktScenegraph.h>

#include "kt/NameIndex_p.h"

#include <osg/Edit.h>
#include <osg/FieldContainerType.h>
#include <osg/Name.h>

namespace
{

struct State
{
    NameIndex index;
    std::uint64_t announcedRevision = 0;
    ktScenegraph::ScrollHandler scroll = nullptr;
};

// Never destroyed: nodes may be asked for while the process ends.
State& state()
{
    static State* const instance = new State;
    return *instance;
}

void writeName(const osg::NodePtr& node, const char* name)
{
    const osg::AttachmentPtr present = node->findAttachment(osg::Name::getClassType().getGroupId(), 0);
    if (present && present->getType().isDerivedFrom(osg::Name::getClassType()))
        osg::staticCast<osg::Name>(present)->setValue(name ? name : "");
    else
        node->addAttachment(osg::Name::create(name ? name : ""));
}

} // namespace

ktNodePtr ktScenegraph::getRootNode()
{
    return state().index.root();
}

std::vector<ktNodePtr> ktScenegraph::findNodes(const char* name)
{
    return name ? state().index.find(std::string(name)) : std::vector<ktNodePtr>();
}

std::vector<ktNodePtr> ktScenegraph::findNodes(const std::vector<std::string>& names)
{
    return state().index.find(names);
}

void ktScenegraph::setNodeName(bool announce, const ktNodePtr& handle, const char* name, bool record)
{
    const osg::NodePtr& node = handle;
    if (!node)
        return;
    const osg::NodePtr& root = state().index.root();
    const bool isAllAnnounced = root && state().announcedRevision == root->getStructureRevision();
    state().index.followRename(node, [&] { writeName(node, name); });
    if (!announce && isAllAnnounced)
        state().announcedRevision = root->getStructureRevision();
    if (record)
        osg::endEdit(node, osg::Node::AttachmentsFieldMask);
}

void ktScenegraph::scrollToNode(const ktNodePtr& node)
{
    if (node && state().scroll)
        state().scroll(node);
}

void ktScenegraph::setRootNode(const ktNodePtr& root)
{
    const osg::NodePtr& node = root;
    state().index.setRoot(node);
    state().announcedRevision = node ? node->getStructureRevision() : 0;
}

void ktScenegraph::setScrollHandler(ScrollHandler handler)
{
    state().scroll = handler;
}

bool ktScenegraph::takeSceneChanged()
{
    const osg::NodePtr& root = state().index.root();
    if (!root || root->getStructureRevision() == state().announcedRevision)
        return false;
    state().announcedRevision = root->getStructureRevision();
    return true;
}
