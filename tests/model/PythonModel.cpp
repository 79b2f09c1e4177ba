#include "tests/model/PythonModel.h"

#include <cstdio>

namespace kt::test
{
namespace
{

struct Driver
{
    const char* name;
    SceneModel::Operation drive;
};

const Driver drivers[] = {{"getAnimations", nullptr},
                          {"startAnimation", &SceneModel::start},
                          {"stopAnimation", &SceneModel::stop},
                          {"pauseAnimation", &SceneModel::stop},
                          {"continueAnimation", &SceneModel::resume},
                          {"resetAnimation", &SceneModel::reset},
                          {"toggleAnimation", &SceneModel::toggle}};

/// The types of the arguments that a call has by their places.
std::string typesOf(Arguments arguments)
{
    switch (arguments) {
    case Arguments::None:
        return "NoneType";
    case Arguments::Number:
        return "int";
    case Arguments::Unicode:
        return "unicode";
    case Arguments::List:
        return "list";
    case Arguments::TwoNames:
        return "str, str";
    case Arguments::Missing:
    case Arguments::Keyword:
    case Arguments::OtherKeyword:
        return "";
    default:
        return "str";
    }
}

/// What Boost.Python says of arguments that do not fit.
std::string mismatch(const ScriptCall& call)
{
    const std::string function = drivers[call.function].name;
    const std::string takes = call.function == ScriptCall::Get ? "void" : "char const* name";
    return "Boost.Python.ArgumentError: Python argument types in\n    ktAnimation." + function + '(' +
           typesOf(call.arguments) + ")\ndid not match C++ signature:\n    " + function + '(' + takes + ")";
}

} // namespace

std::string ScriptCall::source() const
{
    const std::string text = pythonText(name);
    const std::string all[] = {text,
                               "name=" + text,
                               pythonText(name + '\0' + 'x'),
                               "None",
                               "",
                               "7",
                               "u'Door'",
                               '[' + text + ']',
                               text + ", " + text,
                               "title=" + text,
                               text + ", name=" + text};
    return std::string(isPrefixed ? "ktAnimation." : "") + drivers[function].name + '(' +
           all[static_cast<int>(arguments)] + ')';
}

std::string pythonText(const std::string& bytes)
{
    const bool hasApostrophe = bytes.find('\'') != std::string::npos;
    const char quote = hasApostrophe && bytes.find('"') == std::string::npos ? '"' : '\'';
    std::string text(1, quote);
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        char escaped[5] = {};
        if (byte == quote || byte == '\\')
            text += std::string("\\") + byte;
        else if (byte == '\n')
            text += "\\n";
        else if (code < 0x20 || code >= 0x7F)
            text += (std::snprintf(escaped, sizeof(escaped), "\\x%02x", code), escaped);
        else
            text += byte;
    }
    return text + quote;
}

std::string pythonText(const std::vector<std::string>& list)
{
    std::string text;
    for (const std::string& item : list)
        text += (text.empty() ? "" : ", ") + pythonText(item);
    return '[' + text + ']';
}

std::string call(const ScriptCall& call, HostModel& host)
{
    if (call.function == ScriptCall::Get)
        return call.arguments == Arguments::Missing ? pythonText(host.module.latin1Names()) : mismatch(call);
    switch (call.arguments) {
    case Arguments::Name:
    case Arguments::Keyword:
    case Arguments::CutName:
        (host.scene.*drivers[call.function].drive)(call.name);
        return "None";
    case Arguments::None:
        return "exceptions.TypeError: the name of an animation must be a string, not None";
    default:
        return mismatch(call);
    }
}

} // namespace kt::test
