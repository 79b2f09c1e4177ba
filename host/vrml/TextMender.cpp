#include "host/vrml/TextMender.h"

#include "host/vrml/VrmlLexer.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>
#include <vector>

namespace kthost
{
namespace
{

using Kind = VrmlLexer::Kind;

/// The value that a field of this type has where nobody gives it one (VRML97 5.2 to 5.11).
std::string_view valueOf(std::string_view type)
{
    static constexpr std::pair<std::string_view, std::string_view> values[] = {
        {"SFBool", "FALSE"}, {"SFColor", "0 0 0"}, {"SFFloat", "0"},         {"SFImage", "0 0 0"},
        {"SFInt32", "0"},    {"SFNode", "NULL"},   {"SFString", "\"\""},     {"SFTime", "0"},
        {"SFVec2f", "0 0"},  {"SFVec3f", "0 0 0"}, {"SFRotation", "0 0 1 0"}};
    for (const auto& [known, value] : values) {
        if (type == known)
            return value;
    }
    return "[]";
}

std::string lineEndsOf(std::string_view part)
{
    std::string ends;
    std::copy_if(part.begin(), part.end(), std::back_inserter(ends),
                 [](char c) { return c == '\n' || c == '\r'; });
    return ends;
}

std::string unquoted(std::string_view string)
{
    std::string result;
    for (std::size_t i = 1; i + 1 < string.size(); ++i) {
        if (string[i] == '\\' && i + 2 < string.size())
            ++i;
        result += string[i];
    }
    return result;
}

class Mender
{
public:
    Mender(std::string_view text, const TextMender::Knowledge& knowledge)
        : _text(text), _lexer(text), _knowledge(knowledge)
    {
    }

    MendedText run()
    {
        std::string_view before; // the token, where that may be the kind of a node
        for (auto token = _lexer.next(); token.kind != Kind::End; token = _lexer.next()) {
            const bool isPlain = token.kind == Kind::Word && !passesStatement(token.text);
            if (token.kind == Kind::Open && (token.text == "[" || !passesOver(before)))
                ++_depth;
            else if (token.kind == Kind::Close)
                --_depth;
            before = isPlain ? token.text : std::string_view();
        }
        _result.text += _text.substr(_copied);
        return std::move(_result);
    }

private:
    /// Goes through what this word begins; false where it is no keyword.
    bool passesStatement(std::string_view keyword)
    {
        if (keyword == "DEF")
            _defined.insert(_lexer.nextWord());
        else if (keyword == "USE")
            use(keyword);
        else if (keyword == "PROTO")
            _prototypes.insert(_lexer.nextWord());
        else if (keyword == "EXTERNPROTO")
            externalPrototype(keyword);
        else if (_depth == 0 && (keyword == "META" || keyword == "PROFILE" || keyword == "COMPONENT"))
            youngerStatement(keyword);
        else
            return false;
        return true;
    }

    std::size_t offset(std::string_view part) const
    {
        return static_cast<std::size_t>(part.data() - _text.data());
    }

    /// From the beginning of this token to where `lexer` is.
    std::string_view from(std::string_view token, const VrmlLexer& lexer) const
    {
        return _text.substr(offset(token), lexer.position() - offset(token));
    }

    void replace(std::string_view part, const std::string& by)
    {
        _result.text += _text.substr(_copied, offset(part) - _copied);
        _result.text += by;
        _copied = offset(part) + part.size();
    }

    void remark(std::string_view where, std::string words)
    {
        const std::string_view before = _text.substr(_counted, offset(where) - _counted);
        _line += static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
        _counted = offset(where);
        _result.remarks.push_back({_line, std::move(words)});
    }

    void youngerStatement(std::string_view keyword)
    {
        const Kind value = keyword == "META" ? Kind::String : Kind::Word;
        VrmlLexer ahead = _lexer;
        for (int i = 0; i < (keyword == "META" ? 2 : 1); ++i) {
            if (ahead.next().kind != value)
                return;
        }
        _lexer = ahead;
        replace(from(keyword, _lexer), lineEndsOf(from(keyword, _lexer)));
        remark(keyword, std::string(keyword) + " is no statement of VRML97 and is passed over");
    }

    void use(std::string_view keyword)
    {
        const std::string_view name = _lexer.nextWord();
        if (_lost.count(name) != 0 && _defined.count(name) == 0)
            replace(from(keyword, _lexer), "NULL" + lineEndsOf(from(keyword, _lexer)));
    }

    /// A node whose braces have just opened, where its kind is unknown; false where it stays.
    bool passesOver(std::string_view kind)
    {
        if (kind.empty() || _prototypes.count(kind) != 0 || _knowledge.isKind(std::string(kind)))
            return false;
        VrmlLexer ahead = _lexer;
        std::set<std::string_view> lost;
        if (_unmatched.count(_lexer.position()) != 0 || !skipToClose(ahead, lost))
            return false;
        _lexer = ahead;
        _lost.merge(lost);
        replace(from(kind, _lexer), "Group {" + lineEndsOf(from(kind, _lexer)) + "}");
        remark(kind, "the node '" + std::string(kind) + "' is unknown and passed over");
        return true;
    }

    /// To behind the bracket that matches the one before; collects the names that are defined on the way.
    /// False where there is none; what stands open there is not looked for again, or a text of opening
    /// brackets would take the square of its length.
    bool skipToClose(VrmlLexer& lexer, std::set<std::string_view>& names)
    {
        std::vector<std::pair<char, std::size_t>> open{{'{', lexer.position()}};
        while (!open.empty()) {
            const VrmlLexer::Token token = lexer.next();
            const bool isMismatch =
                token.kind == Kind::Close && (token.text == "}") != (open.back().first == '{');
            if (token.kind == Kind::End || isMismatch) {
                for (const auto& bracket : open)
                    _unmatched.insert(bracket.second);
                return false;
            }
            if (token.kind == Kind::Word && token.text == "DEF")
                names.insert(lexer.nextWord());
            else if (token.kind == Kind::Open)
                open.emplace_back(token.text.front(), lexer.position());
            else if (token.kind == Kind::Close)
                open.pop_back();
        }
        return true;
    }

    void externalPrototype(std::string_view keyword)
    {
        VrmlLexer ahead = _lexer;
        const std::string_view name = ahead.nextWord();
        std::string interface;
        std::vector<std::string> urls;
        if (name.empty() || !readInterface(ahead, interface) || !readUrls(ahead, urls))
            return;
        _prototypes.insert(name);
        const std::string why = _knowledge.whyMissing(urls);
        if (why.empty())
            return;
        _lexer = ahead;
        replace(from(keyword, _lexer),
                "PROTO " + std::string(name) + interface + "{Group{}}" + lineEndsOf(from(keyword, _lexer)));
        remark(keyword, "EXTERNPROTO '" + std::string(name) + "' is left out: " + why);
    }

    /// Reads "[ ... ]" and gives each field a value, which only PROTO wants.
    static bool readInterface(VrmlLexer& lexer, std::string& interface)
    {
        if (lexer.next().text != "[")
            return false;
        interface = " [";
        for (auto token = lexer.next(); token.text != "]"; token = lexer.next()) {
            const std::string_view type = lexer.nextWord();
            const std::string_view name = lexer.nextWord();
            if (token.kind != Kind::Word || type.empty() || name.empty())
                return false;
            interface.append(" ").append(token.text).append(" ").append(type).append(" ").append(name);
            if (token.text == "field" || token.text == "exposedField")
                interface.append(" ").append(valueOf(type));
        }
        interface += " ]";
        return true;
    }

    static bool readUrls(VrmlLexer& lexer, std::vector<std::string>& urls)
    {
        VrmlLexer::Token token = lexer.next();
        const bool isList = token.text == "[";
        if (isList)
            token = lexer.next();
        for (; token.kind == Kind::String; token = lexer.next()) {
            urls.push_back(unquoted(token.text));
            if (!isList)
                return true;
        }
        return isList && token.text == "]";
    }

    const std::string_view _text;
    VrmlLexer _lexer;
    const TextMender::Knowledge& _knowledge;
    MendedText _result;
    std::size_t _copied = 0;  ///< How much of the text is in the result.
    std::size_t _counted = 0; ///< How far line ends are counted.
    std::size_t _line = 1;
    int _depth = 0;
    std::set<std::string_view> _prototypes; ///< Names of those declared so far.
    std::set<std::string_view> _defined;
    std::set<std::size_t> _unmatched; ///< Behind which opening brackets there is no matching one.
    std::set<std::string_view> _lost; ///< Names that were defined in what is passed over.
};

} // namespace

MendedText TextMender::mend(std::string_view text, const Knowledge& knowledge)
{
    return Mender(text, knowledge).run();
}

} // namespace kthost
