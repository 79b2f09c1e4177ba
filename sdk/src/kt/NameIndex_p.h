#pragma once

#include <kt/ktNodePtr.h>

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

/// The nodes of one tree by name, each name's in document order.
/// Knows by the tree's structure revision when it is out of date, and is then made anew at the next look-up.
class NameIndex
{
public:
    /// Another tree, or null for none.
    void setRoot(const osg::NodePtr& root);

    const osg::NodePtr& root() const { return _root; }

    std::vector<ktNodePtr> find(const std::string& name);
    std::vector<ktNodePtr> find(const std::vector<std::string>& names);

    /// Calls `rename`, which changes nothing in the tree but the name of `node` and of those that share its
    /// name attachment, and follows the change.
    template <class Rename>
    void followRename(const osg::NodePtr& node, Rename&& rename);

private:
    struct Place
    {
        std::uint64_t order; ///< Counted in document order.
        osg::NodePtr node;
    };
    using Places = std::vector<Place>;

    bool isFresh() const;
    void refresh();
    void add(const osg::NodePtr& node, std::uint64_t order);
    bool takeOut(const osg::NodePtr& node, std::uint64_t& order);

    osg::NodePtr _root;
    std::uint64_t _revision = 0;
    bool _isBuilt = false;
    std::unordered_map<std::string, Places> _places;
};

template <class Rename>
void NameIndex::followRename(const osg::NodePtr& node, Rename&& rename)
{
    std::uint64_t order = 0;
    const bool isFollowed = isFresh() && takeOut(node, order);
    rename();
    // More than one edit: a name attachment that hangs on other nodes too has renamed those as well.
    if (!isFollowed || _root->getStructureRevision() != _revision + 1) {
        _isBuilt = false;
        return;
    }
    add(node, order);
    _revision = _root->getStructureRevision();
}
