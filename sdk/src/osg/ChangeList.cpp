#include <osg/ChangeList.h>
#include <osg/PThreadBase.h>

namespace osg
{
namespace
{

thread_local ChangeList* currentChangeList = nullptr;

} // namespace

void ChangeList::addChanged(const FieldContainerPtr& container, FieldMask mask)
{
    if (container)
        _entries.push_back({container, mask});
}

ChangeList* PThreadBase::getCurrentChangeList()
{
    return currentChangeList;
}

void PThreadBase::setCurrentChangeList(ChangeList* list)
{
    currentChangeList = list;
}

} // namespace osg
