#pragma once

#include <string>
#include <string_view>

namespace kthost
{

/// A scene's text without its long lists of numbers: what makes a reader stumble is left, what makes a file
/// large is gone.
class SceneSkeleton
{
public:
    /// The text with every list of more than a few numbers emptied; comments inside these lists go too. Lines
    /// move.
    static std::string of(std::string_view text);
};

} // namespace kthost
