#pragma once

#include <Inventor/SoType.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/lists/SoPathList.h>

namespace kthost
{

/// The paths from `scene` to all its nodes of a type, in document order, those in switched-off parts too.
inline SoPathList findByType(SoNode* scene, const SoType& type)
{
    SoSearchAction search;
    search.setType(type);
    search.setInterest(SoSearchAction::ALL);
    search.setSearchingAll(TRUE);
    search.apply(scene);
    return search.getPaths();
}

} // namespace kthost
