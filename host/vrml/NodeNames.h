#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kthost
{

/// The node names of one reading, each behind a stand-in that the reader passes through unchanged.
/// The reader keeps only a part of a name's bytes and finds nodes by name over the whole process, so every
/// name of every file gets a stand-in of plain letters and digits that no other one of the process has.
class NodeNames
{
public:
    NodeNames();

    /// A fresh stand-in for `original`, also where that name already has one; all are of one length. One
    /// NodeNames at a time is added to.
    std::string add(std::string_view original);

    /// The name behind a stand-in, byte for byte; any other text is given back as it is.
    std::string original(std::string_view name) const;

    /// The text with each stand-in replaced by its name: for the reader's messages.
    std::string translate(std::string_view text) const;

private:
    /// The length of the stand-in that `text` begins with, and its name; 0 where it begins with none of ours.
    std::size_t match(std::string_view text, const std::string*& original) const;

    std::uint64_t _first;
    std::vector<std::string> _originals;
};

} // namespace kthost
