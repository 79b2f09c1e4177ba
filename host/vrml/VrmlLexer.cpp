#include "host/vrml/VrmlLexer.h"

#include <algorithm>
#include <array>

namespace kthost
{
namespace
{

enum CharacterClass : unsigned char { Plain, Blank, Special };

constexpr std::array<CharacterClass, 256> classes = [] {
    std::array<CharacterClass, 256> all{};
    for (const char c : {' ', '\t', '\r', '\n', ',', '\v', '\f'})
        all[static_cast<unsigned char>(c)] = Blank;
    for (const char c : {'"', '#', '{', '}', '[', ']'})
        all[static_cast<unsigned char>(c)] = Special;
    return all;
}();

CharacterClass classOf(char c)
{
    return classes[static_cast<unsigned char>(c)];
}

} // namespace

VrmlLexer::Token VrmlLexer::next()
{
    if (!skipBlanks())
        return {};
    const char c = _text[_position];
    if (c == '"')
        return {Kind::String, readString()};
    if (classOf(c) == Plain)
        return {Kind::Word, readWord()};
    return {c == '{' || c == '[' ? Kind::Open : Kind::Close, _text.substr(_position++, 1)};
}

std::string_view VrmlLexer::nextWord()
{
    return skipBlanks() ? readWord() : std::string_view();
}

/// Comments too; false at the end of the text.
bool VrmlLexer::skipBlanks()
{
    // Here and below in a variable of its own, which the compiler keeps out of memory: most of a large file
    // is blanks and numbers.
    std::size_t position = _position;
    for (; position < _text.size(); ++position) {
        if (_text[position] == '#')
            position = std::min(_text.find_first_of("\r\n", position), _text.size() - 1);
        else if (classOf(_text[position]) != Blank)
            break;
    }
    _position = position;
    return position < _text.size();
}

/// Empty where no word begins.
std::string_view VrmlLexer::readWord()
{
    const std::size_t start = _position;
    std::size_t end = start;
    while (end < _text.size() && classOf(_text[end]) == Plain)
        ++end;
    _position = end;
    return _text.substr(start, end - start);
}

std::string_view VrmlLexer::readString()
{
    const std::size_t start = _position++;
    while (_position < _text.size() && _text[_position] != '"')
        _position += _text[_position] == '\\' ? 2 : 1;
    _position = std::min(_position + 1, _text.size());
    return _text.substr(start, _position - start);
}

} // namespace kthost
