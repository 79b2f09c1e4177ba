#pragma once

#include <string>

namespace kthost
{

/// The kinds of nodes that the reader's library has.
class NodeKinds
{
public:
    /// A node of this kind can stand in a VRML97 file. The library is not asked by name: it would look for a
    /// library of that name to load.
    static bool isKnown(const std::string& kind);
};

} // namespace kthost
