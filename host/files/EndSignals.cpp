#include "host/files/EndSignals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <ctime>

namespace kthost
{
namespace
{

struct Name
{
    int signal;
    const char* text;
};

constexpr Name endSignals[] = {{SIGTERM, "SIGTERM"}, {SIGINT, "SIGINT"}, {SIGHUP, "SIGHUP"}};

/// In place of a number of holds: the program ends, and no more hold is given.
constexpr int ending = -1;

/// In place of a descriptor: there is no hand-over, or one took a signal already.
constexpr int nobody = -1;

/// Added to the number of a signal where a status has to stand for it, as in shells.
constexpr int statusOfSignals = 128;

/// How long an end that is under way may take: so many naps of a hundredth of a second.
constexpr int longestEnd = 200;
constexpr long nap = 10000000; // nanoseconds

std::atomic<int> holds{0};
std::atomic<int> waiting{0};       ///< The signal that came first; 0 for none.
std::atomic<int> receiver{nobody}; ///< Where a hand-over waits for the signal.
std::atomic<bool> isHandedOver{false};

/// Tells that a hand-over took too long. Read by signal handlers only while there is a receiver.
timer_t limit;
itimerspec longestHandOver;

static_assert(std::atomic<int>::is_always_lock_free, "used in signal handlers");

/// No common library uses this one, and alarms are for scripts.
int limitSignal()
{
    return SIGRTMIN + 5;
}

void endBy(int signal)
{
    if (getpid() == 1)
        _exit(statusOfSignals + signal); // the system drops what the first process sends itself
    struct sigaction byDefault = {};
    byDefault.sa_handler = SIG_DFL;
    sigaction(signal, &byDefault, nullptr);
    kill(getpid(), signal);
}

/// Ends the program unless something holds it, or has taken the end over: that will do it then.
void endIfFree()
{
    int none = 0;
    if (waiting != 0 && !isHandedOver && holds.compare_exchange_strong(none, ending))
        endBy(waiting);
}

/// The signal is noted before it is acted on: whoever lets go meanwhile, on another thread, sees it.
void onEndSignal(int signal)
{
    const int errnoBefore = errno;
    const int descriptor = receiver.exchange(nobody);
    if (descriptor != nobody)
        isHandedOver = true;
    int none = 0;
    waiting.compare_exchange_strong(none, signal);
    if (descriptor != nobody) {
        timer_settime(limit, 0, &longestHandOver, nullptr);
        const std::uint64_t one = 1;
        if (write(descriptor, &one, sizeof one) != sizeof one)
            isHandedOver = false;
    }
    endIfFree();
    errno = errnoBefore;
}

void onLimit(int)
{
    isHandedOver = false;
    endIfFree();
}

/// The end is under way: by a signal to this process, or on another thread.
[[noreturn]] void waitForTheEnd()
{
    for (int i = 0; i < longestEnd || holds != ending; ++i) {
        const timespec time{0, nap};
        nanosleep(&time, nullptr);
    }
    _exit(statusOfSignals + waiting);
}

bool handle(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    return sigaction(signal, &action, nullptr) == 0;
}

bool makeLimit(int milliseconds)
{
    sigevent event = {};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = limitSignal();
    longestHandOver.it_value.tv_sec = milliseconds / 1000;
    longestHandOver.it_value.tv_nsec = milliseconds % 1000 * 1000000L;
    return handle(limitSignal(), onLimit) && timer_create(CLOCK_MONOTONIC, &event, &limit) == 0;
}

} // namespace

void EndSignals::watch()
{
    for (const Name& name : endSignals) {
        struct sigaction present = {};
        sigaction(name.signal, nullptr, &present);
        if (present.sa_handler != SIG_IGN)
            handle(name.signal, onEndSignal);
    }
}

EndSignals::Hold::Hold()
{
    int present = holds;
    while (present == ending || !holds.compare_exchange_weak(present, present + 1)) {
        if (present == ending)
            waitForTheEnd();
    }
}

EndSignals::Hold::~Hold()
{
    --holds;
    endIfFree();
}

EndSignals::HandOver::HandOver(int milliseconds) : _descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (_descriptor >= 0 && !makeLimit(milliseconds)) {
        close(_descriptor);
        _descriptor = -1;
    }
    receiver = _descriptor;
}

EndSignals::HandOver::~HandOver()
{
    receiver = nobody;
    if (_descriptor < 0)
        return;
    if (isHandedOver)
        end();
    timer_delete(limit);
    close(_descriptor);
}

const char* EndSignals::HandOver::signalName()
{
    for (const Name& name : endSignals) {
        if (name.signal == waiting)
            return name.text;
    }
    return "";
}

void EndSignals::HandOver::end()
{
    isHandedOver = false;
    endIfFree();
    waitForTheEnd();
}

} // namespace kthost
