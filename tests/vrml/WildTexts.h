#pragma once

#include <string>

namespace kthost::test
{

/// So many groups inside each other.
inline std::string nested(int levels)
{
    std::string text;
    for (int i = 0; i < levels; ++i)
        text += "Group{children[";
    for (int i = 0; i < levels; ++i)
        text += "]}";
    return text;
}

/// Each prototype holds the one before it four times: 4^levels nodes.
inline std::string explosion(int levels)
{
    std::string text = "PROTO P0 [] { Group {} }\n";
    for (int i = 1; i <= levels; ++i) {
        const std::string below = "P" + std::to_string(i - 1) + " {} ";
        text += "PROTO P" + std::to_string(i) + " [] { Group { children [ " + below + below + below + below +
                "] } }\n";
    }
    return text + "P" + std::to_string(levels) + " {}";
}

} // namespace kthost::test
