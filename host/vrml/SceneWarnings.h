#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kthost
{

/// What was found wrong with a scene that loads all the same. Equal texts are counted, not repeated.
class SceneWarnings
{
public:
    struct Entry
    {
        std::string text; ///< One line.
        std::size_t count;
    };

    /// More texts than a hundred are only counted in total().
    void add(const std::string& text);

    const std::vector<Entry>& entries() const { return _entries; }

    /// How often add() was called.
    std::size_t total() const { return _total; }

    /// How often of those its text was not kept.
    std::size_t countOfOthers() const { return _others; }

private:
    std::vector<Entry> _entries;
    std::size_t _total = 0;
    std::size_t _others = 0;
};

} // namespace kthost
