#include "host/vrml/CheckedReading.h"

#include "host/vrml/CheckChannel.h"

#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <cstddef>
#include <new>
#include <sstream>

// The sanitizer reserves terabytes of addresses, which no limit may keep it from. Its two compilers say it by
// different words.
#if defined(__SANITIZE_ADDRESS__)
#define KT_SANITIZES_ADDRESSES
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KT_SANITIZES_ADDRESSES
#endif
#endif

namespace kthost
{
namespace
{

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

void limitThisProcess(const ReadLimits& limits)
{
    stackBytes = safeStack();
    setLimit(RLIMIT_CORE, 0);
    setLimit(RLIMIT_STACK, stackBytes);
#ifndef KT_SANITIZES_ADDRESSES
    setLimit(RLIMIT_AS, static_cast<rlim_t>(limits.megabytes) << 20U);
#endif
    std::set_new_handler([] { _exit(MemoryIsFull); });
    std::signal(SIGPROF, SIG_DFL);
    std::signal(SIGALRM, SIG_DFL);
    startTimer(ITIMER_PROF, limits.seconds);
    startTimer(ITIMER_REAL, limits.clockSeconds());
    watchStack();
}

/// The host follows what it is told of, so that it must not be led to where memory runs out.
bool needsLittle(const ReadLimits& limits)
{
    rusage usage{};
    constexpr std::size_t part = 4;
    constexpr std::size_t kilobytes = 1024;
    return getrusage(RUSAGE_SELF, &usage) == 0 &&
           static_cast<std::size_t>(usage.ru_maxrss) < limits.megabytes * kilobytes / part;
}

std::string number(double value)
{
    std::ostringstream text;
    text << value;
    return text.str();
}

} // namespace

void CheckedReading::run(const ReadLimits& limits, const std::function<void()>& read)
{
    limitThisProcess(limits);
    read();
    const itimerval none{};
    setitimer(ITIMER_REAL, &none, nullptr);
    setitimer(ITIMER_PROF, &none, nullptr);
}

void CheckedReading::read(const std::string& path, const ReadLimits& limits, const ReadingFollower& follower)
{
    // Each look of another process at the place costs both some time, and so does a look at the memory.
    constexpr std::uint64_t stride = 1024;
    std::uint64_t next = 0;
    bool isFollowed = true;
    const auto pass = [&](std::uint64_t place) {
        if (place < next)
            return;
        next = place + stride;
        isFollowed = isFollowed && needsLittle(limits);
        if (isFollowed)
            follower.passed(place);
    };
    run(limits, [&] { SceneReader::readSkeleton(path, limits, {pass, follower.found}); });
}

std::string CheckedReading::reasonOf(int status, const ReadLimits& limits)
{
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGPROF)
        return "the reader takes longer than " + number(limits.seconds) + " s for it";
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM)
        return "its check was not done after " + number(limits.clockSeconds()) + " s";
    if (WIFEXITED(status) && WEXITSTATUS(status) == MemoryIsFull)
        return "the reader needs more than " + std::to_string(limits.megabytes) + " megabytes for it";
    if (WIFEXITED(status) && WEXITSTATUS(status) == StackIsFull)
        return "it is nested too deep for the reader, or without end";
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
        return CheckChannel::noAnswer;
    return "the reader breaks down over it";
}

} // namespace kthost
