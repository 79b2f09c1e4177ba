#pragma once

#include <functional>

namespace kthost
{

/// For as long as it lives a script runs: Ctrl-C raises KeyboardInterrupt in it, and the idle call is made
/// inside of it some times a second. May be nested; the innermost ones change nothing. Python must be ready.
class RunningScript
{
public:
    RunningScript();
    ~RunningScript();

    RunningScript(const RunningScript&) = delete;
    RunningScript& operator=(const RunningScript&) = delete;

    static bool isAnyRunning();

    /// Raises KeyboardInterrupt in the running script; does nothing without one. Any thread.
    static void interrupt();

    /// Empty for nobody.
    static void setIdleCall(std::function<void()> call);

    /// Python's own signal handling, once its module is there: outside of scripts Ctrl-C ends the program as
    /// ever.
    static void prepare();
};

} // namespace kthost
