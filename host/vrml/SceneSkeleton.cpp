#include "host/vrml/SceneSkeleton.h"

#include "host/vrml/VrmlLexer.h"

#include <cstddef>

namespace kthost
{
namespace
{

/// Fields of a few numbers, such as a key with its two ends, stay as they are.
constexpr std::size_t fewNumbers = 16;

bool beginsNumber(std::string_view word)
{
    const char c = word.front();
    return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.';
}

} // namespace

std::string SceneSkeleton::of(std::string_view text)
{
    return SceneSkeleton(text)._text;
}

SceneSkeleton::SceneSkeleton(std::string_view text)
{
    using Kind = VrmlLexer::Kind;
    std::size_t copied = 0;
    std::size_t listStart = 0; ///< Behind the bracket that opened last.
    std::size_t numbers = 0;
    bool isList = false;
    VrmlLexer lexer(text);
    for (auto token = lexer.next(); token.kind != Kind::End; token = lexer.next()) {
        if (token.kind == Kind::Word && beginsNumber(token.text)) {
            ++numbers;
            continue;
        }
        if (token.kind == Kind::Close && token.text == "]" && isList && numbers > fewNumbers) {
            _text += text.substr(copied, listStart - copied);
            copied = lexer.position() - 1;
            _cuts.push_back({_text.size(), copied - _text.size()});
        }
        isList = token.kind == Kind::Open && token.text == "[";
        listStart = lexer.position();
        numbers = 0;
    }
    _text += text.substr(copied);
}

std::size_t SceneSkeleton::inWhole(std::size_t place)
{
    while (_next < _cuts.size() && _cuts[_next].place < place)
        ++_next;
    while (_next > 0 && _cuts[_next - 1].place >= place)
        --_next;
    return place + (_next > 0 ? _cuts[_next - 1].bytes : 0);
}

} // namespace kthost
