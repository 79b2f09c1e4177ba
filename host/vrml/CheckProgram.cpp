#include "host/vrml/CheckProgram.h"

#include "host/vrml/CheckChannel.h"
#include "host/vrml/ReadLimits.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <utility>

namespace kthost
{
namespace
{

/// Above the descriptors that CheckChannel names.
constexpr int firstHigh = 10;

/// Spawns the program with its ends of what connects it to us; it has no output.
int spawn(const std::string& program, const std::vector<std::string>& told, int socket, int memory,
          pid_t& process)
{
    std::vector<const char*> words{program.c_str()};
    for (const std::string& word : told)
        words.push_back(word.c_str());
    words.push_back(nullptr);
    // Out of the way of the program's own, which they may be in a host that was started without these.
    const int highSocket = fcntl(socket, F_DUPFD_CLOEXEC, firstHigh);
    const int highMemory = fcntl(memory, F_DUPFD_CLOEXEC, firstHigh);
    int error = highSocket < 0 || highMemory < 0 ? errno : 0;
    if (error == 0) {
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, highSocket, CheckChannel::socket);
        posix_spawn_file_actions_adddup2(&actions, highMemory, CheckChannel::memory);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        error = posix_spawn(&process, program.c_str(), &actions, nullptr,
                            const_cast<char* const*>(words.data()), environ);
        posix_spawn_file_actions_destroy(&actions);
    }
    close(highSocket);
    close(highMemory);
    return error;
}

bool waitForAnswer(int socket, double seconds)
{
    pollfd answer{socket, POLLIN, 0};
    constexpr double longest = 1e9; // milliseconds, more than a week
    int ready = 0;
    do {
        ready = poll(&answer, 1, static_cast<int>(std::min(seconds * 1000.0, longest)));
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

} // namespace

CheckProgram::CheckProgram(std::string program, const ReadLimits& limits)
    : _program(std::move(program)), _words(limits.words())
{
}

CheckProgram::~CheckProgram()
{
    stop();
}

std::string CheckProgram::notRunning(int error) const
{
    return "the program " + std::filesystem::path(_program).filename().string() +
           " does not run: " + std::strerror(error);
}

void CheckProgram::start(int memory)
{
    stop();
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        _problem = notRunning(errno);
        return;
    }
    const int error = spawn(_program, _words, ends[1], memory, _process);
    close(ends[1]);
    _socket = ends[0];
    _problem.clear();
    if (error != 0) {
        _problem = notRunning(error);
        _process = -1;
        stop();
    }
}

int CheckProgram::stop()
{
    int status = 0;
    if (_socket >= 0)
        close(_socket);
    _socket = -1;
    if (_process > 0) {
        // It may be in the middle of a file. One that has ended keeps its status.
        kill(_process, SIGKILL);
        while (waitpid(_process, &status, 0) < 0 && errno == EINTR) {
        }
    }
    _process = -1;
    return status;
}

bool CheckProgram::send(const std::string& packet) const
{
    return _socket >= 0 && CheckChannel::send(_socket, packet);
}

std::string CheckProgram::receive(double seconds) const
{
    return _socket >= 0 && waitForAnswer(_socket, seconds) ? CheckChannel::receive(_socket) : std::string();
}

} // namespace kthost
