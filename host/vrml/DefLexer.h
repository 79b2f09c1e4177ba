#pragma once

#include <string>
#include <string_view>

namespace kthost
{

class NodeNames;

/// Replaces the node names of a VRML97 text by stand-ins of `names`.
/// Names are what follows DEF and USE and what stands before the dot in ROUTE; strings and comments are left
/// alone. A name that is defined twice gets a stand-in for each DEF; USE and ROUTE mean the nearest DEF
/// before them, and where there is none, the first one after them. The body of a PROTO has its own names
/// (VRML97 4.4.3, 4.8.3). Lines stay where they are. A byte-order mark is left out. A text of another format,
/// which its first line tells, comes back without its byte-order mark and otherwise as it is. Never fails:
/// what is no VRML97 is for the reader to say.
class DefLexer
{
public:
    static std::string rewrite(std::string_view text, NodeNames& names);

    /// True where the text begins with the header of VRML97.
    static bool isVrml97(std::string_view text);
};

} // namespace kthost
