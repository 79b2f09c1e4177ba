#pragma once

#include <osg/ChangeList.h>
#include <osg/FieldContainerPtr.h>
#include <osg/PThreadBase.h>

namespace osg
{

/// Closes an edit after the fields of `mask` were written: records it in the calling thread's change list, if
/// there is one, then tells the container, unless FieldContainerPtr::_ignore_change is set.
inline void endEdit(const FieldContainerPtr& container, FieldMask mask)
{
    if (ChangeList* list = PThreadBase::getCurrentChangeList())
        list->addChanged(container, mask);
    if (!FieldContainerPtr::_ignore_change)
        container->changed(mask, ExternalChange);
}

} // namespace osg
