#include "host/vrml/DrawnLoop.h"

#include "host/vrml/NodeFields.h"

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace kthost
{
namespace
{

struct Branch
{
    SoNode* node;
    std::vector<SoNode*> children;
    std::size_t next = 0;
};

} // namespace

SoNode* DrawnLoop::find(SoNode& root)
{
    NodeFields fields;
    std::vector<Branch> branches;
    std::unordered_map<const SoNode*, bool> isOpen;
    const auto enter = [&](SoNode& node) {
        const auto [place, isNew] = isOpen.try_emplace(&node, true);
        if (isNew)
            branches.push_back({&node, fields.drawnNodesOf(node)});
        return isNew || !place->second;
    };
    enter(root);
    while (!branches.empty()) {
        Branch& branch = branches.back();
        if (branch.next == branch.children.size()) {
            isOpen[branch.node] = false;
            branches.pop_back();
        } else if (SoNode* const child = branch.children[branch.next++]; !enter(*child)) {
            return child;
        }
    }
    return nullptr;
}

} // namespace kthost
