// kthost-scene-check: reads scene files for SceneGuard, each in a process that may fail.
//   kthost-scene-check SECONDS MEGABYTES BRACKETS WORD-BYTES
// Standard input is a socket of sequenced packets: each packet in is a path, each packet out a dot and the
// verdict.
#include "host/vrml/CoinLibrary.h"
#include "host/vrml/SceneReader.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <sstream>
#include <string>

namespace
{

using namespace kthost;

constexpr int channel = STDIN_FILENO;

/// How a reading ended, as the exit status of its process; apart from those that others use.
enum Ending { Survived = 80, StackIsFull, MemoryIsFull };

/// Half of what the host has: it is deeper in its own calls when it reads, and its drawing goes as deep
/// again.
constexpr rlim_t stackBytes = 4U << 20U;

std::uintptr_t stackTop = 0;

/// The reader's stack is full where the address that failed is about at its end.
void onSegmentationFault(int signal, siginfo_t* info, void* /*context*/)
{
    const auto used = stackTop - reinterpret_cast<std::uintptr_t>(info->si_addr);
    if (used > stackBytes / 2 && used < stackBytes * 2)
        _exit(StackIsFull);
    std::signal(signal, SIG_DFL);
    raise(signal);
}

void watchStack()
{
    static std::array<char, 65536> signalStack;
    stack_t stack{};
    stackTop = reinterpret_cast<std::uintptr_t>(&stack);
    stack.ss_sp = signalStack.data();
    stack.ss_size = signalStack.size();
    sigaltstack(&stack, nullptr);
    struct sigaction action = {};
    action.sa_sigaction = onSegmentationFault;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigaction(SIGSEGV, &action, nullptr);
}

void setLimit(__rlimit_resource_t what, rlim_t value)
{
    rlimit limit{};
    getrlimit(what, &limit);
    limit.rlim_cur = std::min(value, limit.rlim_max);
    setrlimit(what, &limit);
}

void limitThisProcess(const ReadLimits& limits)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    setLimit(RLIMIT_CORE, 0);
    setLimit(RLIMIT_STACK, stackBytes);
#ifndef __SANITIZE_ADDRESS__ // which reserves terabytes of addresses
    setLimit(RLIMIT_AS, static_cast<rlim_t>(limits.megabytes) << 20U);
#endif
    std::set_new_handler([] { _exit(MemoryIsFull); });
    double whole = 0.0;
    itimerval timer{};
    timer.it_value.tv_usec = static_cast<suseconds_t>(std::modf(limits.seconds, &whole) * 1e6);
    timer.it_value.tv_sec = static_cast<time_t>(whole);
    std::signal(SIGALRM, SIG_DFL);
    setitimer(ITIMER_REAL, &timer, nullptr);
    watchStack();
}

[[noreturn]] void readAndEnd(const std::string& path, const ReadLimits& limits)
{
    limitThisProcess(limits);
    SceneReader::readSkeleton(path, limits);
    _exit(Survived);
}

std::string number(double value)
{
    std::ostringstream text;
    text << value;
    return text.str();
}

std::string verdictOf(int status, const ReadLimits& limits)
{
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM)
        return "the reader takes longer than " + number(limits.seconds) + " s for it";
    if (WIFEXITED(status) && WEXITSTATUS(status) == MemoryIsFull)
        return "the reader needs more than " + std::to_string(limits.megabytes) + " megabytes for it";
    if (WIFEXITED(status) && WEXITSTATUS(status) == StackIsFull)
        return "it is nested too deep for the reader, or without end";
    if (WIFEXITED(status) && WEXITSTATUS(status) == Survived)
        return {};
    return "the reader breaks down over it";
}

std::string check(const std::string& path, const ReadLimits& limits)
{
    const pid_t reader = fork();
    if (reader < 0)
        return "there is no process left to check it";
    if (reader == 0)
        readAndEnd(path, limits);
    int status = 0;
    while (waitpid(reader, &status, 0) < 0 && errno == EINTR) {
    }
    return verdictOf(status, limits);
}

} // namespace

int main(int argc, char** argv)
{
    ReadLimits limits;
    if (argc != 5)
        return 2;
    limits.seconds = std::strtod(argv[1], nullptr);
    limits.megabytes = std::strtoul(argv[2], nullptr, 10);
    limits.brackets = std::strtoul(argv[3], nullptr, 10);
    limits.wordBytes = std::strtoul(argv[4], nullptr, 10);
    // Interrupts at the terminal are for the host, whose end is ours.
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    CoinLibrary::init();
    std::string path(PATH_MAX, '\0');
    for (;;) {
        const ssize_t length = recv(channel, path.data(), path.size(), 0);
        if (length < 0 && errno == EINTR)
            continue;
        if (length <= 0)
            return 0;
        const std::string answer = "." + check(path.substr(0, static_cast<std::size_t>(length)), limits);
        if (send(channel, answer.data(), answer.size(), MSG_NOSIGNAL) < 0)
            return 0;
    }
}
