#include <osg/FieldContainerType.h>

namespace osg
{

FieldContainerType::FieldContainerType(const char* name, const FieldContainerType* parent, bool ownGroup)
    : TypeBase(name, parent), _groupId(parent && !ownGroup ? parent->getGroupId() : getId())
{
}

} // namespace osg
