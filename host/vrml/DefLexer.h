#pragma once

#include "host/vrml/ReadLimits.h"
#include "host/vrml/SceneHeight.h"

#include <string>
#include <string_view>

namespace kthost
{

class NodeNames;

/// A text of VRML97 as the reader gets it.
struct ReaderText
{
    std::string text;
    std::string problem;  ///< Why the reader must not get it, in a few words; empty where it may.
    std::size_t line = 0; ///< Where the problem is, from 1.
    SceneHeight::Height height;

    explicit operator bool() const { return problem.empty(); }
};

/// Replaces the node names of a VRML97 text by stand-ins of `names`.
/// Names are what follows DEF and USE and what stands before the dot in ROUTE; strings and comments are left
/// alone. A name that is defined twice gets a stand-in for each DEF; USE and ROUTE mean the nearest DEF
/// before them, and where there is none, the first one after them. The body of a PROTO has its own names
/// (VRML97 4.4.3, 4.8.3). Lines stay where they are. A byte-order mark is left out.
///
/// A Script's USE of itself or of what it stands in becomes NULL: Scripts are not run, and the reader does
/// not survive all of them. What goes beyond the limits on brackets and words is a problem. A text of another
/// format, which its first line tells, comes back without its byte-order mark and otherwise as it is. All
/// else that is no VRML97 is for the reader to say.
class DefLexer
{
public:
    static ReaderText rewrite(std::string_view text, NodeNames& names, const ReadLimits& limits = {});

    /// True where the text begins with the header of VRML97, behind a byte-order mark perhaps.
    static bool isVrml97(std::string_view text);
};

} // namespace kthost
