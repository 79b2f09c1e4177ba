#include "host/vrml/NodeNames.h"

#include <algorithm>
#include <charconv>

namespace kthost
{
namespace
{

constexpr std::string_view prefix = "ktDef";

/// The same text read in two processes takes up the same bytes, whatever either read before: SceneGuard
/// counts on it.
constexpr std::size_t digitsOfAName = 10;

std::uint64_t nextNumber = 0;

} // namespace

NodeNames::NodeNames() : _first(nextNumber) {}

std::string NodeNames::add(std::string_view original)
{
    // Two tables that grew by turns would lose the simple way from a number to its name.
    if (_originals.empty())
        _first = nextNumber;
    _originals.emplace_back(original);
    const std::string number = std::to_string(nextNumber++);
    std::string standIn(prefix);
    standIn.append(digitsOfAName - std::min(number.size(), digitsOfAName), '0');
    return standIn += number;
}

std::size_t NodeNames::match(std::string_view text, const std::string*& original) const
{
    if (text.substr(0, prefix.size()) != prefix)
        return 0;
    const char* const digits = text.data() + prefix.size();
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(digits, text.data() + text.size(), number);
    if (error != std::errc() || number < _first || number - _first >= _originals.size())
        return 0;
    original = &_originals[number - _first];
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
