#pragma once

#include "tests/model/HostModel.h"

#include <string>
#include <vector>

namespace kt::test
{

/// What stands between the brackets of a call from a script.
enum class Arguments {
    Name,    ///< startAnimation('Door')
    Keyword, ///< startAnimation(name='Door')
    CutName, ///< startAnimation('Door\x00x')
    None,
    Missing,
    Number,
    Unicode,
    List,
    TwoNames,
    OtherKeyword, ///< startAnimation(title='Door')
    NameTwice,    ///< startAnimation('Door', name='Door')
    Last = NameTwice
};

/// A call of a function of the module "ktAnimation" from a script.
struct ScriptCall
{
    enum Function { Get, Start, Stop, Pause, Continue, Reset, Toggle, LastFunction = Toggle };

    Function function;
    bool isPrefixed; ///< With the name of the module.
    Arguments arguments;
    std::string name; ///< Of the animation.

    /// As the script says it.
    std::string source() const;
};

/// As Python writes values.
std::string pythonText(const std::string& bytes);
std::string pythonText(const std::vector<std::string>& list);

/// Does the call in the model. Answers what it returns as Python writes it, or the exception's type and text.
std::string call(const ScriptCall& call, HostModel& host);

} // namespace kt::test
