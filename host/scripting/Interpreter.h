#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <string>
#include <vector>

namespace kthost
{

class ScriptHost;

/// How a script or a statement ended.
struct ScriptOutcome
{
    enum Kind {
        Done,
        Failed,      ///< It raised; the traceback is in the log.
        Interrupted, ///< By Ctrl-C or interrupt(); the traceback is in the log.
        Exit         ///< It asked the program to end, with `status`.
    };

    Kind kind = Done;
    int status = 0;
    std::string why; ///< Of Failed and Interrupted: the exception in one line.
};

/// The Python 2.7 interpreter of the process: from the construction of the first one on it is there until the
/// process ends. Scripts and statements share one namespace, `__main__`; what they print goes to the
/// program's own streams and, line by line, to the log. GUI thread, one at a time.
class Interpreter
{
public:
    /// What a script printed, piece by piece.
    using Listener = std::function<void(const std::string& text, bool isError)>;

    /// Starts Python, whose standard library is in lib/python2.7 of the folder `home`, and runs the
    /// statements of ktScript from now on. `host` must outlive the interpreter. Throws std::runtime_error
    /// where there is no such library.
    Interpreter(ScriptHost& host, const QString& home);

    /// Tells the callbacks of ktPythonInit, runs what scripts left for the end (atexit) and forgets their
    /// names. Python itself stays, as Boost.Python asks for. To be destroyed before plug-ins are unloaded.
    ~Interpreter();

    Interpreter(const Interpreter&) = delete;
    Interpreter& operator=(const Interpreter&) = delete;

    /// Brings the modules of plug-ins that were loaded since the last time into the interpreter; to be called
    /// before each use. Statements of plug-ins do so themselves.
    void announce();

    /// Runs a file as Python's own command line does: sys.argv holds the file and `arguments`, sys.path its
    /// folder,
    /// `__name__` is "__main__". `file` must be readable.
    ScriptOutcome runFile(const QString& file, const std::vector<std::string>& arguments);

    /// Runs one or more whole statements.
    ScriptOutcome runStatement(const char* statement);

    /// Runs what was typed, and prints the value of an expression. False where it goes on in further lines:
    /// nothing has run then.
    bool runTyped(const std::string& text, ScriptOutcome& outcome);

    /// The names of the namespace, or of what stands before the last dot, that begin with `text`; in order.
    QStringList completions(const QString& text);

    /// A script is running; further ones can only run inside of it.
    bool isRunning() const;

    /// Raises KeyboardInterrupt in the running script, as soon as it is back from a call.
    void interrupt();

    /// Called some times a second while a script runs, inside of it; empty for nobody.
    void setIdleCall(std::function<void()> call);

    void setListener(Listener listener);
};

} // namespace kthost
