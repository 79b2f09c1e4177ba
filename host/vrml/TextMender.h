#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kthost
{

/// A text that the reader can make more of, and what was done to it.
struct MendedText
{
    struct Remark
    {
        std::size_t line; ///< From 1.
        std::string words;
    };

    std::string text;
    std::vector<Remark> remarks; ///< In the order of the text.
};

/// Takes from a VRML97 text what would cost the whole file although the rest of it can be read:
/// - the statements META, PROFILE and COMPONENT, of a younger standard, at the top of the file;
/// - a node of an unknown kind, with all that it holds, where its braces match: an empty Group stands in for
/// it, and
///   NULL for each USE of what it held;
/// - an EXTERNPROTO that is not to be had: a PROTO of the same interface with an empty Group stands in for
/// it. Lines stay where they are. Never fails: what it cannot mend it leaves to the reader.
class TextMender
{
public:
    struct Knowledge
    {
        /// The reader knows this kind of node.
        std::function<bool(const std::string& kind)> isKind;

        /// Why none of an EXTERNPROTO's URLs gives it; empty where one does.
        std::function<std::string(const std::vector<std::string>& urls)> whyMissing;
    };

    static MendedText mend(std::string_view text, const Knowledge& knowledge);
};

} // namespace kthost
