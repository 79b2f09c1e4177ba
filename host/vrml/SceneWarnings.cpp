#include "host/vrml/SceneWarnings.h"

#include <algorithm>

namespace kthost
{
namespace
{

constexpr std::size_t mostEntries = 100;

} // namespace

void SceneWarnings::add(const std::string& text)
{
    ++_total;
    const auto known = std::find_if(_entries.begin(), _entries.end(),
                                    [&](const Entry& entry) { return entry.text == text; });
    if (known != _entries.end())
        ++known->count;
    else if (_entries.size() < mostEntries)
        _entries.push_back({text, 1});
    else
        ++_others;
}

} // namespace kthost
