#include <kt/ktScript.h>

#include <kt/ktLog.h>

namespace
{

ktScript::Runner scriptRunner = nullptr;

} // namespace

bool ktScript::run(const char* statement)
{
    if (!statement)
        return false;
    if (!scriptRunner) {
        ktLog::warning("no script interpreter to run: %s", statement);
        return false;
    }
    return scriptRunner(statement);
}

void ktScript::setRunner(Runner runner)
{
    scriptRunner = runner;
}
