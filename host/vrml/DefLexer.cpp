#include "host/vrml/DefLexer.h"

#include "host/vrml/NodeNames.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace kthost
{
namespace
{

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view header = "#VRML V2.0 utf8";

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == ',' || c == '\v' || c == '\f';
}

bool endsWord(char c)
{
    return isBlank(c) || c == '"' || c == '#' || c == '{' || c == '}' || c == '[' || c == ']';
}

/// The names of one name scope.
struct Scope
{
    struct Entry
    {
        std::string standIn;
        bool isDefined;
    };

    int depth; ///< How many brackets are open outside it.
    std::unordered_map<std::string_view, Entry> entries;
};

class Rewriter
{
public:
    Rewriter(std::string_view text, NodeNames& names) : _text(text), _names(names)
    {
        _result.reserve(text.size() + text.size() / 8);
        _scopes.push_back({-1, {}});
    }

    std::string run()
    {
        while (skipBlanks()) {
            const char c = _text[_position];
            if (c == '"')
                skipString();
            else if (endsWord(c))
                bracket(c);
            else
                word(readWord());
        }
        _result += _text.substr(_copied);
        return std::move(_result);
    }

private:
    bool atEnd() const { return _position >= _text.size(); }

    /// Skips blanks and comments; false at the end of the text.
    bool skipBlanks()
    {
        for (; !atEnd(); ++_position) {
            if (_text[_position] == '#')
                _position = std::min(_text.find_first_of("\r\n", _position), _text.size() - 1);
            else if (!isBlank(_text[_position]))
                return true;
        }
        return false;
    }

    void skipString()
    {
        for (++_position; !atEnd(); ++_position) {
            if (_text[_position] == '\\')
                ++_position;
            else if (_text[_position] == '"')
                break;
        }
        ++_position;
    }

    /// The word at the position; empty where none begins there.
    std::string_view readWord()
    {
        const std::size_t start = _position;
        while (!atEnd() && !endsWord(_text[_position]))
            ++_position;
        return _text.substr(start, _position - start);
    }

    std::string_view readNextWord() { return skipBlanks() ? readWord() : std::string_view(); }

    void word(std::string_view keyword)
    {
        if (keyword == "DEF")
            replace(readNextWord(), &Rewriter::define);
        else if (keyword == "USE")
            replace(readNextWord(), &Rewriter::refer);
        else if (keyword == "ROUTE")
            route();
        else if (keyword == "PROTO")
            _prototypes.push_back(_depth);
    }

    void route()
    {
        replaceRouteEnd(readNextWord());
        const std::size_t afterFirst = _position;
        if (readNextWord() == "TO")
            replaceRouteEnd(readNextWord());
        else
            _position = afterFirst;
    }

    /// `end` is NAME.FIELD; a name may hold dots, a field cannot.
    void replaceRouteEnd(std::string_view end)
    {
        const std::size_t dot = end.rfind('.');
        if (dot != std::string_view::npos)
            replace(end.substr(0, dot), &Rewriter::refer);
    }

    void replace(std::string_view name, const std::string& (Rewriter::*standIn)(std::string_view))
    {
        if (name.empty())
            return;
        const auto start = static_cast<std::size_t>(name.data() - _text.data());
        _result += _text.substr(_copied, start - _copied);
        _result += (this->*standIn)(name);
        _copied = start + name.size();
    }

    const std::string& define(std::string_view name)
    {
        Scope::Entry& entry = find(name);
        if (entry.isDefined)
            entry.standIn = _names.add(name);
        entry.isDefined = true;
        return entry.standIn;
    }

    const std::string& refer(std::string_view name) { return find(name).standIn; }

    Scope::Entry& find(std::string_view name)
    {
        const auto [place, isNew] = _scopes.back().entries.try_emplace(name);
        if (isNew)
            place->second = {_names.add(name), false};
        return place->second;
    }

    void bracket(char c)
    {
        ++_position;
        if (c == '{' || c == '[') {
            // Default values in a prototype's interface sit one bracket deeper than its body.
            if (c == '{' && !_prototypes.empty() && _prototypes.back() == _depth) {
                _prototypes.pop_back();
                _scopes.push_back({_depth, {}});
            }
            ++_depth;
        } else {
            --_depth;
            if (_scopes.size() > 1 && _scopes.back().depth >= _depth)
                _scopes.pop_back();
            while (!_prototypes.empty() && _prototypes.back() > _depth)
                _prototypes.pop_back();
        }
    }

    const std::string_view _text;
    NodeNames& _names;
    std::string _result;
    std::size_t _position = 0;
    std::size_t _copied = 0;      ///< How much of the text is in the result.
    int _depth = 0;               ///< Open brackets of both kinds.
    std::vector<int> _prototypes; ///< Depths at which a prototype's body is to come.
    std::vector<Scope> _scopes;
};

} // namespace

std::string DefLexer::rewrite(std::string_view text, NodeNames& names)
{
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark)
        text.remove_prefix(byteOrderMark.size());
    return isVrml97(text) ? Rewriter(text, names).run() : std::string(text);
}

bool DefLexer::isVrml97(std::string_view text)
{
    return text.substr(0, header.size()) == header;
}

} // namespace kthost
