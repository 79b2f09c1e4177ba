#pragma once

#include <functional>
#include <string>

namespace kthost
{

/// Puts streams of the host in the place of Python's sys.stdout and sys.stderr. What is printed goes at once
/// to the program's standard output, in order with what the host prints there itself; errors go to the log
/// line by line, which shows them on the standard error stream. Each line of both is in the log.
/// Scripts may print on threads of their own; the log and the listener hear of it on the GUI thread, soon,
/// and in the order printed.
class ScriptStreams
{
public:
    using Listener = std::function<void(const std::string& text, bool isError)>;

    /// Once a process, on the GUI thread; the interpreter must be ready.
    static void install();

    /// Takes what is left of unended lines to the log.
    static void finishLines();

    /// Gets each piece of text as it is printed, on the GUI thread; empty for nobody.
    static void setListener(Listener listener);
};

} // namespace kthost
