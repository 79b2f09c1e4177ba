#include "host/vrml/VrmlCore.h"

#include <osg/FieldContainerType.h>

#include <map>

namespace kthost
{

const osg::FieldContainerType& VrmlCore::getKind(const std::string& vrmlName)
{
    // Never destroyed: cores may outlive every other static object.
    static auto& kinds = *new std::map<std::string, osg::FieldContainerType>;
    return kinds.try_emplace(vrmlName, vrmlName.c_str(), &osg::NodeCore::getClassType()).first->second;
}

VrmlCorePtr VrmlCore::create(const osg::FieldContainerType& kind, SoNode* drawing)
{
    return VrmlCorePtr(new VrmlCore(kind, drawing));
}

} // namespace kthost
