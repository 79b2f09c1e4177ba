#pragma once

#include "host/app/CommandLine.h"

#include <QObject>

#include <functional>
#include <memory>
#include <string>

namespace kthost
{

class ActionRunner;
class Interpreter;
class LiveClock;
class Session;

/// A script asked the program to end.
struct ScriptExit
{
    int status;
};

/// Scripts in the host. The interpreter is started when the first one is run, so that whoever uses none pays
/// for none; statements of plug-ins (ktScript) are such a use too. In a build without scripting every use
/// fails with a line that says so. GUI thread; there is one at a time, to be destroyed before plug-ins are
/// unloaded.
class Scripting
{
public:
    /// All must outlive it. `clock` is the running clock of a window, or null where only scripts and actions
    /// let time pass; with one, the window stays alive while a script runs.
    Scripting(Session& session, ActionRunner& runner, LiveClock* clock = nullptr);
    ~Scripting();

    Scripting(const Scripting&) = delete;
    Scripting& operator=(const Scripting&) = delete;

    /// This build has scripting.
    static bool isBuilt();

    /// Runs the file. Throws ScriptExit where it asks for the end of the program, HostError where it cannot
    /// be read (BadFile), fails (ScriptFailed) or is interrupted (Interrupted).
    void run(const ScriptAction& action);

    /// Started where it was not yet, and with the modules of all plug-ins that are loaded by now. Throws
    /// HostError (ScriptFailed) where that fails.
    Interpreter& interpreter();

    bool isRunning() const;

    /// Gets what scripts print, piece by piece; empty for nobody.
    void setListener(std::function<void(const std::string& text, bool isError)> listener);

    /// Ends the running script with KeyboardInterrupt; does nothing without one.
    void interrupt();

private:
    class Services;

    void startInterpreter();

    std::unique_ptr<Services> _services;
    QMetaObject::Connection _closed;           ///< Closing the window ends a script that runs in it.
    std::unique_ptr<Interpreter> _interpreter; ///< Made when it is first asked for.
    std::function<void(const std::string&, bool)> _listener;
};

} // namespace kthost
