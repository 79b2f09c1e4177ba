#include "host/vrml/LimitedRun.h"

#include "host/vrml/CheckChannel.h"

#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <new>
#include <sstream>

namespace kthost
{
namespace
{

// The sanitizer reserves terabytes of addresses, which no limit may keep it from. Its two compilers say it by
// different words.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool isSanitized = true;
#elif defined(__has_feature)
constexpr bool isSanitized = __has_feature(address_sanitizer);
#else
constexpr bool isSanitized = false;
#endif

/// How a reading ended, as the exit status of its process; apart from those that others use.
enum Ending { StackIsFull = 80, MemoryIsFull };

rlim_t stackBytes = 0;
std::uintptr_t stackTop = 0;

rlimit limitOf(__rlimit_resource_t what)
{
    rlimit limit{};
    getrlimit(what, &limit);
    return limit;
}

/// Half of what the host has, whose limit is ours: it is deeper in its own calls when it reads, and its
/// drawing goes as deep again.
rlim_t safeStack()
{
    constexpr rlim_t usual = 8U << 20U; // without a limit the stack ends where something else begins
    const rlim_t ofHost = limitOf(RLIMIT_STACK).rlim_cur;
    return (ofHost == RLIM_INFINITY ? usual : ofHost) / 2;
}

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
    rlimit limit = limitOf(what);
    limit.rlim_cur = std::min(value, limit.rlim_max);
    setrlimit(what, &limit);
}

/// No time at all would be no limit.
void startTimer(__itimer_which_t clock, double seconds)
{
    constexpr long long second = 1000000;
    const long long microseconds = std::max(std::llround(seconds * 1e6), 1LL);
    itimerval timer{};
    timer.it_value.tv_usec = static_cast<suseconds_t>(microseconds % second);
    timer.it_value.tv_sec = static_cast<time_t>(microseconds / second);
    setitimer(clock, &timer, nullptr);
}

/// Once in a process: the host's limit is ours before it, and half of that after it.
bool limitRoom(const ReadLimits& limits)
{
    stackBytes = safeStack();
    setLimit(RLIMIT_CORE, 0);
    setLimit(RLIMIT_STACK, stackBytes);
    if (!isSanitized)
        setLimit(RLIMIT_AS, static_cast<rlim_t>(limits.megabytes) << 20U);
    std::set_new_handler([] { _exit(MemoryIsFull); });
    return true;
}

void limitThisProcess(const ReadLimits& limits)
{
    static const bool isRoomLimited = limitRoom(limits);
    static_cast<void>(isRoomLimited);
    std::signal(SIGPROF, SIG_DFL);
    std::signal(SIGALRM, SIG_DFL);
    startTimer(ITIMER_PROF, limits.seconds);
    startTimer(ITIMER_REAL, limits.clockSeconds());
    watchStack();
}

std::string number(double value)
{
    std::ostringstream text;
    text << value;
    return text.str();
}

} // namespace

void LimitedRun::run(const ReadLimits& limits, const std::function<void()>& read)
{
    limitThisProcess(limits);
    read();
    const itimerval none{};
    setitimer(ITIMER_REAL, &none, nullptr);
    setitimer(ITIMER_PROF, &none, nullptr);
}

std::string LimitedRun::reasonOf(int status, const ReadLimits& limits)
{
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGPROF)
        return "the reader takes longer than " + number(limits.seconds) + " s for it";
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM)
        return "the reader is not done with it after " + number(limits.clockSeconds()) + " s";
    if (WIFEXITED(status) && WEXITSTATUS(status) == MemoryIsFull)
        return "the reader needs more than " + std::to_string(limits.megabytes) + " megabytes for it";
    if (WIFEXITED(status) && WEXITSTATUS(status) == StackIsFull)
        return "it is nested too deep for the reader, or without end";
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
        return CheckChannel::noAnswer;
    return "the reader breaks down over it";
}

} // namespace kthost
