#pragma once

#include <kt/Export.h>
#include <kt/ktNodePtr.h>

#include <string>
#include <vector>

/// The host's scene: its root, its nodes by name. GUI thread.
/// A node's name is the one that NodeUtils::getName() gives.
class KT_EXPORT ktScenegraph
{
public:
    using ScrollHandler = void (*)(const ktNodePtr&);

    /// The scene's root; null where no scene is open.
    static ktNodePtr getRootNode();

    /// Every node of this name, whole and byte for byte, in document order. None for a null name.
    /// Costs what the result costs; the first call after the scene's structure changed costs the scene's
    /// size.
    static std::vector<ktNodePtr> findNodes(const char* name);

    /// Every node that has one of the names, once, in document order.
    static std::vector<ktNodePtr> findNodes(const std::vector<std::string>& names);

    /// Gives a node a name of its own (null is read as empty): on its name attachment, which it gets if it
    /// has none. `announce`: modules are told of it with message 32768. `record`: the edit goes to the change
    /// list. A null node is ignored.
    static void setNodeName(bool announce, const ktNodePtr& node, const char* name, bool record);

    /// Brings the node into sight where the host shows the scene's tree. A null node is ignored.
    static void scrollToNode(const ktNodePtr& node);

    /// For the host: another scene, or null for none. The root has no parent, then or later.
    static void setRootNode(const ktNodePtr& root);

    /// For the host: who scrolls; null for nobody.
    static void setScrollHandler(ScrollHandler handler);

    /// For the host: true once for each time that the scene's structure or names changed since the last call
    /// or since setRootNode(), however many edits that were.
    static bool takeSceneChanged();
};
