#include <osg/FieldContainer.h>

#include <osg/FieldContainerPtr.h>
#include <osg/FieldContainerType.h>

namespace osg
{

bool FieldContainerPtr::_ignore_change = false;

const FieldContainerType& FieldContainer::getClassType()
{
    static const FieldContainerType type("FieldContainer", nullptr);
    return type;
}

FieldContainer::~FieldContainer() = default;

void FieldContainer::changed(FieldMask, ChangeOrigin) {}

void FieldContainer::subRef() const
{
    if (--_references == 0)
        delete this;
}

} // namespace osg
