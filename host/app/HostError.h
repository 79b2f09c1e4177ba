#pragma once

#include <kt/ktFailures.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace kthost
{

/// How the program ends.
enum class ExitStatus {
    Done = 0,
    BadArguments = 2,
    BadFile = 3, ///< A file could not be read or written.
    NoPicture = 4,
    ScriptFailed = 5,
    NoPlugin = 6,     ///< A plug-in that was asked for by its file could not be loaded.
    Broken = 70,      ///< An exception that nobody expects and nothing catches.
    Interrupted = 130 ///< A script, by Ctrl-C: as shells say it.
};

/// What the user asked for could not be done: what, why, and the status that the program ends with for it.
/// One line, whatever a file's name holds: control characters become blanks.
class HostError : public std::runtime_error
{
public:
    HostError(ExitStatus status, const std::string& what, const std::string& why)
        : HostError(status, what + ": " + why)
    {
    }

    /// `line` says both already.
    HostError(ExitStatus status, std::string line)
        : std::runtime_error(ktFailures::inOneLine(std::move(line))), _status(status)
    {
    }

    ExitStatus status() const { return _status; }

private:
    ExitStatus _status;
};

} // namespace kthost
