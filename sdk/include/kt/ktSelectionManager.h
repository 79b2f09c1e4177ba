#pragma once

#include <kt/Export.h>
#include <kt/ktNodePtr.h>

#include <vector>

/// The nodes that the user has selected in the scene. GUI thread.
class KT_EXPORT ktSelectionManager
{
public:
    using ChangeHandler = void (*)();

    /// Selects these nodes, in this order, and no others. Null ones are left out.
    static void selectNodes(const std::vector<ktNodePtr>& nodes);

    static const std::vector<ktNodePtr>& selectedNodes();

    /// For the host: told after each selectNodes(); null for nobody.
    static void setChangeHandler(ChangeHandler handler);
};
