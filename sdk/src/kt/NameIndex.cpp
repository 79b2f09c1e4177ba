#include "kt/NameIndex_p.h"

#include <kt/NodeUtils.h>

#include <algorithm>

namespace
{

std::string nameOf(const osg::NodePtr& node)
{
    const char* name = NodeUtils::getName(node);
    return name ? name : "";
}

bool isBefore(std::uint64_t order, std::uint64_t other)
{
    return order < other;
}

} // namespace

void NameIndex::setRoot(const osg::NodePtr& root)
{
    _root = root;
    _isBuilt = false;
    _places.clear();
}

std::vector<ktNodePtr> NameIndex::find(const std::string& name)
{
    refresh();
    std::vector<ktNodePtr> nodes;
    const auto found = _places.find(name);
    if (found == _places.end())
        return nodes;
    nodes.reserve(found->second.size());
    for (const Place& place : found->second)
        nodes.emplace_back(place.node);
    return nodes;
}

std::vector<ktNodePtr> NameIndex::find(const std::vector<std::string>& names)
{
    refresh();
    Places all;
    for (const std::string& name : names) {
        const auto found = _places.find(name);
        if (found != _places.end())
            all.insert(all.end(), found->second.begin(), found->second.end());
    }
    std::sort(all.begin(), all.end(),
              [](const Place& a, const Place& b) { return isBefore(a.order, b.order); });
    std::vector<ktNodePtr> nodes;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (i == 0 || all[i].order != all[i - 1].order)
            nodes.emplace_back(all[i].node);
    }
    return nodes;
}

bool NameIndex::isFresh() const
{
    return _isBuilt && _root && _revision == _root->getStructureRevision();
}

void NameIndex::refresh()
{
    if (isFresh())
        return;
    _places.clear();
    _isBuilt = true;
    if (!_root)
        return;
    _revision = _root->getStructureRevision();
    std::uint64_t order = 0;
    std::vector<osg::NodePtr> pending{_root}; // not recursive: scenes nest deeper than the stack is
    while (!pending.empty()) {
        const osg::NodePtr node = std::move(pending.back());
        pending.pop_back();
        add(node, order++);
        for (std::size_t i = node->getNChildren(); i > 0; --i)
            pending.push_back(node->getChild(i - 1));
    }
}

void NameIndex::add(const osg::NodePtr& node, std::uint64_t order)
{
    Places& places = _places[nameOf(node)];
    const auto next =
        std::upper_bound(places.begin(), places.end(), order,
                         [](std::uint64_t o, const Place& place) { return isBefore(o, place.order); });
    places.insert(next, {order, node});
}

bool NameIndex::takeOut(const osg::NodePtr& node, std::uint64_t& order)
{
    const auto found = _places.find(nameOf(node));
    if (found == _places.end())
        return false;
    Places& places = found->second;
    const auto isNode = [&](const Place& place) { return place.node == node; };
    const auto place = std::find_if(places.begin(), places.end(), isNode);
    if (place == places.end())
        return false;
    order = place->order;
    places.erase(place);
    return true;
}
