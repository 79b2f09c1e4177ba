#pragma once

#include "host/vrml/ReadLimits.h"

#include <sys/types.h>

#include <string>

namespace kthost
{

/// Lets a process of its own read a scene file before the host does, since there are files that the reader
/// does not survive. The process has limits on time, memory and stack, and reads the file with all that it
/// refers to, but without its long lists of numbers. It is started once and then serves file after file.
///
/// GUI thread. A guard whose program cannot be run says so in its verdict.
class SceneGuard
{
public:
    /// Starts the program, `kthost-scene-check`, in the background.
    SceneGuard(std::string program, const ReadLimits& limits);

    /// Ends the program.
    ~SceneGuard();
    SceneGuard(const SceneGuard&) = delete;
    SceneGuard& operator=(const SceneGuard&) = delete;

    /// Hands a file over. One at a time: verdict() is to be called before the next.
    void check(const std::string& path);

    /// Waits for the check. Empty where the reader survived, whatever it had to say about the file; otherwise
    /// why the file must not be read, in a few words.
    std::string verdict();

    const ReadLimits& limits() const { return _limits; }

private:
    void start();
    void stop();
    bool send(const std::string& path) const;

    std::string _program;
    ReadLimits _limits;
    pid_t _process = -1;
    int _socket = -1;
    bool _isSent = false;
    std::string _problem; ///< Why the program does not run.
};

} // namespace kthost
