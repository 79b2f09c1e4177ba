#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace kthost
{

struct ReadLimits;

/// One of the programs that CheckChannel speaks of while it runs, and what connects it. It is killed at the
/// end.
class CheckProgram
{
public:
    CheckProgram(std::string program, const ReadLimits& limits);
    ~CheckProgram();
    CheckProgram(const CheckProgram&) = delete;
    CheckProgram& operator=(const CheckProgram&) = delete;

    /// Starts it anew, and lets it have this descriptor of shared memory.
    void start(int memory);

    /// Ends it. Answers with what status it has ended, as waitpid() gives it: by itself, or killed by this.
    int stop();

    /// False where it has ended.
    bool send(const std::string& packet) const;

    /// Waits for a packet. Empty where it ends or has nothing to say for so long.
    std::string receive(double seconds) const;

    /// Why it could not be started, in a few words; empty where it could.
    const std::string& problem() const { return _problem; }

    /// The same for an error of the system.
    std::string notRunning(int error) const;

private:
    std::string _program;
    std::vector<std::string> _words;
    pid_t _process = -1;
    int _socket = -1;
    std::string _problem;
};

} // namespace kthost
