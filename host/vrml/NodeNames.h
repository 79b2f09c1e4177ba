#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kthost
{

/// The node names of one reading, each behind a stand-in that the reader passes through unchanged.
/// The reader keeps only a part of a name's bytes and finds nodes by name over the whole process, so every
/// name of every file gets a stand-in of plain letters and digits that no other one of the process has at
/// that time. The reader never forgets a word that was a name once, so those of a table that is gone are used
/// again: it must outlive the nodes that it names, or be the last to be asked for them.
class NodeNames
{
public:
    NodeNames() = default;
    ~NodeNames();
    NodeNames(NodeNames&& other) noexcept;
    NodeNames& operator=(NodeNames&& other) noexcept;

    /// A stand-in for `original` that no living table has, also where that name already has one here; all are
    /// of one length.
    std::string add(std::string_view original);

    /// The name behind a stand-in, byte for byte; any other text is given back as it is.
    std::string original(std::string_view name) const;

    /// The text with each stand-in replaced by its name: for the reader's messages.
    std::string translate(std::string_view text) const;

private:
    /// The length of the stand-in that `text` begins with, and its name; 0 where it begins with none of ours.
    std::size_t match(std::string_view text, const std::string*& original) const;

    /// Takes the next block of numbers that no living table has.
    void takeBlock();
    void giveBlocksBack();

    std::vector<std::uint64_t> _blocks;                          ///< In order of their use.
    std::unordered_map<std::uint64_t, std::size_t> _blockPlaces; ///< Where a block stands among them.
    std::vector<std::string> _originals;
};

} // namespace kthost
