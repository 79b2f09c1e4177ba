#include "host/vrml/SceneGuard.h"

#include "host/vrml/CheckChannel.h"
#include "host/vrml/CheckProgress.h"

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
#include <sstream>
#include <utility>
#include <vector>

namespace kthost
{
namespace
{

/// What the program may need beyond its own limit to tell that it was reached.
constexpr double graceSeconds = 5.0;

/// How far the check is to be ahead before a host that had to wait goes on: each wait costs more than reading
/// a few lines.
constexpr std::uint64_t headStart = 2048;

/// Above the descriptors that CheckChannel names.
constexpr int firstHigh = 10;

std::string notRunning(int error)
{
    return std::string("the program that checks scene files does not run: ") + std::strerror(error);
}

/// Spawns the program with its ends of what connects it to the guard; it has no output.
int spawn(const std::string& program, const ReadLimits& limits, int socket, int progress, pid_t& process)
{
    const std::vector<std::string> told = limits.words();
    std::vector<const char*> words{program.c_str()};
    for (const std::string& word : told)
        words.push_back(word.c_str());
    words.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    // Out of the way of the program's own, which they may be in a host that was started without these.
    const int highSocket = fcntl(socket, F_DUPFD_CLOEXEC, firstHigh);
    const int highProgress = fcntl(progress, F_DUPFD_CLOEXEC, firstHigh);
    posix_spawn_file_actions_adddup2(&actions, highSocket, CheckChannel::socket);
    posix_spawn_file_actions_adddup2(&actions, highProgress, CheckChannel::progress);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const int error = posix_spawn(&process, program.c_str(), &actions, nullptr,
                                  const_cast<char* const*>(words.data()), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(highSocket);
    close(highProgress);
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
    // Fresh memory, since a program that was killed may still have a process that writes to the old one.
    _progress = std::make_unique<CheckProgress>();
    std::array<int, 2> ends{};
    if (_progress->failed() || socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        _problem = notRunning(errno);
        return;
    }
    const int error = spawn(_program, _limits, ends[1], _progress->descriptor(), _process);
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

bool SceneGuard::send(const std::string& packet) const
{
    return _socket >= 0 &&
           ::send(_socket, packet.data(), packet.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(packet.size());
}

void SceneGuard::check(const std::string& path)
{
    const auto handOver = [&] {
        if (!_progress->failed())
            _progress->reset();
        return send(std::to_string(++_number) + " " + path);
    };
    if (_isChecking || !handOver()) {
        // It ended since the last file, by whatever hand, or nobody waited for its answer.
        stop();
        start();
        _isChecking = handOver();
    } else {
        _isChecking = true;
    }
    _passed = 0;
    _found.clear();
    _verdict.clear();
    if (!_isChecking)
        _verdict = _problem.empty() ? notRunning(EPIPE) : _problem;
}

void SceneGuard::receive()
{
    std::array<char, 512> buffer{};
    ssize_t length = 0;
    if (waitForAnswer(_socket, _limits.clockSeconds() + graceSeconds))
        length = recv(_socket, buffer.data(), buffer.size(), 0);
    if (length <= 0) {
        _isChecking = false;
        stop();
        start();
        _verdict = "the reader does not come back from it";
        return;
    }
    take({buffer.data(), static_cast<std::size_t>(length)});
}

void SceneGuard::take(const std::string& packet)
{
    std::istringstream words(packet.substr(1));
    std::uint64_t number = 0;
    if (packet[0] == CheckChannel::news || !(words >> number) || number != _number)
        return; // or of a file before
    if (packet[0] == CheckChannel::verdict) {
        _isChecking = false;
        _verdict = packet.substr(packet.find(' ') + 1);
        return;
    }
    FoundFile file;
    if (words >> file.path >> file.bytes)
        _found.push_back(file);
}

SceneGuard::Found SceneGuard::found(std::size_t look, const FoundFile& file)
{
    while (_isChecking && _found.size() <= look)
        receive();
    if (_found.size() <= look || _found[look].path != file.path)
        return Found::Nothing;
    if (_found[look].bytes == file.bytes)
        return Found::Same;
    return _found[look].bytes == 0 ? Found::Nothing : Found::Other;
}

SceneGuard::Found SceneGuard::found(const FoundFile& file)
{
    Found best = Found::Nothing;
    for (std::size_t look = 0; best != Found::Same; ++look) {
        const Found there = found(look, file);
        if (_found.size() <= look)
            break;
        best = there == Found::Nothing ? best : there;
    }
    return best;
}

bool SceneGuard::letsPass(std::uint64_t place)
{
    const std::uint64_t awaited = std::min(place + headStart, end - 1);
    while (_isChecking && _passed <= place) {
        _progress->await(awaited);
        _passed = _progress->told();
        if (_passed <= place)
            receive();
    }
    return _isChecking || _verdict.empty();
}

const std::string& SceneGuard::verdict()
{
    while (_isChecking)
        receive();
    return _verdict;
}

} // namespace kthost
