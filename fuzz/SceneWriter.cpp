#include "fuzz/SceneWriter.h"

#include "fuzz/SceneWords.h"

#include <cctype>
#include <cstring>
#include <utility>

namespace kt::fuzz
{
namespace
{

constexpr char fileEnd = '\x1E'; // parts the two files
constexpr int deepest = 12;
constexpr std::size_t longest = 1 << 16;

} // namespace

std::string SceneWriter::write(Bytes& bytes)
{
    SceneWriter writer(bytes);
    while (!bytes.isEmpty() && writer._text.size() < longest)
        writer.statement();
    return writer._text;
}

void SceneWriter::knownNode()
{
    const std::uint8_t choice = _bytes.byte();
    if (_nodes.empty() || choice >= 250)
        word("N" + std::to_string(choice % 8));
    else
        word(_nodes[choice % _nodes.size()]);
}

void SceneWriter::statement()
{
    const std::size_t choice = _bytes.below(16);
    if (choice < 10) {
        node(0);
    } else if (choice < 13) {
        route();
    } else if (choice < 15) {
        prototype();
    } else if (_text.find(fileEnd) == std::string::npos) {
        // The second file begins, with what the first may ask it for.
        _text = "EXTERNPROTO P9 [ field SFFloat p0 field MFNode p1 ] \"b.wrl#P9\" P9 { }\n" + _text +
                fileEnd + "PROTO P9 [ field SFFloat p0 1 field MFNode p1 [] ] { Group { children IS p1 } }";
        _nodes.clear();
        _prototypes = {{"P9", 'f'}};
    }
    _text += '\n';
}

void SceneWriter::node(int depth)
{
    const std::size_t choice = _bytes.below(10);
    if (choice == 0 && !_nodes.empty()) {
        word("USE");
        knownNode();
        return;
    }
    if (choice < 6) {
        word("DEF");
        _nodes.push_back("N" + std::to_string(_bytes.below(6)));
        word(_nodes.back());
    }
    if (choice == 9 && !_prototypes.empty()) {
        instance(depth);
        return;
    }
    const Kind& kind = kinds[_bytes.below(std::size(kinds))];
    word(kind.name);
    word("{");
    fields(kind.fields, depth);
    if (std::strcmp(kind.name, "Script") == 0) {
        word("eventIn SFTime p1 field SFNode p0");
        value('n', depth);
    }
    word("}");
}

void SceneWriter::instance(int depth)
{
    const Prototype& prototype = _prototypes[_bytes.below(_prototypes.size())];
    word(prototype.name);
    word("{");
    if (_bytes.below(2) == 0) {
        word("p0");
        value(prototype.type, depth);
    }
    word("}");
}

void SceneWriter::fields(const char* description, int depth)
{
    // A bit for each, so that the fields that are there do not depend on how many bytes the others took.
    auto present = _bytes.number<std::uint16_t>();
    for (; *description && depth < deepest && _text.size() < longest; present /= 2) {
        const char* const end = std::strchr(description, ' ');
        const std::string field = end ? std::string(description, end) : std::string(description);
        description += field.size() + (end ? 1 : 0);
        if (present % 2 == 0)
            continue;
        word(field.substr(1));
        if (_isInPrototype && _bytes.below(4) == 0)
            word("IS p0");
        else
            value(field.front(), depth);
    }
}

void SceneWriter::value(char type, int depth)
{
    if (std::isupper(static_cast<unsigned char>(type)) != 0) {
        list(type, depth);
        return;
    }
    numbers(type);
    if (type == 'b')
        word(_bytes.below(2) == 0 ? "FALSE" : "TRUE");
    else if (type == 's')
        word('"' + std::string(words[_bytes.below(std::size(words))]) + '"');
    else if (type == 'm')
        word("1 2 3 0xFF0000 0xFF");
    else if (type == 'n' && (depth + 1 >= deepest || _bytes.below(8) == 0))
        word("NULL");
    else if (type == 'n')
        node(depth + 1);
}

void SceneWriter::list(char type, int depth)
{
    std::size_t count = _bytes.below(8);
    if (count == 7 && type != 'M')
        count = _bytes.below(64); // some the check of a scene file leaves out
    word("[");
    for (; count > 0 && _text.size() < longest; --count) {
        if (type == 'M' && depth + 1 < deepest)
            node(depth + 1);
        else if (type != 'M')
            value(static_cast<char>(std::tolower(static_cast<unsigned char>(type))), depth);
    }
    word("]");
}

void SceneWriter::number(bool isWhole)
{
    const std::uint8_t choice = _bytes.byte();
    if (choice < 250)
        word(std::to_string(choice / 8 - 4));
    else if (isWhole)
        word(oddWholes[_bytes.below(std::size(oddWholes))]);
    else
        word(oddNumbers[_bytes.below(std::size(oddNumbers))]);
}

void SceneWriter::numbers(char type)
{
    for (const Types& known : types) {
        for (int i = 0; known.letter == type && i < known.numbers; ++i)
            number(type == 'i');
    }
}

void SceneWriter::prototype()
{
    if (_isInPrototype)
        return;
    const std::vector<std::string> around = std::exchange(_nodes, {});
    const std::string name = "P" + std::to_string(_bytes.below(6));
    word("PROTO");
    word(name);
    const Types& type = types[_bytes.below(std::size(types))];
    word(std::string("[ ") + (_bytes.below(2) == 0 ? "field " : "exposedField ") + type.name + " p0");
    value(type.letter, deepest - 2);
    word("eventIn SFTime p1 ] {");
    _isInPrototype = true;
    for (std::size_t left = _bytes.below(3) + 1; left > 0; --left)
        node(deepest - 4);
    _isInPrototype = false;
    word("}");
    _nodes = around;
    _prototypes.push_back({name, type.letter});
}

void SceneWriter::route()
{
    const Events& out = events[_bytes.below(std::size(events))];
    const Events& in = _bytes.below(8) == 0 ? events[_bytes.below(std::size(events))] : out;
    word("ROUTE");
    knownNode();
    _text.back() = '.';
    word(std::string(out.out) + " TO");
    knownNode();
    _text.back() = '.';
    word(in.in);
}

} // namespace kt::fuzz
