#include "host/vrml/DefLexer.h"

#include "host/vrml/NodeNames.h"
#include "host/vrml/VrmlLexer.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace kthost
{
namespace
{

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view header = "#VRML V2.0 utf8";

std::string_view withoutMark(std::string_view text)
{
    return text.substr(0, byteOrderMark.size()) == byteOrderMark ? text.substr(byteOrderMark.size()) : text;
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

/// A node whose braces are open.
struct OpenNode
{
    int depth;           ///< How many brackets are open outside it.
    std::string standIn; ///< Empty where it has no name.
    bool isScript;
};

/// A prototype whose body is to come.
struct Declared
{
    int depth; ///< How many brackets are open outside it.
    std::string_view name;
};

class Rewriter
{
public:
    Rewriter(std::string_view text, NodeNames& names, const ReadLimits& limits)
        : _text(text), _lexer(text), _names(names), _limits(limits)
    {
        _result.text.reserve(text.size() + text.size() / 8);
        _scopes.push_back({-1, {}});
    }

    ReaderText run()
    {
        using Kind = VrmlLexer::Kind;
        for (auto token = _lexer.next(); token.kind != Kind::End && _result; token = _lexer.next()) {
            if (token.kind == Kind::Word)
                word(token.text);
            else if (token.kind == Kind::Open)
                open(token.text.front());
            else if (token.kind == Kind::Close)
                close();
        }
        _result.text += _text.substr(_copied);
        _result.height = _height.height();
        return std::move(_result);
    }

private:
    void word(std::string_view keyword)
    {
        _word = keyword;
        if (keyword.size() > _limits.wordBytes)
            refuse(keyword, "a word of " + std::to_string(keyword.size()) + " bytes");
        else if (keyword == "DEF")
            define();
        else if (keyword == "USE")
            use(keyword);
        else if (keyword == "ROUTE")
            route();
        else if (keyword == "PROTO")
            _prototypes.push_back({_depth, VrmlLexer(_lexer).nextWord()});
        else if (keyword == "EXTERNPROTO")
            _height.declareExternal(VrmlLexer(_lexer).nextWord());
    }

    void refuse(std::string_view where, std::string problem)
    {
        const auto before = _text.substr(0, offset(where));
        _result.line = 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
        _result.problem = std::move(problem);
    }

    std::size_t offset(std::string_view part) const
    {
        return static_cast<std::size_t>(part.data() - _text.data());
    }

    void define()
    {
        const std::string_view name = _lexer.nextWord();
        if (name.empty())
            return;
        Scope::Entry& entry = find(name);
        if (entry.isDefined)
            entry.standIn = _names.add(name);
        entry.isDefined = true;
        replace(name, entry.standIn);
        _defined = entry.standIn;
    }

    void use(std::string_view keyword)
    {
        const std::string_view name = _lexer.nextWord();
        if (name.empty())
            return;
        const std::string& standIn = find(name).standIn;
        if (isScriptInside(standIn))
            replaceReference(_text.substr(offset(keyword), offset(name) + name.size() - offset(keyword)));
        else
            useNode(name, standIn);
    }

    void useNode(std::string_view name, const std::string& standIn)
    {
        replace(name, standIn);
        _height.use(standIn);
    }

    /// The innermost open node is a Script, and it is, or stands in, the node of this name.
    bool isScriptInside(const std::string& standIn) const
    {
        return !_nodes.empty() && _nodes.back().isScript &&
               std::any_of(_nodes.begin(), _nodes.end(),
                           [&](const OpenNode& node) { return node.standIn == standIn; });
    }

    void route()
    {
        routeEnd(_lexer.nextWord());
        VrmlLexer ahead = _lexer;
        if (ahead.nextWord() != "TO")
            return;
        _lexer = ahead;
        routeEnd(_lexer.nextWord());
    }

    /// `end` is NAME.FIELD; a name may hold dots, a field cannot.
    void routeEnd(std::string_view end)
    {
        const std::size_t dot = end.rfind('.');
        const std::string_view field = dot == std::string_view::npos ? end : end.substr(dot + 1);
        if (field.size() > _limits.wordBytes)
            refuse(field, "a word of " + std::to_string(field.size()) + " bytes");
        else if (dot != std::string_view::npos && dot > 0)
            replace(end.substr(0, dot), find(end.substr(0, dot)).standIn);
    }

    void replace(std::string_view part, std::string_view by)
    {
        _result.text += _text.substr(_copied, offset(part) - _copied);
        _result.text += by;
        _copied = offset(part) + part.size();
    }

    /// What is replaced may hold line ends, and the reader's lines are to be the file's.
    void replaceReference(std::string_view reference)
    {
        std::string null = "NULL";
        for (const char c : reference) {
            if (c == '\n' || c == '\r')
                null += c;
        }
        replace(reference, null);
    }

    Scope::Entry& find(std::string_view name)
    {
        const auto [place, isNew] = _scopes.back().entries.try_emplace(name);
        if (isNew)
            place->second = {_names.add(name), false};
        return place->second;
    }

    void open(char c)
    {
        // Default values in a prototype's interface sit one bracket deeper than its body.
        if (c == '{' && !_prototypes.empty() && _prototypes.back().depth == _depth) {
            _height.openBody(_depth, _prototypes.back().name);
            _prototypes.pop_back();
            _scopes.push_back({_depth, {}});
        } else if (c == '{') {
            _height.openNode(_depth, _word, _defined);
            _nodes.push_back({_depth, std::move(_defined), _word == "Script"});
        }
        _defined.clear();
        ++_depth;
        if (_depth > 0 && static_cast<std::size_t>(_depth) > _limits.brackets && _result)
            refuse(_text.substr(_lexer.position() - 1, 1),
                   "more than " + std::to_string(_limits.brackets) + " brackets are open inside each other");
    }

    void close()
    {
        --_depth;
        _height.close(_depth);
        if (_scopes.size() > 1 && _scopes.back().depth >= _depth)
            _scopes.pop_back();
        while (!_prototypes.empty() && _prototypes.back().depth > _depth)
            _prototypes.pop_back();
        while (!_nodes.empty() && _nodes.back().depth >= _depth)
            _nodes.pop_back();
    }

    const std::string_view _text;
    VrmlLexer _lexer;
    NodeNames& _names;
    const ReadLimits& _limits;
    ReaderText _result;
    std::size_t _copied = 0; ///< How much of the text is in the result.
    int _depth = 0;          ///< Open brackets of both kinds.
    std::string_view _word;  ///< The last one.
    std::string _defined;    ///< The stand-in of the last DEF, until its braces open.
    std::vector<Declared> _prototypes;
    std::vector<Scope> _scopes;
    std::vector<OpenNode> _nodes;
    SceneHeight _height;
};

} // namespace

ReaderText DefLexer::rewrite(std::string_view text, NodeNames& names, const ReadLimits& limits)
{
    text = withoutMark(text);
    if (isVrml97(text))
        return Rewriter(text, names, limits).run();
    ReaderText other;
    other.text = text;
    return other;
}

bool DefLexer::isVrml97(std::string_view text)
{
    return withoutMark(text).substr(0, header.size()) == header;
}

} // namespace kthost
