#pragma once

#include <osg/Export.h>

namespace osg
{

class ChangeList;

/// What the scene graph keeps for each thread.
class KT_OSG_EXPORT PThreadBase
{
public:
    /// The list that edits of the calling thread are recorded in, or null where the thread has none.
    static ChangeList* getCurrentChangeList();

    /// Null takes it away. The list stays the caller's and must outlive its use here.
    static void setCurrentChangeList(ChangeList* list);
};

} // namespace osg
