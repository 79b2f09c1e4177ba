#pragma once

#include "fuzz/Bytes.h"

#include <string>
#include <vector>

namespace kt::fuzz
{

/// A text of VRML97 that the input describes: nodes inside each other, prototypes, routes, references to what
/// is named elsewhere or nowhere, values of the right type and any size. Most of it is well formed, so that
/// it gets to where a text of any bytes does not.
class SceneWriter
{
public:
    /// Takes the input to its end.
    static std::string write(Bytes& bytes);

private:
    explicit SceneWriter(Bytes& bytes) : _bytes(bytes) {}

    struct Prototype
    {
        std::string name;
        char type; ///< Of its field.
    };

    void statement();
    void node(int depth);
    void instance(int depth);
    void fields(const char* description, int depth);
    void value(char type, int depth);
    void list(char type, int depth);
    void number(bool isWhole);
    void numbers(char type);
    void prototype();
    void route();
    void word(const std::string& text) { _text += text + ' '; }

    /// One that is defined further up or around; now and then any.
    void knownNode();

    Bytes& _bytes;
    std::string _text;
    std::vector<std::string> _nodes;    ///< Names defined in this file, or in this prototype.
    std::vector<Prototype> _prototypes; ///< Of this file.
    bool _isInPrototype = false;
};

} // namespace kt::fuzz
