#pragma once

#include <cstddef>
#include <string_view>

namespace kthost
{

/// Takes a text of VRML97 apart into its words, strings and brackets (VRML97 annex A); blanks and comments
/// are passed over. Any bytes at all are a text. The text must outlive the lexer and its tokens.
class VrmlLexer
{
public:
    enum class Kind {
        End,
        Word,   ///< Keywords, names, numbers.
        String, ///< With its quotes; one that is not closed reaches to the end.
        Open,   ///< { or [
        Close   ///< } or ]
    };

    struct Token
    {
        Kind kind = Kind::End;
        std::string_view text;
    };

    explicit VrmlLexer(std::string_view text) : _text(text) {}

    Token next();

    /// The next token's text where that is a word; otherwise an empty one, and the token is still to come.
    std::string_view nextWord();

    /// Where the text goes on, in bytes from its beginning.
    std::size_t position() const { return _position; }

private:
    bool skipBlanks();
    std::string_view readWord();
    std::string_view readString();

    std::string_view _text;
    std::size_t _position = 0;
};

} // namespace kthost
