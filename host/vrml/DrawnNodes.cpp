#include "host/vrml/DrawnNodes.h"

#include "host/vrml/NodeFields.h"

#include <algorithm>
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
    std::uint64_t count = 1;
};

/// In the place of a count, of a node whose children are being walked.
constexpr std::uint64_t isOpen = 0;

} // namespace

DrawnNodes DrawnNodes::of(SoNode& root)
{
    NodeFields fields;
    std::unordered_map<const SoNode*, std::uint64_t> counts;
    std::vector<Branch> branches;
    const auto enter = [&](SoNode& node) {
        counts.emplace(&node, isOpen);
        branches.push_back({&node, fields.drawnNodesOf(node)});
    };
    enter(root);
    for (;;) {
        Branch& branch = branches.back();
        if (branch.next == branch.children.size()) {
            const std::uint64_t count = counts[branch.node] = branch.count;
            branches.pop_back();
            if (branches.empty())
                return {nullptr, count};
            continue;
        }
        SoNode* const child = branch.children[branch.next];
        const auto known = counts.find(child);
        if (known == counts.end()) {
            enter(*child); // and is come by again when it is counted
            continue;
        }
        if (known->second == isOpen)
            return {child, 0};
        branch.count = std::min(branch.count + known->second, most);
        ++branch.next;
    }
}

} // namespace kthost
