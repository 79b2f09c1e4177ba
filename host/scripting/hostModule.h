#pragma once

namespace kthost
{

class ScriptHost;

/// Makes the Python module ktHost; once a process, when the interpreter is ready.
void makeHostModule();

/// Who does what scripts ask for; null for nobody: then each function raises.
void setScriptHost(ScriptHost* host);

} // namespace kthost
