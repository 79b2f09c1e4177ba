#pragma once

#include <stdexcept>
#include <string>

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
    Interrupted = 130 ///< A script, by Ctrl-C: as shells say it.
};

/// What the user asked for could not be done: what, why, and the status that the program ends with for it.
class HostError : public std::runtime_error
{
public:
    HostError(ExitStatus status, const std::string& what, const std::string& why)
        : std::runtime_error(what + ": " + why), _status(status)
    {
    }

    /// `line` says both already.
    HostError(ExitStatus status, const std::string& line) : std::runtime_error(line), _status(status) {}

    ExitStatus status() const { return _status; }

private:
    ExitStatus _status;
};

} // namespace kthost
