#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

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

    SceneSkeleton() = default;
    explicit SceneSkeleton(std::string_view text);

    const std::string& text() const { return _text; }

    /// The place in the whole text of a place in this one, in bytes. Quick where it is asked from front to
    /// back.
    std::size_t inWhole(std::size_t place);

private:
    struct Cut
    {
        std::size_t place; ///< In this text.
        std::size_t bytes; ///< That are gone here and before.
    };

    std::string _text;
    std::vector<Cut> _cuts;
    std::size_t _next = 0; ///< Among the cuts, behind the place that was asked for last.
};

} // namespace kthost
