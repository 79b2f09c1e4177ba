#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kthost
{

/// How many nodes may stand inside each other in what a text describes, with what USE and the prototypes
/// bring in: never less than there will be, often somewhat more. Told of a text's brackets from front to
/// back; depths are the brackets open outside.
class SceneHeight
{
public:
    /// The height of a text with a loop.
    static constexpr std::size_t endless = 1U << 30U;

    struct Height
    {
        std::size_t nodes = 0;
        std::size_t externals = 0; ///< Instances of EXTERNPROTOs among them, each of a height of its own.
    };

    /// The braces of a node of this kind, named `standIn` where that is not empty.
    void openNode(int depth, std::string_view kind, const std::string& standIn);

    /// The body of the PROTO of this name.
    void openBody(int depth, std::string_view prototype);

    void declareExternal(std::string_view prototype);

    /// All that was opened at this depth or above is closed.
    void close(int depth);

    /// USE of a node.
    void use(const std::string& standIn);

    /// Of all so far.
    Height height() const;

private:
    struct Level
    {
        int depth;
        Height own;
        Height below; ///< Of the highest so far.
        std::string standIn;
        std::string_view prototype; ///< Whose body this is.
        Height before;              ///< Of the body that had this name until here.
    };

    static void raise(Height& height, const Height& other);
    void closeLast();

    std::vector<Level> _open;
    Height _top; ///< Of the highest node that is in none.
    std::unordered_map<std::string, Height> _named;
    std::unordered_map<std::string_view, Height> _bodies;
};

} // namespace kthost
