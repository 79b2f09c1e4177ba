#include "host/vrml/NodeNames.h"

#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoNode.h>

#include <algorithm>
#include <charconv>
#include <set>
#include <utility>

namespace kthost
{
namespace
{

constexpr std::string_view prefix = "ktDef";

/// The same text read in two processes takes up the same bytes, whatever either read before: SceneGuard
/// counts on it.
constexpr std::size_t digitsOfAName = 10;

constexpr std::uint64_t numbersInABlock = 256;

/// Blocks of numbers that no living table has, and the first one that none ever had.
struct FreeBlocks
{
    std::set<std::uint64_t> returned;
    std::uint64_t next = 0;
};

// Never destroyed: tables may go while the process ends.
FreeBlocks& freeBlocks()
{
    static auto* const blocks = new FreeBlocks;
    return *blocks;
}

std::string standInFor(std::uint64_t number)
{
    const std::string digits = std::to_string(number);
    std::string standIn(prefix);
    standIn.append(digitsOfAName - std::min(digits.size(), digitsOfAName), '0');
    return standIn += digits;
}

/// The reader keeps some nodes of texts that it refused, and would find them.
bool namesNodes(std::uint64_t block)
{
    if (!SoDB::isInitialized())
        return false;
    for (std::uint64_t i = 0; i < numbersInABlock; ++i) {
        if (SoNode::getByName(standInFor(block * numbersInABlock + i).c_str()))
            return true;
    }
    return false;
}

} // namespace

NodeNames::~NodeNames()
{
    giveBlocksBack();
}

NodeNames::NodeNames(NodeNames&& other) noexcept
    : _blocks(std::exchange(other._blocks, {})),
      _blockPlaces(std::exchange(other._blockPlaces, {})),
      _originals(std::exchange(other._originals, {}))
{
}

NodeNames& NodeNames::operator=(NodeNames&& other) noexcept
{
    std::swap(_blocks, other._blocks);
    std::swap(_blockPlaces, other._blockPlaces);
    std::swap(_originals, other._originals);
    return *this;
}

void NodeNames::takeBlock()
{
    FreeBlocks& blocks = freeBlocks();
    while (!blocks.returned.empty() && namesNodes(*blocks.returned.begin()))
        blocks.returned.erase(blocks.returned.begin());
    std::uint64_t block = blocks.next;
    if (blocks.returned.empty())
        ++blocks.next;
    else
        block = blocks.returned.extract(blocks.returned.begin()).value();
    _blockPlaces[block] = _blocks.size();
    _blocks.push_back(block);
}

void NodeNames::giveBlocksBack()
{
    freeBlocks().returned.insert(_blocks.begin(), _blocks.end());
}

std::string NodeNames::add(std::string_view original)
{
    const std::uint64_t place = _originals.size() % numbersInABlock;
    if (place == 0)
        takeBlock();
    _originals.emplace_back(original);
    return standInFor(_blocks.back() * numbersInABlock + place);
}

std::size_t NodeNames::match(std::string_view text, const std::string*& original) const
{
    if (text.substr(0, prefix.size()) != prefix)
        return 0;
    const char* const digits = text.data() + prefix.size();
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(digits, text.data() + text.size(), number);
    if (error != std::errc())
        return 0;
    const auto block = _blockPlaces.find(number / numbersInABlock);
    if (block == _blockPlaces.end())
        return 0;
    const std::size_t place = block->second * numbersInABlock + number % numbersInABlock;
    if (place >= _originals.size())
        return 0;
    original = &_originals[place];
    return static_cast<std::size_t>(end - text.data());
}

std::string NodeNames::original(std::string_view name) const
{
    const std::string* found = nullptr;
    return !name.empty() && match(name, found) == name.size() ? *found : std::string(name);
}

std::string NodeNames::translate(std::string_view text) const
{
    std::string result;
    while (!text.empty()) {
        const std::size_t start = text.find(prefix);
        result += text.substr(0, start);
        if (start == std::string_view::npos)
            break;
        text.remove_prefix(start);
        const std::string* found = nullptr;
        std::size_t length = match(text, found);
        if (length > 0)
            result += *found;
        else
            result += text.substr(0, length = prefix.size());
        text.remove_prefix(length);
    }
    return result;
}

} // namespace kthost
