#include "host/vrml/SceneGuard.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>
#include <vector>

namespace kthost
{
namespace
{

/// What the program may need beyond its own limit to tell that it was reached.
constexpr double graceSeconds = 5.0;

/// Where the program has its end of the socket.
constexpr int programEnd = STDIN_FILENO;

std::string notRunning(int error)
{
    return std::string("the program that checks scene files does not run: ") + std::strerror(error);
}

/// Spawns the program with the socket as its standard input; it has no output.
int spawn(const std::string& program, const ReadLimits& limits, int socket, pid_t& process)
{
    const std::string seconds = std::to_string(limits.seconds);
    const std::string megabytes = std::to_string(limits.megabytes);
    const std::string brackets = std::to_string(limits.brackets);
    const std::string wordBytes = std::to_string(limits.wordBytes);
    std::vector<const char*> words{program.c_str(),  seconds.c_str(),   megabytes.c_str(),
                                   brackets.c_str(), wordBytes.c_str(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, socket, programEnd);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const int error = posix_spawn(&process, program.c_str(), &actions, nullptr,
                                  const_cast<char* const*>(words.data()), environ);
    posix_spawn_file_actions_destroy(&actions);
    return error;
}

bool waitForAnswer(int socket, double seconds)
{
    pollfd answer{socket, POLLIN, 0};
    int ready = 0;
    do {
        ready = poll(&answer, 1, static_cast<int>(seconds * 1000.0));
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

} // namespace

SceneGuard::SceneGuard(std::string program, const ReadLimits& limits)
    : _program(std::move(program)), _limits(limits)
{
    start();
}

SceneGuard::~SceneGuard()
{
    stop();
}

void SceneGuard::start()
{
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        _problem = notRunning(errno);
        return;
    }
    const int error = spawn(_program, _limits, ends[1], _process);
    close(ends[1]);
    _socket = ends[0];
    _problem.clear();
    if (error != 0) {
        _problem = notRunning(error);
        _process = -1;
        stop();
    }
}

void SceneGuard::stop()
{
    if (_socket >= 0)
        close(_socket);
    _socket = -1;
    if (_process > 0) {
        // It may be in the middle of a file.
        kill(_process, SIGKILL);
        while (waitpid(_process, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    _process = -1;
}

bool SceneGuard::send(const std::string& path) const
{
    return _socket >= 0 &&
           ::send(_socket, path.data(), path.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(path.size());
}

void SceneGuard::check(const std::string& path)
{
    _isSent = send(path);
    if (_isSent)
        return;
    // It ended since the last file, by whatever hand.
    stop();
    start();
    _isSent = send(path);
}

std::string SceneGuard::verdict()
{
    if (!std::exchange(_isSent, false))
        return _problem.empty() ? notRunning(EPIPE) : _problem;
    std::array<char, 512> answer{};
    ssize_t length = 0;
    if (waitForAnswer(_socket, _limits.seconds + graceSeconds))
        length = recv(_socket, answer.data(), answer.size(), 0);
    if (length > 0) // the first character only makes sure that there is one
        return std::string(answer.data() + 1, static_cast<std::size_t>(length) - 1);
    stop();
    start();
    return "the reader does not come back from it";
}

} // namespace kthost
