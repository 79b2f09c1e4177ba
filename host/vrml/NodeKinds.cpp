#include "host/vrml/NodeKinds.h"

#include <Inventor/SbName.h>
#include <Inventor/SoType.h>
#include <Inventor/lists/SoTypeList.h>
#include <Inventor/nodes/SoNode.h>

#include <unordered_set>

namespace kthost
{
namespace
{

std::unordered_set<std::string> allKinds()
{
    SoTypeList types;
    SoType::getAllDerivedFrom(SoNode::getClassTypeId(), types);
    std::unordered_set<std::string> kinds;
    for (int i = 0; i < types.getLength(); ++i)
        kinds.insert(types[i].getName().getString());
    return kinds;
}

} // namespace

bool NodeKinds::isKnown(const std::string& kind)
{
    static const std::unordered_set<std::string> kinds = allKinds();
    // The reader looks for its VRML97 node first, then for one of its own format.
    return kinds.count("VRML" + kind) != 0 || kinds.count(kind) != 0;
}

} // namespace kthost
