#include "host/app/LastWords.h"

#include <kt/ktFailures.h>

#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <thread>
#include <utility>

namespace kthost
{
namespace
{

const char* const noPlace = "an exception that nobody catches";

/// In seconds: what is at fault may keep the rescue from coming to its end.
constexpr unsigned int longestRescue = 5;

std::string place = noPlace;
int placeStatus = static_cast<int>(ExitStatus::Broken);
int finalStatus = 0;
std::thread::id mainThread;
LastWords::Rescue rescuer;

/// The thread that is saying its last words, and what the program then ends with.
std::atomic<std::thread::id> saying;
std::atomic<int> endStatus{0};

[[noreturn]] void endTheLine(int)
{
    const char end = '\n';
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, &end, 1);
    std::_Exit(endStatus);
}

/// Where so much is wrong already, a rescue may crash or hang. Then it is the end all the same.
std::string carefullyRescued()
{
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGALRM})
        std::signal(signal, endTheLine);
    alarm(longestRescue);
    return LastWords::rescued();
}

[[noreturn]] void sayAndEnd()
{
    const std::string why = std::current_exception() ? ktFailures::present() : "the program was told to end";
    LastWords::end(HostError(static_cast<ExitStatus>(placeStatus), place, why));
}

} // namespace

void LastWords::prepare()
{
    mainThread = std::this_thread::get_id();
    std::set_terminate(sayAndEnd);
}

void LastWords::end(const HostError& error)
{
    const std::thread::id present = std::this_thread::get_id();
    std::thread::id nobody;
    if (!saying.compare_exchange_strong(nobody, present)) {
        if (saying.load() == present)
            endTheLine(0); // it is the rescue that failed
        while (true)
            pause(); // the other thread's words come first
    }
    endStatus = static_cast<int>(error.status());
    std::fprintf(stderr, "kthost: %s", error.what());
    std::fflush(stderr);
    if (present == mainThread)
        std::fprintf(stderr, "%s", ktFailures::inOneLine(carefullyRescued()).c_str());
    std::fprintf(stderr, "\n");
    std::fflush(stdout);
    std::_Exit(endStatus); // what is at fault is still there: nothing of it is touched again
}

void LastWords::setStatus(int status)
{
    finalStatus = status;
}

int LastWords::status()
{
    return finalStatus;
}

LastWords::Rescuer::Rescuer(Rescue rescue)
{
    rescuer = std::move(rescue);
}

LastWords::Rescuer::~Rescuer()
{
    rescuer = nullptr;
}

std::string LastWords::rescued()
{
    std::string words;
    std::string why;
    if (rescuer && ktFailures::threw([&] { words = rescuer(); }, why))
        words = "what was not saved is lost: " + why;
    return words.empty() ? std::string() : "; " + words;
}

LastWords::While::While(std::string what, int status)
{
    place = std::move(what);
    placeStatus = status;
}

LastWords::While::~While()
{
    place = noPlace;
    placeStatus = static_cast<int>(ExitStatus::Broken);
}

} // namespace kthost
