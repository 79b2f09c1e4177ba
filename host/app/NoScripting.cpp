// Scripting in a build that has none.
#include "host/app/ActionRunner.h"
#include "host/app/HostError.h"
#include "host/app/Scripting.h"

#include <QFile>

namespace kthost
{

class Interpreter
{
};

class Scripting::Services
{
};

Scripting::Scripting(Session&, ActionRunner& runner, LiveClock*)
{
    runner.setScriptRunner([this](const ScriptAction& action) { run(action); });
}

Scripting::~Scripting() = default;

bool Scripting::isBuilt()
{
    return false;
}

void Scripting::run(const ScriptAction& action)
{
    throw HostError(ExitStatus::ScriptFailed, QFile::encodeName(action.file).toStdString(),
                    "this kthost was built without scripting");
}

Interpreter& Scripting::interpreter()
{
    throw HostError(ExitStatus::ScriptFailed, "scripts: this kthost was built without scripting");
}

bool Scripting::isRunning() const
{
    return false;
}

void Scripting::setListener(std::function<void(const std::string&, bool)>) {}

void Scripting::interrupt() {}

} // namespace kthost
