#pragma once

#include <cstdint>

class SoNode;

namespace kthost
{

/// What a walk that draws a scene comes by.
struct DrawnNodes
{
    /// A node below the root, or the root itself, that is drawn as a part of itself; null where there is
    /// none.
    SoNode* loop = nullptr;
    /// How many nodes are drawn, each as often as it is used, up to `most`; of no meaning where there is a
    /// loop.
    std::uint64_t count = 0;

    static constexpr std::uint64_t most = std::uint64_t{1} << 60U;

    /// Takes time for each node once, however often it is used.
    static DrawnNodes of(SoNode& root);
};

} // namespace kthost
