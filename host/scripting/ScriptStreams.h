#pragma once

#include <functional>
#include <string>

namespace kthost
{

/// Puts streams of the host in the place of Python's sys.stdout and sys.stderr. What is printed goes at once
/// to the program's standard output, in order with what the host prints there itself; errors go to the log
/// line by line, which shows them on the standard error stream. Each line of both is in the log.
class ScriptStreams
{
public:
    using Listener = std::function<void(const std::string& text, bool isError)>;

    /// Once a process; the interpreter must be ready.
    static void install();

    /// Takes what is left of unended lines to the log.
    static void finishLines();

    /// Gets each piece of text as it is printed; empty for nobody.
    static void setListener(Listener listener);
};

} // namespace kthost
